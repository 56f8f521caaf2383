# Test programs of the framework's layout subsystem, with mirel_test()
