# The one list of source files. A .cpp below a room that is not named here stops the build.
# One file a line, in alphabetical order.

# platform/: what every build has, then what only one of the two worlds has.
set(PLATFORM_SOURCES
    platform/BooleanText.cpp
    platform/DateTime.cpp
    platform/FileSystem.cpp
    platform/ForwardingFileSystem.cpp
    platform/ProgramQuotes.cpp
    platform/RegistryValue.cpp
    platform/Rounding.cpp
    platform/RuntimeError.cpp
    platform/TemporaryName.cpp
    platform/Trim.cpp
    platform/Val.cpp
)

set(PLATFORM_HOST_SOURCES
    platform/TextConversionHost.cpp
)

set(PLATFORM_WIN32_SOURCES
    platform/win32/BackBuffer.cpp
    platform/win32/CheckBoxTheme.cpp
    platform/win32/CheckListBox.cpp
    platform/win32/CommonControls.cpp
    platform/win32/ControlSubclass.cpp
    platform/win32/CopyWithYield.cpp
    platform/win32/CrashSafeCopy.cpp
    platform/win32/Dialog.cpp
    platform/win32/DialogTemplate.cpp
    platform/win32/Drives.cpp
    platform/win32/ExtendedPath.cpp
    platform/win32/FileEntryData.cpp
    platform/win32/FileIdentity.cpp
    platform/win32/FolderIcons.cpp
    platform/win32/FullPath.cpp
    platform/win32/ListDrawing.cpp
    platform/win32/MessageLoop.cpp
    platform/win32/ProcessHardening.cpp
    platform/win32/ReadRegistryValue.cpp
    platform/win32/RegistrySettingsStore.cpp
    platform/win32/ResourceText.cpp
    platform/win32/RuntimeErrorBox.cpp
    platform/win32/ScreenTwips.cpp
    platform/win32/StartProgram.cpp
    platform/win32/StayAwake.cpp
    platform/win32/SystemFolders.cpp
    platform/win32/SystemLibrary.cpp
    platform/win32/TextConversionWin32.cpp
    platform/win32/Tooltips.cpp
    platform/win32/Win32Clock.cpp
    platform/win32/Win32Error.cpp
    platform/win32/Win32FileSystem.cpp
    platform/win32/Win32FolderReader.cpp
    platform/win32/Win32TextStream.cpp
    platform/win32/Window.cpp
)

set(SETTINGS_SOURCES
    settings/BackupSet.cpp
    settings/GeneralOptions.cpp
    settings/SetList.cpp
)

set(ENGINE_SOURCES
    engine/CopyRules.cpp
    engine/DestinationFolder.cpp
    engine/DestinationListing.cpp
    engine/FileCopier.cpp
    engine/FolderGuard.cpp
    engine/FolderWalk.cpp
    engine/LeftoverSweep.cpp
    engine/LogPath.cpp
    engine/RunDriver.cpp
    engine/RunLog.cpp
    engine/RunSummary.cpp
    engine/SecondarySaver.cpp
    engine/SetLoop.cpp
    engine/SourceListing.cpp
)

# saver/animation/, saver/model/, config/model/ and app/model/: logic that knows no window and
# compiles natively too.
set(SAVER_ANIMATION_SOURCES
    saver/animation/ColourFamily.cpp
    saver/animation/ColourWalk.cpp
    saver/animation/Contrast.cpp
    saver/animation/FrameAnimation.cpp
    saver/animation/FrameMotion.cpp
    saver/animation/LightBuffer.cpp
    saver/animation/LineSet.cpp
    saver/animation/Random.cpp
    saver/animation/StringFigure.cpp
    saver/animation/StringFigures.cpp
    saver/animation/WindingDown.cpp
)

set(SAVER_MODEL_SOURCES
    saver/model/DesktopSettings.cpp
    saver/model/Ellipsis.cpp
    saver/model/InputRules.cpp
)

set(SAVER_WIN32_SOURCES
    saver/CopyFrame.cpp
    saver/FormLoad.cpp
    saver/FormRunHost.cpp
    saver/FormTimer.cpp
    saver/FormUnload.cpp
    saver/LineCanvas.cpp
    saver/PanelFrame.cpp
    saver/PanelLabelWindow.cpp
    saver/PanelPainter.cpp
    saver/Pointer.cpp
    saver/StatusPanelView.cpp
    saver/Windows9x.cpp
    saver/frmScreenSaver.cpp
)

set(CONFIG_MODEL_SOURCES
    config/model/CentreForm.cpp
    config/model/CopyRules.cpp
    config/model/DialogOptions.cpp
    config/model/DialogTexts.cpp
    config/model/DirectoryTree.cpp
    config/model/DriveText.cpp
    config/model/RegistryText.cpp
    config/model/SecondarySavers.cpp
    config/model/SetListModel.cpp
    config/model/SetProperties.cpp
)

set(CONFIG_WIN32_SOURCES
    config/ConfigurationMode.cpp
    config/DirectoryListBox.cpp
    config/Form.cpp
    config/SystemInformation.cpp
    config/WebLink.cpp
    config/frmAbout.cpp
    config/frmBrowse.cpp
    config/frmConfiguration.cpp
    config/frmIncludeExclude.cpp
    config/frmProperties.cpp
)

set(APP_MODEL_SOURCES
    app/model/CommandSwitch.cpp
    app/model/ModeDispatch.cpp
    app/model/PreviewCaption.cpp
)

set(APP_WIN32_SOURCES
    app/Main.cpp
    app/PasswordChange.cpp
    app/PreviewFrame.cpp
    app/PreviewPicture.cpp
    app/WinMain.cpp
    app/frmControl.cpp
)

# tests/: the doubles, then the tests by the program they end up in.
set(TEST_SUPPORT_SOURCES
    tests/support/CountingFileSystem.cpp
    tests/support/EngineBench.cpp
    tests/support/FailingFileSystem.cpp
    tests/support/MemoryFileSystem.cpp
    tests/support/MemoryFileSystemSetup.cpp
    tests/support/MemoryHandles.cpp
    tests/support/MemoryNode.cpp
    tests/support/MemoryPath.cpp
    tests/support/NameFolding.cpp
    tests/support/ObservedFileSystem.cpp
    tests/support/TestCodePage.cpp
)

set(UNIT_TEST_SOURCES
    tests/faults/FaultExpectation.cpp
    tests/faults/FaultMatrixTest.cpp
    tests/faults/FaultScene.cpp
    tests/faults/FaultStage.cpp
    tests/faults/RunFaultTest.cpp
    tests/unit/BackupSetTest.cpp
    tests/unit/BigFolderTest.cpp
    tests/unit/CentreFormTest.cpp
    tests/unit/ColourWalkTest.cpp
    tests/unit/CommandSwitchTest.cpp
    tests/unit/ContrastTest.cpp
    tests/unit/CopyRuleTableTest.cpp
    tests/unit/CopyRulesTest.cpp
    tests/unit/DateTimeTest.cpp
    tests/unit/DesktopSettingsTest.cpp
    tests/unit/DestinationFolderTest.cpp
    tests/unit/DialogOptionsTest.cpp
    tests/unit/DialogTextsTest.cpp
    tests/unit/DirectoryTreeTest.cpp
    tests/unit/EllipsisTest.cpp
    tests/unit/FileCopierTest.cpp
    tests/unit/FileSystemDoublesTest.cpp
    tests/unit/FileHazardTest.cpp
    tests/unit/FolderGuardTest.cpp
    tests/unit/FolderHazardTest.cpp
    tests/unit/FolderWalkTest.cpp
    tests/unit/FrameAnimationTest.cpp
    tests/unit/FrameMotionTest.cpp
    tests/unit/GeneralOptionsTest.cpp
    tests/unit/InputRulesTest.cpp
    tests/unit/LightBufferTest.cpp
    tests/unit/MemoryFileSystemTest.cpp
    tests/unit/ModeDispatchTest.cpp
    tests/unit/NameHazardTest.cpp
    tests/unit/PreviewCaptionTest.cpp
    tests/unit/ProgramQuotesTest.cpp
    tests/unit/RegistryTextTest.cpp
    tests/unit/RegistryValueTest.cpp
    tests/unit/RoundingTest.cpp
    tests/unit/RunDriverTest.cpp
    tests/unit/RunLogTest.cpp
    tests/unit/SecondarySaversTest.cpp
    tests/unit/SetListModelTest.cpp
    tests/unit/SetListTest.cpp
    tests/unit/SetLoopTest.cpp
    tests/unit/SetPropertiesTest.cpp
    tests/unit/StringFiguresTest.cpp
    tests/unit/TemporaryNameTest.cpp
    tests/unit/TextConversionTest.cpp
    tests/unit/ValTest.cpp
    tests/unit/WindingDownTest.cpp
)

# The fuzzers; what they share, and the tests that feed them their seeds.
set(FUZZ_SOURCES
    tests/fuzz/CommandLineFuzzer.cpp
    tests/fuzz/CopyModel.cpp
    tests/fuzz/DestinationFolderFuzzer.cpp
    tests/fuzz/FuzzInput.cpp
    tests/fuzz/RunFuzzer.cpp
    tests/fuzz/SetListFuzzer.cpp
    tests/fuzz/TextConversionFuzzer.cpp
)

set(FUZZ_PROGRAM_SOURCES
    tests/fuzz/FuzzMain.cpp
)

set(UNIT_TEST_HOST_SOURCES
    tests/fuzz/SeedsTest.cpp
)

set(UNIT_TEST_WIN32_SOURCES
    tests/unit/BackBufferTest.cpp
    tests/unit/CheckListBoxTest.cpp
    tests/unit/ExtendedPathTest.cpp
    tests/unit/FormTabOrderTest.cpp
    tests/unit/FormTextsTest.cpp
    tests/unit/FormTimerTest.cpp
    tests/unit/PointerTest.cpp
    tests/unit/RegistrySettingsStoreTest.cpp
    tests/unit/StatusPanelViewTest.cpp
    tests/unit/SystemInformationTest.cpp
    tests/unit/SystemLibraryTest.cpp
    tests/unit/SystemServicesTest.cpp
    tests/unit/Win32ClockTest.cpp
    tests/unit/WindowTest.cpp
    tests/unit/frmBrowseTest.cpp
    tests/unit/frmConfigurationTest.cpp
    tests/unit/frmPropertiesTest.cpp
)

# One suite for every FileSystem, built into the unit tests.
set(CONFORMANCE_TEST_SOURCES
    tests/conformance/CopyConformance.cpp
    tests/conformance/FileConformance.cpp
    tests/conformance/FileSystemConformance.cpp
    tests/conformance/FileSystemWorlds.cpp
    tests/conformance/FolderConformance.cpp
    tests/conformance/LogConformance.cpp
    tests/conformance/MemoryWorld.cpp
    tests/conformance/NameConformance.cpp
)

set(CONFORMANCE_TEST_WIN32_SOURCES
    tests/conformance/win32/Junction.cpp
    tests/conformance/win32/Win32World.cpp
    tests/support/win32/WindowsFiles.cpp
)

# The end-to-end tests: what drives the real program from outside, then the tests.
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
    tests/e2e/RunTest.cpp
    tests/e2e/ReadOnlyTest.cpp
    tests/e2e/SecondInstanceTest.cpp
    tests/e2e/SecondarySaverTest.cpp
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

# The module that makes a process under Wine see files as Windows shows them.
set(WINDOWS_FILES_SOURCES
    tests/windowsfiles/Changing.cpp
    tests/windowsfiles/ClearedBits.cpp
    tests/windowsfiles/FileFacts.cpp
    tests/windowsfiles/ImportTable.cpp
    tests/windowsfiles/Looking.cpp
    tests/windowsfiles/WindowsFiles.cpp
)

set(E2E_STANDIN_PASSWORD_SOURCES
    tests/e2e/standin/StandInPassword.cpp
)
