namespace halden { void simulator_placeholder(); void simulator_placeholder() {} }
