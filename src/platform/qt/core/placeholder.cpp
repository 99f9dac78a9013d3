namespace halden { void platform_qt_core_placeholder(); void platform_qt_core_placeholder() {} }
