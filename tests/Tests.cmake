# GoogleTest comes as sources, so that it is built with the same compiler and flags as the tests.
set(BUILD_GMOCK OFF)
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
if(AMBRIO_SANITIZE)
  target_compile_options(gtest PRIVATE -fsanitize=address,undefined)
endif()
if(WIN32)
  target_link_options(gtest INTERFACE -static)
endif()

# The tests' own sources are compiled without optimisation, as they are compiled often and run once.
# What they test is not compiled anew for them.
target_compile_options(gtest PRIVATE -O0)
target_compile_options(gtest_main PRIVATE -O0)
add_library(ambrio_test_settings INTERFACE)
target_link_libraries(ambrio_test_settings INTERFACE ambrio_compiler_settings gtest)
target_compile_options(ambrio_test_settings INTERFACE -O0)
if(AMBRIO_SANITIZE)
  # No fuzzer takes its way through a test.
  target_compile_options(ambrio_test_settings INTERFACE -fno-sanitize=fuzzer-no-link)
endif()
set(TEST_HEADERS ${STANDARD_HEADERS} <gtest/gtest.h>)
ambrio_precompile(tests LINKS ambrio_test_settings HEADERS ${TEST_HEADERS})

# ambrio_tests(NAME PRECOMPILED ... SOURCES ... LINKS ...): some of a test program's sources. Most of
# the time goes into the headers that they share.
function(ambrio_tests name)
  cmake_parse_arguments(TESTS "" "PRECOMPILED" "SOURCES;LINKS" ${ARGN})
  add_library(ambrio_${name} OBJECT ${TESTS_SOURCES})
  target_link_libraries(ambrio_${name} PUBLIC ambrio_test_settings ${TESTS_LINKS})
  ambrio_use_precompiled(ambrio_${name} ${TESTS_PRECOMPILED})
  ambrio_batches(ambrio_${name} 16)
endfunction()

# The table of copy rules goes into the test program.
set(copy_rules ${CMAKE_SOURCE_DIR}/tests/unit/copy-rules.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${copy_rules})
file(READ ${copy_rules} COPY_RULE_TABLE)
configure_file(tests/unit/CopyRuleTable.h.in generated/CopyRuleTable.h @ONLY)

if(NOT WIN32)
  list(APPEND TEST_SUPPORT_SOURCES ${TEST_SUPPORT_HOST_SOURCES})
endif()
# The doubles are optimised a little, where the rest is: whole backups run on them by the hundred.
ambrio_room(test_support PRECOMPILED standard SOURCES ${TEST_SUPPORT_SOURCES} ${REFERENCE_MODEL_SOURCES}
            LINKS ambrio_engine)
target_compile_options(ambrio_test_support PRIVATE $<$<CONFIG:Release>:-O1>)
ambrio_tests(portable_tests PRECOMPILED tests SOURCES ${UNIT_TEST_SOURCES}
             LINKS ambrio_test_support ambrio_saver_animation ambrio_saver_model ambrio_app_model
                   ambrio_config_model)
ambrio_tests(fault_tests PRECOMPILED tests SOURCES ${FAULT_TEST_SOURCES} LINKS ambrio_test_support)
ambrio_tests(conformance_tests PRECOMPILED tests SOURCES ${CONFORMANCE_TEST_SOURCES}
             LINKS ambrio_test_support)
set(PORTABLE_TESTS ambrio_portable_tests ambrio_fault_tests ambrio_conformance_tests)

if(WIN32)
  include(tests/WindowsTests.cmake)
  include(tests/bench/Bench.cmake)
else()
  include(tests/fuzz/Fuzz.cmake)
  add_executable(unit_tests ${FUZZ_SEED_TEST_SOURCES} ${UNIT_TEST_HOST_SOURCES})
  target_link_libraries(unit_tests PRIVATE ${PORTABLE_TESTS} ambrio_fuzz gtest_main)
  # What both make of a template the linker takes from where it sees it first: the rooms' is optimised.
  target_link_options(unit_tests PRIVATE LINKER:--whole-archive $<TARGET_FILE:ambrio_test_support>
                      $<TARGET_FILE:ambrio_engine> $<TARGET_FILE:ambrio_platform>
                      LINKER:--no-whole-archive)
  # By itself, for the sanitizer that watches threads.
  add_executable(thread_tests EXCLUDE_FROM_ALL ${UNIT_TEST_HOST_SOURCES})
  target_link_libraries(thread_tests PRIVATE ambrio_test_settings ambrio_test_support gtest_main)
endif()
