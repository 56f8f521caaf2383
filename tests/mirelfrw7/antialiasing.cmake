# Test programs of the antialiased drawing, with mirel_test()
mirel_test(antialiasing_test
  SOURCES mirelfrw7/antialiasing/contour_test.cpp mirelfrw7/antialiasing/draw_line_test.cpp
          mirelfrw7/antialiasing/line_contour_test.cpp mirelfrw7/antialiasing/pixel_store_identity_test.cpp
  LABELS unit)
target_compile_options(antialiasing_test PRIVATE -ffp-contract=off)
