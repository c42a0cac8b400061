qv_add_fuzzer(fuzz_csvimport fuzz_csvimport.cpp)
qv_add_fuzzer(fuzz_visimport fuzz_visimport.cpp)
qv_add_fuzzer(fuzz_logimport fuzz_logimport.cpp)
