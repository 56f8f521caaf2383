# Test programs of the base layer's painter area, with mirel_test()
mirel_test(painter_test
  SOURCES mirel7/border_test.cpp mirel7/coord_mapping_test.cpp mirel7/recording_painter_test.cpp
          mirel7/text_flow_test.cpp
  LABELS unit)
mirel_test(cairo_painter_test
  SOURCES mirel7/cairo/cairo_painter_test.cpp mirel7/cairo/cairo_text_test.cpp mirel7/cairo/raster_picture_test.cpp
          mirel7/cairo/control_look_test.cpp
  LABELS unit)
# The reference pictures of the native look.
target_compile_definitions(cairo_painter_test PRIVATE MIREL_LOOK_DATA="${CMAKE_CURRENT_SOURCE_DIR}/mirel7/cairo/data")
mirel_test(xpm_test
  SOURCES mirel7/xpm_test.cpp mirel7/cairo/xpm_draw_test.cpp
  LABELS unit)
mirel_test(text_formatter_test
  SOURCES mirel7/text_formatter_test.cpp mirel7/cairo/html_text_test.cpp
  LABELS unit)
# The shaped-line cache against the layout's own renderer, below the painter.
mirel_test(glyph_cache_test
  SOURCES mirel7/cairo/glyph_cache_test.cpp ${PROJECT_SOURCE_DIR}/src/mirel7/cairo/pango_text.cpp
          ${PROJECT_SOURCE_DIR}/src/mirel7/cairo/glyph_run_cache.cpp
  LABELS unit)
target_link_libraries(glyph_cache_test PRIVATE PkgConfig::MIREL_CAIRO)
target_include_directories(glyph_cache_test PRIVATE ${PROJECT_SOURCE_DIR}/src)
