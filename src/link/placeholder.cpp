namespace halden { void link_placeholder(); void link_placeholder() {} }
