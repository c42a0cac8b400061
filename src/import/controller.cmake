# Steps shared by the controller importers (CSV export and binary log).
target_sources(quorvanta_core PRIVATE
  import/controllerstate.cpp import/controllerstate.h
  import/controllersteps.cpp import/controllersteps.h
  import/localtime.cpp import/localtime.h
)
