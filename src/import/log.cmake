# Reading of the controller's binary sampling log container.
target_sources(quorvanta_core PRIVATE
  import/logformat.cpp import/logformat.h
)
