# The drawing helpers of the element core: clips, drawing contexts, transparent painting, invalid regions,
# colour routines and labels.
target_sources(mirelfrw7 PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/bk_fg_routine.cpp
  ${CMAKE_CURRENT_LIST_DIR}/clip_holder.cpp
  ${CMAKE_CURRENT_LIST_DIR}/drawing_context.cpp
  ${CMAKE_CURRENT_LIST_DIR}/invalid_region.cpp
  ${CMAKE_CURRENT_LIST_DIR}/label.cpp
  ${CMAKE_CURRENT_LIST_DIR}/palette_routine.cpp
  ${CMAKE_CURRENT_LIST_DIR}/transparent_painter.cpp
)
