# The desktop program: shell rules, main window, chart widget, import dialogs.
add_library(qv_shellfixture STATIC
  app/shellfixture.cpp app/shellfixture.h
  app/scripteddialogs.cpp app/scripteddialogs.h)
target_include_directories(qv_shellfixture PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(qv_shellfixture PUBLIC quorvanta_app Qt5::Test)
qv_strict(qv_shellfixture)

qv_add_test(test_shellrules SOURCES app/tst_shellrules.cpp LIBS quorvanta_app)
find_package(Qt5 5.15 REQUIRED COMPONENTS LinguistTools)
target_compile_definitions(test_shellrules PRIVATE QV_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
  QV_LUPDATE="$<TARGET_FILE:Qt5::lupdate>")
qv_add_test(test_mainwindow SOURCES app/tst_mainwindow.cpp LIBS qv_shellfixture)
qv_add_test(test_chartdocument SOURCES project/tst_chartdocument.cpp LIBS qv_shellfixture)
qv_add_test(test_importdialogs SOURCES app/tst_importdialogs.cpp LIBS quorvanta_app)
