target_sources(quorvanta_core PRIVATE
  project/chartmodel.cpp project/chartmodel.h
  project/compression.cpp project/compression.h
  project/fixedstring.cpp project/fixedstring.h
  project/modelsummary.cpp project/modelsummary.h
  project/progress.h
  project/projectfile.cpp project/projectfile.h
  project/projectpaths.cpp project/projectpaths.h
  project/regularfile.cpp project/regularfile.h
)
