# Binary sampling log import; the logs are written by the log writer of tools/.
qv_add_test(test_logimport SOURCES import/tst_logimport.cpp ${QV_CSV_TEST_HELPERS} LIBS quorvanta_logwriter)
qv_add_test(test_logsiblings SOURCES import/tst_logsiblings.cpp ${QV_CSV_TEST_HELPERS} LIBS quorvanta_logwriter)
