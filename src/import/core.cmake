target_sources(quorvanta_core PRIVATE
  import/importer.cpp import/importer.h
  import/importhost.h
  import/inputtype.cpp import/inputtype.h
  import/csvimport.cpp import/csvimport.h
  import/logimport.cpp import/logimport.h
  import/visimport.cpp import/visimport.h
)
# Each importer may add its shared or private helpers here:
include(import/csv.cmake OPTIONAL)
include(import/log.cmake OPTIONAL)
include(import/vis.cmake OPTIONAL)
include(import/controller.cmake OPTIONAL)
