namespace halden { void app_ui_placeholder(); void app_ui_placeholder() {} }
