# Test programs of the framework's controls, with mirel_test()
mirel_test(controls_test
  SOURCES mirelfrw7/controls/caption_test.cpp mirelfrw7/controls/button_test.cpp
          mirelfrw7/controls/check_box_test.cpp mirelfrw7/controls/title_test.cpp
          mirelfrw7/controls/controls_repaint_test.cpp
  LABELS unit)
