namespace halden { void platform_qt_desktop_placeholder(); void platform_qt_desktop_placeholder() {} }
