# One program for each fuzzer of tests/fuzz/Fuzzers.h, for scripts/fuzz.
add_library(ambrio_fuzz STATIC ${FUZZ_SOURCES} ${TEST_SUPPORT_SOURCES} ${REFERENCE_MODEL_SOURCES})
target_link_libraries(ambrio_fuzz PUBLIC ambrio_engine ambrio_app_model)
foreach(fuzzer FuzzSetList FuzzTextConversion FuzzCommandLine FuzzDestinationFolder FuzzRun)
  add_executable(${fuzzer} ${FUZZ_PROGRAM_SOURCES})
  target_compile_definitions(${fuzzer} PRIVATE AMBRIO_FUZZER=${fuzzer})
  target_link_libraries(${fuzzer} PRIVATE ambrio_fuzz)
  target_link_options(${fuzzer} PRIVATE -fsanitize=fuzzer)
endforeach()
