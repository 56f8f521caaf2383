# Test programs of the framework's animation subsystem, with mirel_test()
mirel_test(animation_test
  SOURCES mirelfrw7/animation/image_test.cpp mirelfrw7/animation/timer_animation_test.cpp
  LABELS unit)
mirel_test(animation_threads_test
  SOURCES mirelfrw7/animation/gui_task_test.cpp mirelfrw7/animation/thread_animation_test.cpp
  LABELS threads)
