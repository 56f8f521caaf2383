# Test programs of the framework's scroll subsystem, with mirel_test()
