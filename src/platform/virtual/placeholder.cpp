namespace halden { void platform_virtual_placeholder(); void platform_virtual_placeholder() {} }
