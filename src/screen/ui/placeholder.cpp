namespace halden { void screen_ui_placeholder(); void screen_ui_placeholder() {} }
