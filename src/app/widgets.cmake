# Application shell: main window, start screen, about box, dialog seam.
target_sources(quorvanta_widgets PRIVATE
  app/quorvanta.ui
  app/quorvantaclass.h
  app/quorvantaclass.cpp
  app/quorvantasettings.cpp
  app/quorvantaproject.cpp
  app/quorvantaoptions.cpp
  app/quorvantadisplay.cpp
  app/recentfiles.h
  app/recentfiles.cpp
  app/displaysize.h
  app/displaysize.cpp
  app/startscreenclass.h
  app/startscreenclass.cpp
  app/aboutdialogclass.h
  app/aboutdialogclass.cpp
  app/dialogseam.h
  app/dialogseam.cpp
  app/commandline.h
  app/commandline.cpp
  app/appexit.h
  app/appexit.cpp
  app/resources.h
  app/resources.cpp)

include(${PROJECT_SOURCE_DIR}/resources/resources.cmake)

# The desktop program.
add_executable(quorvanta app/main.cpp)
target_link_libraries(quorvanta PRIVATE quorvanta_widgets)
qv_strict(quorvanta)

# The generated forms (ui_*.h) are part of the library's interface: tests
# reach the main window's actions through Ui_Quorvanta.
target_include_directories(quorvanta_widgets PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/quorvanta_widgets_autogen/include)
