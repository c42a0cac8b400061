# Help window.
target_sources(quorvanta_widgets PRIVATE
  help/helpwindowclass.h
  help/helpwindowclass.cpp)
