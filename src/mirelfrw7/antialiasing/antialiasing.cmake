# Antialiased vector drawing. The same inputs must give the same pixels on every machine, so these files
# never fuse a multiply and an add.
set(MIREL_ANTIALIASING_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/cacheable_line_contour.cpp
  ${CMAKE_CURRENT_LIST_DIR}/color_info.cpp
  ${CMAKE_CURRENT_LIST_DIR}/contour.cpp
  ${CMAKE_CURRENT_LIST_DIR}/draw_line.cpp
  ${CMAKE_CURRENT_LIST_DIR}/line_contour.cpp
)
target_sources(mirelfrw7 PRIVATE ${MIREL_ANTIALIASING_SOURCES})
set_source_files_properties(${MIREL_ANTIALIASING_SOURCES} PROPERTIES COMPILE_OPTIONS -ffp-contract=off)
