# The fuzzers as a room, for the tests that feed them their seeds, and where the compiler has them one
# program for each of tests/fuzz/Fuzzers.h, for scripts/fuzz.
configure_file(tests/fuzz/FuzzSeeds.h.in generated/FuzzSeeds.h @ONLY)
ambrio_room(fuzz PRECOMPILED standard SOURCES ${FUZZ_SOURCES} LINKS ambrio_test_support ambrio_app_model)
if(AMBRIO_SANITIZE)
  add_custom_target(fuzzers)
  foreach(fuzzer FuzzSetList FuzzTextConversion FuzzCommandLine FuzzDestinationFolder FuzzRun)
    add_executable(${fuzzer} EXCLUDE_FROM_ALL ${FUZZ_PROGRAM_SOURCES})
    target_compile_definitions(${fuzzer} PRIVATE AMBRIO_FUZZER=${fuzzer})
    target_link_libraries(${fuzzer} PRIVATE ambrio_fuzz)
    target_link_options(${fuzzer} PRIVATE -fsanitize=fuzzer)
    add_dependencies(fuzzers ${fuzzer})
  endforeach()
endif()
