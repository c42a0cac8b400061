# Crafted chart projects shared by the chart tests.
add_library(qv_chartfixture STATIC chart/chartfixture.cpp chart/chartfixture.h)
target_include_directories(qv_chartfixture PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(qv_chartfixture PUBLIC quorvanta_core)
qv_strict(qv_chartfixture)
# Chart rules without a window.
qv_add_test(test_chartcore SOURCES chart/tst_chartcore.cpp LIBS qv_chartfixture)
# Chart building and the chart widget's display members, offscreen.
qv_add_test(test_chartbuild SOURCES chart/tst_chartbuild.cpp LIBS qv_chartfixture quorvanta_app)
qv_add_test(test_chartwidget SOURCES chart/tst_chartwidget.cpp LIBS qv_chartfixture quorvanta_app)
