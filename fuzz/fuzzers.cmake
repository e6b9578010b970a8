# One harness per kind of outside input; seeds in corpus/<harness>/, inputs
# kept after a fix in regressions/<harness>/ (see run-fuzzers.sh).
mx_add_fuzzer(curvetextconverter_fuzzer ${CMAKE_CURRENT_LIST_DIR}/curvetextconverterfuzzer.cpp)
mx_add_fuzzer(camdescriptionbinary_fuzzer ${CMAKE_CURRENT_LIST_DIR}/camdescriptionbinaryfuzzer.cpp)
mx_add_fuzzer(camdescriptionjson_fuzzer ${CMAKE_CURRENT_LIST_DIR}/camdescriptionjsonfuzzer.cpp)
mx_add_fuzzer(driveproject_fuzzer ${CMAKE_CURRENT_LIST_DIR}/driveprojectfuzzer.cpp)
