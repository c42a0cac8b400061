# Controller CSV import and the steps it shares with the binary log import.
set(QV_CSV_TEST_HELPERS import/csvtesthelpers.cpp import/csvtesthelpers.h)

qv_add_test(test_csvimport SOURCES import/tst_csvimport.cpp ${QV_CSV_TEST_HELPERS})
qv_add_test(test_controllersteps SOURCES import/tst_controllersteps.cpp)
qv_add_test(test_csvsiblings SOURCES import/tst_csvsiblings.cpp ${QV_CSV_TEST_HELPERS})
# The time readers are compared with QDateTime in a zone with daylight saving time.
qv_add_test(test_csvparse SOURCES import/tst_csvparse.cpp)
set_property(TEST test_csvparse APPEND PROPERTY ENVIRONMENT "TZ=Europe/Berlin")
qv_add_test(test_csvrobust SOURCES import/tst_csvrobust.cpp ${QV_CSV_TEST_HELPERS})

# libFuzzer target (clang): configure with -DQV_FUZZ=ON and
# -DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link,address,undefined, then run
# tests/fuzz_csvimport -max_total_time=60 in the build folder.
option(QV_FUZZ "Build the libFuzzer targets (clang only)" OFF)
if(QV_FUZZ)
  add_executable(fuzz_csvimport fuzz/fuzz_csvimport.cpp)
  target_link_libraries(fuzz_csvimport PRIVATE quorvanta_core)
  target_link_options(fuzz_csvimport PRIVATE -fsanitize=fuzzer)
  qv_strict(fuzz_csvimport)
endif()
include(import/vis.cmake OPTIONAL)
include(import/log.cmake OPTIONAL)

# quorvanta-cli convert of every input kind against a direct import and save.
qv_add_test(test_importcli SOURCES import/tst_importcli.cpp import/visfile.cpp import/visfile.h
            ${QV_CSV_TEST_HELPERS} LIBS quorvanta_logwriter)
target_compile_definitions(test_importcli PRIVATE QV_CLI_PATH="$<TARGET_FILE:quorvanta-cli>"
                           QV_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/resources/samples"
                           QV_LOG_SAMPLES_DIR="${CMAKE_BINARY_DIR}/samples"
                           QV_VIS_SAMPLE="${CMAKE_BINARY_DIR}/samples/cellar-vis.csv")
add_dependencies(test_importcli quorvanta-cli sample_logs)
if(TARGET vis_sample)
  add_dependencies(test_importcli vis_sample)
endif()
