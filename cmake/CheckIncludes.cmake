# Checks that includes between the source folders point down the layers only.
# Each folder has a rank; a file may include headers of its own folder and of
# folders of a lower rank. Two further rules:
#   - a core folder (core/...) includes core folders only, whatever the rank;
#   - quorvanta-cli (cli) sees the core and, to draw the printed page
#     off-screen, gui/ui and gui/chart only.
# Run: cmake -DSRC=<src dir> -P CheckIncludes.cmake
cmake_minimum_required(VERSION 3.16)

set(ranks
  core/base 0
  core/model 1
  core/update 1
  core/import 2
  core/chart 2
  core/settings 2
  core/project 3
  gui/ui 10
  gui/chart 11
  gui/import 11
  gui/dialogs 11
  gui/help 11
  gui/update 11
  document 20
  cli 20
  app 30)
set(cli_sees core/base core/model core/update core/import core/chart core/settings core/project gui/ui gui/chart)

set(index 0)
list(LENGTH ranks count)
while(index LESS count)
  list(GET ranks ${index} folder)
  math(EXPR index "${index} + 1")
  list(GET ranks ${index} rank)
  math(EXPR index "${index} + 1")
  string(REPLACE "/" "_" key "${folder}")
  set(rank_${key} ${rank})
endwhile()

# The folder of a path below src: two levels under core/ and gui/, one elsewhere.
function(folder_of path out)
  if(path MATCHES "^(core|gui)/")
    string(REGEX MATCH "^[^/]+/[^/]+" folder "${path}")
  else()
    string(REGEX MATCH "^[^/]+" folder "${path}")
  endif()
  set(${out} "${folder}" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE sources RELATIVE "${SRC}" "${SRC}/*.cpp" "${SRC}/*.h")
set(errors 0)
foreach(source IN LISTS sources)
  folder_of("${source}" folder)
  string(REPLACE "/" "_" key "${folder}")
  if(NOT DEFINED rank_${key})
    message(SEND_ERROR "${source}: folder '${folder}' has no rank in the layer table")
    math(EXPR errors "${errors} + 1")
    continue()
  endif()
  file(STRINGS "${SRC}/${source}" lines REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<][^\">]+[\">]")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[^\"<]*[\"<]([^\">]+)[\">].*$" "\\1" target "${line}")
    if(NOT target MATCHES "/")
      get_filename_component(dir "${source}" DIRECTORY)
      if(EXISTS "${SRC}/${dir}/${target}")
        continue()  # a header beside the source
      endif()
    endif()
    if(NOT EXISTS "${SRC}/${target}")
      # Not one of ours; but the core never reaches for widgets, charts or printing.
      if(folder MATCHES "^core/" AND target MATCHES "^(QtWidgets|QtCharts|QtPrintSupport|QtGui|QtNetwork)|^Q(Widget|Chart|Printer|Painter|Dialog|MessageBox|Application)")
        message(SEND_ERROR "${source}: core source includes ${target}")
        math(EXPR errors "${errors} + 1")
      endif()
      continue()
    endif()
    folder_of("${target}" target_folder)
    string(REPLACE "/" "_" target_key "${target_folder}")
    if(target_folder STREQUAL folder)
      continue()
    endif()
    set(allowed FALSE)
    if(NOT DEFINED rank_${target_key})
      set(allowed FALSE)
    elseif(folder MATCHES "^core/" AND NOT target_folder MATCHES "^core/")
      set(allowed FALSE)
    elseif(folder STREQUAL "cli")
      if(target_folder IN_LIST cli_sees)
        set(allowed TRUE)
      endif()
    elseif(rank_${target_key} LESS rank_${key})
      set(allowed TRUE)
    endif()
    if(NOT allowed)
      message(SEND_ERROR "${source}: includes ${target} against the layer order")
      math(EXPR errors "${errors} + 1")
    endif()
  endforeach()
endforeach()
if(errors GREATER 0)
  message(FATAL_ERROR "${errors} include(s) against the layer order")
endif()
list(LENGTH sources count)
message(STATUS "include direction: ${count} sources checked")
