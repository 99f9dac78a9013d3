namespace halden { void app_placeholder(); void app_placeholder() {} }
