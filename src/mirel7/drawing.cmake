# Sources of the base layer's drawing helpers: borders, image lists, custom palettes and XPM pictures.
# Reading PNG files is the drawing backend's, in cairo/.
target_sources(mirel7 PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/border.cpp
  ${CMAKE_CURRENT_LIST_DIR}/custom_palette.cpp
  ${CMAKE_CURRENT_LIST_DIR}/image_list.cpp
  ${CMAKE_CURRENT_LIST_DIR}/xpm.cpp
)
