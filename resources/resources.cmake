# The program's resources, built into quorvanta_ui under the prefix
# "/new/prefix1" with aliases "resources/<file>":
#  - icons and pictures drawn as SVG in resources/icons, rendered to PNG here,
#  - the German catalogue compiled from resources/translations/Quorvanta_de.ts,
#  - Qt's own German catalogue, when the system has it,
#  - the about pages.
find_package(Qt5 5.15 REQUIRED COMPONENTS Svg LinguistTools)

set(QV_RES_SRC ${PROJECT_SOURCE_DIR}/resources)
set(QV_RES_OUT ${CMAKE_BINARY_DIR}/resources)
file(MAKE_DIRECTORY ${QV_RES_OUT})

add_executable(quorvanta-svgtopng ${PROJECT_SOURCE_DIR}/tools/svgtopng.cpp)
target_link_libraries(quorvanta-svgtopng PRIVATE Qt5::Gui Qt5::Svg)
qv_strict(quorvanta-svgtopng)

set(QV_ICONS new open save saveas close print exportpdf exit settings chart flag_uk flag_ger
  false true help about updatecheck zoomin zoomout zoomfull zoomwidth zoomheight importbin importcsv
  previous next search home)
set(QV_RES_FILES)
# Renders the named drawings at one size; adds the PNG names to QV_RES_FILES.
function(qv_render_pictures size)
  set(svgs)
  set(pngs)
  set(files ${QV_RES_FILES})
  foreach(name ${ARGN})
    list(APPEND svgs ${QV_RES_SRC}/icons/${name}.svg)
    list(APPEND pngs ${QV_RES_OUT}/${name}.png)
    list(APPEND files ${name}.png)
  endforeach()
  add_custom_command(
    OUTPUT ${pngs}
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:quorvanta-svgtopng> ${QV_RES_OUT} ${size} ${svgs}
    DEPENDS quorvanta-svgtopng ${svgs}
    COMMENT "Rendering ${size} pictures"
    VERBATIM)
  set(QV_RES_FILES ${files} PARENT_SCOPE)
endfunction()
qv_render_pictures(48x48 ${QV_ICONS})
qv_render_pictures(256x256 Quorvanta)
qv_render_pictures(192x192 oracle)
qv_render_pictures(440x300 startscreen)

# German catalogue of the program.
set_source_files_properties(${QV_RES_SRC}/translations/Quorvanta_de.ts PROPERTIES OUTPUT_LOCATION ${QV_RES_OUT})
qt5_add_translation(QV_QM_FILES ${QV_RES_SRC}/translations/Quorvanta_de.ts)
list(APPEND QV_RES_FILES Quorvanta_de.qm)

# Qt's German catalogue; a system without it gets none (missing ones are ignored).
if(EXISTS /usr/share/qt5/translations/qtbase_de.qm)
  configure_file(/usr/share/qt5/translations/qtbase_de.qm ${QV_RES_OUT}/qtbase_de.qm COPYONLY)
  list(APPEND QV_RES_FILES qtbase_de.qm)
endif()

foreach(page about_en.html about_de.html)
  configure_file(${QV_RES_SRC}/about/${page} ${QV_RES_OUT}/${page} COPYONLY)
  list(APPEND QV_RES_FILES ${page})
endforeach()

set(QV_QRC_ENTRIES "")
foreach(file ${QV_RES_FILES})
  string(APPEND QV_QRC_ENTRIES "    <file alias=\"resources/${file}\">${file}</file>\n")
endforeach()
file(CONFIGURE OUTPUT ${QV_RES_OUT}/quorvanta.qrc
  CONTENT "<RCC>\n  <qresource prefix=\"/new/prefix1\">\n@QV_QRC_ENTRIES@  </qresource>\n</RCC>\n"
  @ONLY)

qt5_add_resources(QV_RCC_SOURCES ${QV_RES_OUT}/quorvanta.qrc)
set_source_files_properties(${QV_RCC_SOURCES} PROPERTIES SKIP_AUTOGEN ON)
target_sources(quorvanta_ui PRIVATE ${QV_RCC_SOURCES} ${QV_QM_FILES})
