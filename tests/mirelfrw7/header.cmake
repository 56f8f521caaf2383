# Test programs of the framework's header subsystem, with mirel_test()
mirel_test(header_test
  SOURCES mirelfrw7/header/header_test.cpp mirelfrw7/header/simple_header_test.cpp
          mirelfrw7/header/test_header_model.cpp mirelfrw7/header/header_grid_test.cpp
  LABELS unit)
