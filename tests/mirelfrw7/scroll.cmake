# Test programs of the framework's scroll subsystem, with mirel_test()
mirel_test(scroll_test
  SOURCES mirelfrw7/scroll/scroll_converter_test.cpp mirelfrw7/scroll/scroll_model_test.cpp
          mirelfrw7/scroll/scrollable_element_ex_test.cpp mirelfrw7/scroll/scrollable_element_test.cpp
          mirelfrw7/scroll/scroll_box_test.cpp mirelfrw7/scroll/scroll_container_test.cpp
  LABELS unit)
