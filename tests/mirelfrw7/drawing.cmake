# Test programs of the element core's drawing helpers, with mirel_test()
mirel_test(drawing_test
  SOURCES mirelfrw7/drawing/clip_holder_test.cpp mirelfrw7/drawing/colour_routine_test.cpp
          mirelfrw7/drawing/drawing_context_test.cpp mirelfrw7/drawing/image_list_test.cpp
          mirelfrw7/drawing/invalid_region_test.cpp mirelfrw7/drawing/label_test.cpp
          mirelfrw7/drawing/transparent_flavor_test.cpp mirelfrw7/drawing/transparent_painter_test.cpp
  LABELS unit)
