namespace halden { void readings_placeholder(); void readings_placeholder() {} }
