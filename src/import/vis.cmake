# vaporix-VIS CSV import: the fixed header, the device states, the data-set
# layout and the plausibility pass of the device's recordings.
target_sources(quorvanta_core PRIVATE
  import/visformat.cpp import/visformat.h
)
