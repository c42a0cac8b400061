# The chart widget: construction and rows, file commands, error exits.
target_sources(quorvanta_widgets PRIVATE
  project/qvchartclass.h
  project/qvchartclass.cpp
  project/charttexts.h
  project/charterrors.cpp
  project/chartfile.cpp
  project/chartpending.cpp)
