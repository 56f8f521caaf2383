# Test programs of the framework's items subsystem, with mirel_test()
