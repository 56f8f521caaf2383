# Test programs of the framework's layout subsystem, with mirel_test()
mirel_test(layout_test
  SOURCES mirelfrw7/layout/orientation_test.cpp mirelfrw7/layout/layout_flavor_test.cpp
          mirelfrw7/layout/flow_layout_test.cpp
          mirelfrw7/layout/grid_layout_test.cpp mirelfrw7/layout/bevel_test.cpp
          mirelfrw7/layout/pane_test.cpp mirelfrw7/layout/scrolled_test.cpp mirelfrw7/layout/box_test.cpp
          mirelfrw7/layout/container_test.cpp mirelfrw7/layout/central_part_test.cpp
          mirelfrw7/layout/containers_storm_test.cpp
  LABELS unit)
# Its own program, so that the concurrent calls are the first of the process.
mirel_test(layout_threads_test
  SOURCES mirelfrw7/layout/layout_threads_test.cpp
  LABELS threads)
