# Test programs of the base layer's system area, with mirel_test()
