# Test programs of the base layer's painter area, with mirel_test()
