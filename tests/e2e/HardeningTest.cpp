// What the built program does against those who would use it: read from the file, and seen in the
// running program.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/e2e/support/CurrentFolder.h"
#include "tests/e2e/support/ExecutableFile.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/RemoteCall.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemFile.h"

namespace ambrio::e2e {
namespace {

class HardeningTest : public SaverTest {
  protected:
    // Puts a library of the tests under each of these names beside the program and into a folder
    // that the program will have as its current one. What the libraries that are always there need
    // themselves is not among them, as it is loaded before the program's first instruction; nor is
    // msimg32, which Wine's own libraries load late and by a rule of their own.
    void PlantLibraries() {
        MakeFolders(current_.Path());
        Plant(Folder.Path());
        Plant(current_.Path());
        current_.Enter();
    }
    static void Plant(const std::wstring& folder) {
        for (const wchar_t* name : {L"uxtheme.dll", L"mpr.dll", L"winmm.dll", L"msvfw32.dll",
                                    L"dwmapi.dll", L"propsys.dll", L"hhctrl.ocx", L"cryptbase.dll",
                                    L"profapi.dll", L"password.cpl", L"netapi32.dll"}) {
            const std::wstring planted = folder + L"\\" + name;
            ASSERT_NE(0, CopyFileW((TestProgramFolder() + L"\\StandInPassword.dll").c_str(),
                                   planted.c_str(), FALSE));
        }
    }
    // The libraries that the program has loaded from elsewhere than the system's folders.
    std::vector<std::wstring> StrangeModules();

  private:
    CurrentFolder current_{Folder.Below(L"Current")};
};

std::wstring Lower(std::wstring text) {
    CharLowerW(text.data());
    return text;
}

std::vector<std::wstring> HardeningTest::StrangeModules() {
    const UniqueHandle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, Program().ProcessId()));
    std::vector<HMODULE> modules(1000);
    DWORD bytes = 0;
    EXPECT_NE(0, EnumProcessModulesEx(process.get(), modules.data(),
                                      static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &bytes,
                                      LIST_MODULES_ALL));
    modules.resize(bytes / sizeof(HMODULE));
    EXPECT_GT(modules.size(), 5U);
    const std::wstring windows = Lower(WindowsFolder()) + L"\\";
    std::vector<std::wstring> strange;
    for (HMODULE module : modules) {
        std::wstring path(32768, L'\0');
        path.resize(GetModuleFileNameExW(process.get(), module, path.data(),
                                         static_cast<DWORD>(path.size())));
        path = Lower(path);
        if (!path.starts_with(windows) && !path.ends_with(L"ambrio.scr")) {
            strange.push_back(path);
        }
    }
    return strange;
}

class HardenedFileTest : public testing::TestWithParam<const wchar_t*> {
  protected:
    void SetUp() override {
        if (!FileExists(Path)) {
            GTEST_SKIP() << "this program was not built";
        }
    }
    const std::wstring Path = TestProgramFolder() + L"\\" + GetParam();
};

TEST_P(HardenedFileTest, LiesAnywhereAndRunsNoData) {
    const ExecutableFile file(Path);
    const WORD wanted = static_cast<WORD>(
        IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT |
        (file.Is64Bit() ? IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA : 0));
    EXPECT_EQ(file.DllCharacteristics() & wanted, wanted);
    // Without relocations it could not be put anywhere else.
    EXPECT_EQ(file.Characteristics() & IMAGE_FILE_RELOCS_STRIPPED, 0);
}

TEST_P(HardenedFileTest, HasNoSectionThatCanBeWrittenAndRun) {
    const ExecutableFile file(Path);
    ASSERT_FALSE(file.Sections().empty());
    for (const ExecutableFile::Section& section : file.Sections()) {
        const bool isWritable = (section.Characteristics & IMAGE_SCN_MEM_WRITE) != 0;
        const bool isRunnable = (section.Characteristics & IMAGE_SCN_MEM_EXECUTE) != 0;
        EXPECT_FALSE(isWritable && isRunnable) << section.Name;
        EXPECT_EQ(section.Characteristics & IMAGE_SCN_MEM_SHARED, 0U) << section.Name;
    }
}

// Those that every system takes from its own folder, whatever lies beside the program.
TEST_P(HardenedFileTest, NeedsOnlyLibrariesThatNobodyCanReplace) {
    const std::vector<std::string> known = {"advapi32.dll", "gdi32.dll",   "kernel32.dll",
                                            "msvcrt.dll",   "ntdll.dll",   "ole32.dll",
                                            "oleaut32.dll", "shell32.dll", "user32.dll"};
    const ExecutableFile file(Path);
    EXPECT_GE(file.Imports().size(), 5U);
    for (const std::string& name : file.Imports()) {
        EXPECT_NE(std::find(known.begin(), known.end(), name), known.end()) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(OfBothSizes, HardenedFileTest,
                         testing::Values(L"Ambrio.scr", L"Ambrio64.scr"),
                         [](const auto& file) { return "File" + std::to_string(file.index); });

TEST_F(HardeningTest, ARunLoadsNothingThatLiesBesideTheProgramOrInTheCurrentFolder) {
    PlantLibraries();
    Source.AddFile(L"letter.txt", "Dear");
    WriteOneSet();
    RunToTheEnd();
    EXPECT_EQ(StrangeModules(), std::vector<std::wstring>{});
    EndByKey();
}

TEST_F(HardeningTest, TheDialogsLoadNothingThatLiesBesideTheProgramOrInTheCurrentFolder) {
    PlantLibraries();
    Start(L"/C");
    const WindowProbe dialog = WindowTitled(L"Ambrio Configuration");
    EXPECT_EQ(StrangeModules(), std::vector<std::wstring>{});
    PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Ends());
}

TEST_F(HardeningTest, ADriveThatIsNotReadyFailsWithoutABoxOfTheSystem) {
    Start(L"/C");
    const WindowProbe dialog = WindowTitled(L"Ambrio Configuration");
    const UniqueHandle process(OpenProcess(PROCESS_ALL_ACCESS, FALSE, Program().ProcessId()));
    // Setting the mode is how another process can be asked for it.
    constexpr UINT_PTR kQuiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;
    const DWORD mode = CallIn(process.get(), "SetErrorMode", reinterpret_cast<void*>(kQuiet));
    EXPECT_EQ(mode & kQuiet, kQuiet);
    EXPECT_EQ(mode & SEM_NOGPFAULTERRORBOX, 0U) << "a crash must still be told";
    PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Ends());
}

TEST_F(HardeningTest, NoProgramIsLookedForInTheCurrentFolder) {
    Start(L"/C");
    const WindowProbe dialog = WindowTitled(L"Ambrio Configuration");
    const UniqueHandle process(OpenProcess(PROCESS_ALL_ACCESS, FALSE, Program().ProcessId()));
    EXPECT_EQ(FALSE, static_cast<BOOL>(CallIn(process.get(), "NeedCurrentDirectoryForExePathW",
                                              WriteInto(process.get(), L"saver.scr"))));
    PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Ends());
}

}  // namespace
}  // namespace ambrio::e2e
