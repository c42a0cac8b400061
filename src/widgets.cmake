# quorvanta_widgets: the thin widget layer over the core; quorvanta: the
# desktop program. Each folder adds its widget sources in <folder>/widgets.cmake.
find_package(Qt5 5.15 REQUIRED COMPONENTS Gui Widgets Charts PrintSupport Network Svg LinguistTools)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)

add_library(quorvanta_widgets STATIC)
target_include_directories(quorvanta_widgets PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(quorvanta_widgets PUBLIC quorvanta_core
  Qt5::Gui Qt5::Widgets Qt5::Charts Qt5::PrintSupport Qt5::Network Qt5::Svg)
qv_strict(quorvanta_widgets)

include(project/widgets.cmake OPTIONAL)
include(import/widgets.cmake OPTIONAL)
include(chart/widgets.cmake OPTIONAL)
include(dialogs/widgets.cmake OPTIONAL)
include(help/widgets.cmake OPTIONAL)
include(update/widgets.cmake OPTIONAL)
include(app/widgets.cmake OPTIONAL)
