# Test programs of the element core's drawing helpers, with mirel_test()
