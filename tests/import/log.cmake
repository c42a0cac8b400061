# Binary sampling log import; the logs are written by the log writer of tools/.
qv_add_test(test_logimport SOURCES import/tst_logimport.cpp ${QV_CSV_TEST_HELPERS} LIBS quorvanta_logwriter)
qv_add_test(test_logsiblings SOURCES import/tst_logsiblings.cpp ${QV_CSV_TEST_HELPERS} LIBS quorvanta_logwriter)
qv_add_test(test_logcli SOURCES import/tst_logcli.cpp ${QV_CSV_TEST_HELPERS} LIBS quorvanta_logwriter)
target_compile_definitions(test_logcli PRIVATE QV_CLI_PATH="$<TARGET_FILE:quorvanta-cli>"
                           QV_LOG_SAMPLES_DIR="${CMAKE_BINARY_DIR}/samples")
add_dependencies(test_logcli quorvanta-cli sample_logs)
