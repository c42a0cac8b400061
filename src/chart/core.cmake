target_sources(quorvanta_core PRIVATE
  chart/chartplan.cpp chart/chartplan.h
  chart/missingfilter.h
  chart/reduction.cpp chart/reduction.h
  chart/stateband.cpp chart/stateband.h
  chart/statistics.cpp chart/statistics.h
)
