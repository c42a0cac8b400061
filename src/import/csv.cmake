# Raw line, field and number reading of the controller CSV importer.
target_sources(quorvanta_core PRIVATE
  import/csvlines.cpp import/csvlines.h
  import/csvnumber.cpp import/csvnumber.h
)
