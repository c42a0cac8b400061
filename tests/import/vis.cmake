# vaporix-VIS CSV import. Times are checked in a zone with daylight saving
# time, so that the QDateTime fallback for skipped local hours is reached.
qv_add_test(test_visimport SOURCES import/tst_visimport.cpp import/visfile.cpp import/visfile.h
            ${QV_CSV_TEST_HELPERS})
set_property(TEST test_visimport APPEND PROPERTY ENVIRONMENT "TZ=Europe/Berlin")
qv_add_test(test_viscli SOURCES import/tst_viscli.cpp import/visfile.cpp import/visfile.h ${QV_CSV_TEST_HELPERS})
target_compile_definitions(test_viscli PRIVATE QV_CLI_PATH="$<TARGET_FILE:quorvanta-cli>")
add_dependencies(test_viscli quorvanta-cli)
target_compile_definitions(test_viscli PRIVATE QV_VIS_SAMPLE="${CMAKE_BINARY_DIR}/samples/cellar-vis.csv")
if(TARGET vis_sample)
  add_dependencies(test_viscli vis_sample)
endif()
