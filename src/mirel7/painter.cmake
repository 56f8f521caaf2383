# Sources of the base layer's painter area: the state every painter shares, the text flow, the
# text formatters and the recording painter. The Cairo backend lists its own in cairo/.
target_sources(mirel7 PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/coord_mapping.cpp
  ${CMAKE_CURRENT_LIST_DIR}/html_markup.cpp
  ${CMAKE_CURRENT_LIST_DIR}/painter_base.cpp
  ${CMAKE_CURRENT_LIST_DIR}/recording_painter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/text_flow.cpp
  ${CMAKE_CURRENT_LIST_DIR}/text_formatter.cpp
)
