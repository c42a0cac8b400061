target_sources(quorvanta-cli PRIVATE
  cli/main.cpp
  cli/cliargs.cpp cli/cliargs.h
  cli/infoprinter.cpp cli/infoprinter.h
)
