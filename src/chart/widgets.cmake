# Chart rendering (widget side): chart building on any chart view, and the
# chart widget's display, statistics and row-toggle members.
target_sources(quorvanta_widgets PRIVATE
  chart/chartaxes.cpp chart/chartaxes.h
  chart/chartbuilder.cpp chart/chartbuilder.h
  chart/chartdisplay.cpp
  chart/chartlines.cpp
  chart/chartstatistics.cpp)
