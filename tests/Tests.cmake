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

if(TEST_SUPPORT_SOURCES)
  add_library(ambrio_test_support STATIC ${TEST_SUPPORT_SOURCES} ${REFERENCE_MODEL_SOURCES})
else()
  add_library(ambrio_test_support INTERFACE)
endif()
get_target_property(support_type ambrio_test_support TYPE)
set(scope PUBLIC)
if(support_type STREQUAL "INTERFACE_LIBRARY")
  set(scope INTERFACE)
endif()
foreach(room platform settings engine saver_animation saver_model app_model saver config_model config)
  if(TARGET ambrio_${room})
    target_link_libraries(ambrio_test_support ${scope} ambrio_${room})
  endif()
endforeach()

ambrio_precompile(ambrio_test_support ambrio_platform)

# The table of copy rules goes into the test program.
set(copy_rules ${CMAKE_SOURCE_DIR}/tests/unit/copy-rules.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${copy_rules})
file(READ ${copy_rules} COPY_RULE_TABLE)
configure_file(tests/unit/CopyRuleTable.h.in generated/CopyRuleTable.h @ONLY)
configure_file(tests/fuzz/FuzzSeeds.h.in generated/FuzzSeeds.h @ONLY)

# Compiles several sources of a program as one, as most of the time goes into the headers that they
# share. Names in anonymous namespaces must differ within such a group.
function(ambrio_compile_together name)
  if(NOT AMBRIO_BATCHES)
    return()
  endif()
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
endfunction()

function(ambrio_test_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE ambrio_test_support gtest gtest_main)
  ambrio_compile_together(${name})
  ambrio_precompile(${name} ${name} ${STANDARD_HEADERS} <gtest/gtest.h>)
endfunction()

if(WIN32)
  ambrio_test_program(unit_tests ${AMBRIO_RESOURCES} ${UNIT_TEST_SOURCES} ${FAULT_TEST_SOURCES} ${UNIT_TEST_WIN32_SOURCES}
                      ${CONFORMANCE_TEST_SOURCES} ${CONFORMANCE_TEST_WIN32_SOURCES})
else()
  ambrio_test_program(unit_tests ${UNIT_TEST_SOURCES} ${FAULT_TEST_SOURCES} ${FUZZ_SOURCES} ${FUZZ_SEED_TEST_SOURCES}
                      ${CONFORMANCE_TEST_SOURCES})
endif()

if(WIN32)
  # Loaded into test programs and into the program under test, under Wine only.
  add_library(WindowsFiles MODULE ${WINDOWS_FILES_SOURCES})
  target_link_libraries(WindowsFiles PRIVATE ambrio_compiler_settings)
  set_target_properties(WindowsFiles PROPERTIES PREFIX "")
  add_dependencies(unit_tests WindowsFiles)
endif()

if(WIN32 AND E2E_TEST_SOURCES)
  # With the program's manifest: places are then real pixels, and what the system refuses is refused
  # and not redirected.
  add_executable(e2e_tests ${AMBRIO_RESOURCES} ${E2E_SUPPORT_SOURCES} ${E2E_TEST_SOURCES})
  target_link_libraries(e2e_tests PRIVATE ambrio_platform gtest gtest_main)
  ambrio_compile_together(e2e_tests)

  # What the tests put in place of another screen saver and of the system's password module.
  add_executable(StandInSaver WIN32 ${E2E_STANDIN_SAVER_SOURCES})
  target_link_libraries(StandInSaver PRIVATE ambrio_compiler_settings)
  target_link_options(StandInSaver PRIVATE -municode)
  set_target_properties(StandInSaver PROPERTIES SUFFIX .scr)
  add_library(StandInPassword MODULE ${E2E_STANDIN_PASSWORD_SOURCES}
                                     tests/e2e/standin/StandInPassword.def)
  target_link_libraries(StandInPassword PRIVATE ambrio_compiler_settings)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # The module's function is looked up by its plain name.
    target_link_options(StandInPassword PRIVATE -Wl,--enable-stdcall-fixup)
  endif()
  set_target_properties(StandInPassword PROPERTIES PREFIX "")
  # Brings the animation to a step of which a picture is wanted (scripts/screenshots).
  add_executable(StepForPicture ${E2E_PICTURE_SOURCES})
  target_link_libraries(StepForPicture PRIVATE ambrio_compiler_settings)
  target_link_options(StepForPicture PRIVATE -municode)

  # Shows a dialog of which a picture is wanted (scripts/dialog-screenshots).
  add_executable(DialogForPicture ${AMBRIO_RESOURCES} ${E2E_DIALOG_PICTURE_SOURCES})
  target_link_libraries(DialogForPicture PRIVATE ambrio_config)
  target_link_options(DialogForPicture PRIVATE -municode)

  add_dependencies(e2e_tests StandInSaver StandInPassword WindowsFiles Ambrio)
endif()
