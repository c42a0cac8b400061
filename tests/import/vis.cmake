# vaporix-VIS CSV import. Times are checked in a zone with daylight saving
# time, so that the QDateTime fallback for skipped local hours is reached.
qv_add_test(test_visimport SOURCES import/tst_visimport.cpp import/visfile.cpp import/visfile.h
            ${QV_CSV_TEST_HELPERS})
set_property(TEST test_visimport APPEND PROPERTY ENVIRONMENT "TZ=Europe/Berlin")
