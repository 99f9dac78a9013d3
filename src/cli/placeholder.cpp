namespace halden { void cli_placeholder(); void cli_placeholder() {} }
