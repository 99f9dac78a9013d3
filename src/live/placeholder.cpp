namespace halden { void live_placeholder(); void live_placeholder() {} }
