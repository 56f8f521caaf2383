# Test programs of the framework's items subsystem, with mirel_test()
mirel_test(items_test
  SOURCES mirelfrw7/items/continuous_view_model_test.cpp mirelfrw7/items/discrete_view_model_test.cpp
          mirelfrw7/items/sparse_item_sizes_test.cpp
          mirelfrw7/items/item_utils_test.cpp mirelfrw7/items/pinned_view_model_test.cpp
          mirelfrw7/items/update_storage_test.cpp mirelfrw7/items/selection_model_test.cpp
          mirelfrw7/items/item_event_handler_test.cpp mirelfrw7/items/viewer_test.cpp
          mirelfrw7/items/viewer_repaint_test.cpp mirelfrw7/items/list_box_viewer_test.cpp
          mirelfrw7/items/viewer_scroll_box_test.cpp
  LABELS unit)
