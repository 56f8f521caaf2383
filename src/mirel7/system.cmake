# Sources of the base layer's system area: target_sources(mirel7 PRIVATE ...)
target_sources(mirel7 PRIVATE
  event_sender.cpp
  events.cpp
  mirel_control.cpp
  notify.cpp
  palette.cpp
  popup.cpp
  popup_menu.cpp
  runnable_queue.cpp
  spawn.cpp
  custom_control_base.cpp
  sys_scroll_bar.cpp
  sys_window_base.cpp
  system.cpp
  system_base.cpp
  thread_runner.cpp
  timer_queue.cpp
)
