# Version check and update dialog.
target_sources(quorvanta_widgets PRIVATE
  update/webupdateclass.h
  update/webupdateclass.cpp
  update/qvupdateclass.h
  update/qvupdateclass.cpp)
