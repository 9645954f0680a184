# What drives the real program from outside, then the tests.
set(E2E_SUPPORT_SOURCES
    tests/e2e/support/DialogTest.cpp
    tests/e2e/support/Environment.cpp
    tests/e2e/support/ExecutableFile.cpp
    tests/e2e/support/Files.cpp
    tests/e2e/support/Handles.cpp
    tests/e2e/support/Holdings.cpp
    tests/e2e/support/Input.cpp
    tests/e2e/support/LogText.cpp
    tests/e2e/support/MappedDrive.cpp
    tests/e2e/support/MessageBoxProbe.cpp
    tests/e2e/support/ModuleLoader.cpp
    tests/e2e/support/PanelProbe.cpp
    tests/e2e/support/PreviewHost.cpp
    tests/e2e/support/ProgramFolder.cpp
    tests/e2e/support/ProgramTest.cpp
    tests/e2e/support/Registry.cpp
    tests/e2e/support/RuleTest.cpp
    tests/e2e/support/RunningProgram.cpp
    tests/e2e/support/SaverTest.cpp
    tests/e2e/support/SettingsFixture.cpp
    tests/e2e/support/SystemFile.cpp
    tests/e2e/support/TestTree.cpp
    tests/e2e/support/Text.cpp
    tests/e2e/support/Waiting.cpp
    tests/e2e/support/WindowProbe.cpp
    tests/support/win32/WindowsFiles.cpp
)

set(E2E_TEST_SOURCES
    tests/e2e/AboutTest.cpp
    tests/e2e/AnimationCostTest.cpp
    tests/e2e/ArchiveBitTest.cpp
    tests/e2e/BadSettingsTest.cpp
    tests/e2e/BrowseTest.cpp
    tests/e2e/CommandLineTest.cpp
    tests/e2e/ConfigurationTest.cpp
    tests/e2e/DifferentialTest.cpp
    tests/e2e/DiskFullTest.cpp
    tests/e2e/EnduranceTest.cpp
    tests/e2e/FailuresTest.cpp
    tests/e2e/HardeningTest.cpp
    tests/e2e/HazardTest.cpp
    tests/e2e/HelpTest.cpp
    tests/e2e/InterruptTest.cpp
    tests/e2e/KeyboardTest.cpp
    tests/e2e/KillTest.cpp
    tests/e2e/LogPlaceTest.cpp
    tests/e2e/OddNamesTest.cpp
    tests/e2e/PasswordTest.cpp
    tests/e2e/PreviewTest.cpp
    tests/e2e/PropertiesTest.cpp
    tests/e2e/ReadOnlyTest.cpp
    tests/e2e/RunTest.cpp
    tests/e2e/SecondarySaverTest.cpp
    tests/e2e/SecondInstanceTest.cpp
    tests/e2e/StayResponsiveTest.cpp
    tests/e2e/SupportTest.cpp
    tests/e2e/SystemToolTest.cpp
    tests/e2e/TwoProgramsTest.cpp
    tests/e2e/WebPageTest.cpp
    tests/e2e/WideNamesTest.cpp
    tests/e2e/WindowedModeTest.cpp
    tests/e2e/WindowsFilesTest.cpp
)

# Programs that stand in for what the real one meets on a user's machine.
set(E2E_STANDIN_SAVER_SOURCES
    tests/e2e/standin/StandInSaver.cpp
)

set(E2E_STANDIN_PASSWORD_SOURCES
    tests/e2e/standin/StandInPassword.cpp
)

# What brings the program to a state of which a picture is wanted.
set(E2E_PICTURE_SOURCES
    tests/e2e/pictures/StepForPicture.cpp
    tests/e2e/support/Handles.cpp
    tests/e2e/support/ModuleLoader.cpp
    tests/e2e/support/RunningProgram.cpp
    tests/e2e/support/Waiting.cpp
)

set(E2E_DIALOG_PICTURE_SOURCES
    tests/e2e/pictures/DialogForPicture.cpp
)
