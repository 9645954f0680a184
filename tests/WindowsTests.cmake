# What is tested only as a Windows program, and what the tests need beside them.

# Loaded into test programs and into the program under test, under Wine only.
add_library(WindowsFiles MODULE ${WINDOWS_FILES_SOURCES})
target_link_libraries(WindowsFiles PRIVATE ambrio_compiler_settings ntdll)
set_target_properties(WindowsFiles PROPERTIES PREFIX "")
ambrio_use_precompiled(WindowsFiles windows)

ambrio_precompile(windows_tests LINKS ambrio_test_settings HEADERS ${WINDOWS_HEADERS} ${TEST_HEADERS})
ambrio_tests(windows_unit_tests PRECOMPILED windows_tests
             SOURCES ${UNIT_TEST_WIN32_SOURCES} ${CONFORMANCE_TEST_WIN32_SOURCES}
             LINKS ambrio_test_support ambrio_preview ambrio_saver ambrio_config)
add_executable(unit_tests ${AMBRIO_RESOURCES})
target_link_libraries(unit_tests PRIVATE ${PORTABLE_TESTS} ambrio_windows_unit_tests gtest_main)
add_dependencies(unit_tests WindowsFiles)

# With the program's manifest: places are then real pixels, and what the system refuses is refused
# and not redirected.
ambrio_tests(driving_tests PRECOMPILED windows_tests
             SOURCES ${E2E_SUPPORT_SOURCES} ${E2E_TEST_SOURCES}
             LINKS ambrio_platform version uuid)
add_executable(e2e_tests ${AMBRIO_RESOURCES})
target_link_libraries(e2e_tests PRIVATE ambrio_driving_tests gtest_main)

# What the tests put in place of another screen saver and of the system's password module.
add_executable(StandInSaver WIN32 ${E2E_STANDIN_SAVER_SOURCES})
set_target_properties(StandInSaver PROPERTIES SUFFIX .scr)
add_library(StandInPassword MODULE ${E2E_STANDIN_PASSWORD_SOURCES}
                                   tests/e2e/standin/StandInPassword.def)
set_target_properties(StandInPassword PROPERTIES PREFIX "")
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # The module's function is looked up by its plain name.
  target_link_options(StandInPassword PRIVATE -Wl,--enable-stdcall-fixup)
endif()
add_library(StandInSystem MODULE ${E2E_STANDIN_SYSTEM_SOURCES})
set_target_properties(StandInSystem PROPERTIES PREFIX "")
add_library(StandInFiles MODULE ${E2E_STANDIN_FILES_SOURCES})
set_target_properties(StandInFiles PROPERTIES PREFIX "")
add_dependencies(e2e_tests Ambrio StandInSaver StandInPassword StandInSystem StandInFiles
                           WindowsFiles)

# What brings the animation to a step of which a picture is wanted, and shows the panel of such a
# state (scripts/screenshots), and what shows such a dialog (scripts/dialog-screenshots).
add_executable(StepForPicture ${E2E_PICTURE_SOURCES})
add_executable(DialogForPicture ${AMBRIO_RESOURCES} ${E2E_DIALOG_PICTURE_SOURCES})
target_link_libraries(DialogForPicture PRIVATE ambrio_config)
add_executable(PanelForPicture ${AMBRIO_RESOURCES} ${E2E_PANEL_PICTURE_SOURCES})
target_link_libraries(PanelForPicture PRIVATE ambrio_saver)

foreach(program StandInSaver StandInPassword StandInSystem StandInFiles StepForPicture
                DialogForPicture PanelForPicture)
  target_link_libraries(${program} PRIVATE ambrio_test_settings)
  ambrio_use_precompiled(${program} windows_tests)
endforeach()
foreach(program StandInSaver StepForPicture DialogForPicture PanelForPicture)
  target_link_options(${program} PRIVATE -municode)
endforeach()
