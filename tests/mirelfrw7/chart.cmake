# Test programs of the framework's chart subsystem, with mirel_test()
mirel_test(chart_test
  SOURCES mirelfrw7/chart/axis_test.cpp mirelfrw7/chart/categorical_axis_test.cpp
          mirelfrw7/chart/bar_test.cpp mirelfrw7/chart/chart_storm_test.cpp
  LABELS unit)
