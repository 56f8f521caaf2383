# Test programs of the base layer's system area, with mirel_test()
set(system_support mirel7/system/journal_control.cpp)
mirel_test(mirel7_system_test
  SOURCES ${system_support} mirel7/system/event_sender_test.cpp mirel7/system/headless_window_test.cpp
          mirel7/system/popup_test.cpp mirel7/system/scroll_bar_test.cpp
          mirel7/system/system_test.cpp mirel7/system/timer_test.cpp
  LABELS unit)
mirel_test(mirel7_system_threads_test
  SOURCES mirel7/system/threads_test.cpp
  LABELS threads)
add_subdirectory(e2e)
