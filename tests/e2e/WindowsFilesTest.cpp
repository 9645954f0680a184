// What the tests of attributes rely on: that calls on files are answered as Windows answers them.
// On Windows that is the system itself, under Wine a module that the test loads.

#include <gtest/gtest.h>

#include <vector>

#include "platform/win32/files/RenameOpenFile.h"
#include "platform/win32/system/Handle.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/RunningProgram.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

constexpr DWORD kAll = kArchive | kReadOnly | kHidden | kSystem;

// A folder with two files, "file" and "other".
class WindowsFilesTest : public testing::Test {
  protected:
    WindowsFilesTest() {
        static_cast<void>(LoadWindowsFiles());
        MakeFolders(folder_);
        WriteFileBytes(file_, "file");
        WriteFileBytes(other_, "other");
    }
    ~WindowsFilesTest() override { RemoveTree(folder_); }

    const std::wstring folder_ =
        TemporaryFolder() + L"\\AmbrioWindowsFiles" + std::to_wstring(GetCurrentProcessId());
    const std::wstring file_ = folder_ + L"\\file";
    const std::wstring other_ = folder_ + L"\\other";
};

// Every way to ask for the attributes of a file.
std::vector<DWORD> AllAnswers(const std::wstring& path) {
    std::vector<DWORD> answers{GetFileAttributesW(path.c_str())};
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    answers.push_back(data.dwFileAttributes);
    BY_HANDLE_FILE_INFORMATION information{};
    GetFileInformationByHandle(
        OpenFile(path, FILE_READ_ATTRIBUTES, FILE_SHARE_READ, OPEN_EXISTING).get(), &information);
    answers.push_back(information.dwFileAttributes);
    WIN32_FIND_DATAW found{};
    FindClose(FindFirstFileW(path.c_str(), &found));
    answers.push_back(found.dwFileAttributes);
    FindClose(
        FindFirstFileExW(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
    answers.push_back(found.dwFileAttributes);
    const std::size_t name = path.find_last_of(L'\\') + 1;
    const UniqueFindHandle search(FindFirstFileW((path.substr(0, name) + L"*").c_str(), &found));
    while (found.cFileName != path.substr(name) && FindNextFileW(search.get(), &found) != 0) {
    }
    answers.push_back(found.dwFileAttributes);
    for (DWORD& answer : answers) {
        answer &= kAll;
    }
    return answers;
}

TEST_F(WindowsFilesTest, EveryCallTellsEveryMixtureOfAttributes) {
    for (DWORD archive = 0; archive <= kArchive; archive += kArchive) {
        for (DWORD others = 0; others < 8; ++others) {  // read-only, hidden and system
            SetFileAttributesOf(file_, archive | others);
            EXPECT_EQ(AllAnswers(file_), std::vector<DWORD>(6, archive | others));
            EXPECT_EQ(AllAnswers(other_), std::vector<DWORD>(6, kArchive));
        }
    }
}

TEST_F(WindowsFilesTest, ANewFileUnderTheNameOfAClearedOneHasItsBit) {
    for (int round = 0; round < 5; ++round) {
        WriteFileBytes(file_, "same size");
        SetModificationTime(file_, 132'000'000'000'000'000);
        EXPECT_EQ(FileAttributesOf(file_), kArchive);
        SetFileAttributesOf(file_, 0);
        EXPECT_EQ(FileAttributesOf(file_), 0U);
        DeleteFileW(file_.c_str());
    }
}

TEST_F(WindowsFilesTest, AWriteByAnyProgramSetsTheBit) {
    SetFileAttributesOf(file_, kHidden);
    const RunningProgram shell(SystemFolder() + L"\\cmd.exe", L"/C echo more>>\"" + file_ + L"\"");
    ASSERT_TRUE(shell.WaitForEnd());
    EXPECT_EQ(ReadFileBytes(file_), "filemore\r\n");
    EXPECT_EQ(FileAttributesOf(file_), kHidden | kArchive);
}

using Call = BOOL (*)(const wchar_t* file, const wchar_t* other);

// A call on "file" and "other", where "file" is what is copied, renamed or opened to, with the
// attributes that both have before and "file" has afterwards.
struct CallCase {
    const char* Name;
    DWORD Before;
    DWORD OtherBefore;
    Call Make;
    DWORD Error;  // 0 for success
    DWORD After;
};

BOOL Opens(const wchar_t* path, DWORD access, DWORD disposition, DWORD flags = 0) {
    return MakeHandle<ambrio::UniqueHandle>(
               CreateFileW(path, access, FILE_SHARE_READ, nullptr, disposition, flags, nullptr))
               ? TRUE
               : FALSE;
}

BOOL Writes(const wchar_t* file, const wchar_t*) {
    DWORD written = 0;
    return WriteFile(OpenFile(file, GENERIC_WRITE, 0, OPEN_EXISTING).get(), "x", 1, &written,
                     nullptr);
}

BOOL WritesAndRestoresTheTime(const wchar_t* file, const wchar_t*) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(file, GetFileExInfoStandard, &data);
    const auto handle = OpenFile(file, GENERIC_WRITE, 0, OPEN_EXISTING);
    DWORD written = 0;
    return WriteFile(handle.get(), "f", 1, &written, nullptr) != 0 &&
                   SetFileTime(handle.get(), nullptr, nullptr, &data.ftLastWriteTime) != 0
               ? TRUE
               : FALSE;
}

BOOL CutsOff(const wchar_t* file, const wchar_t*) {
    return SetEndOfFile(OpenFile(file, GENERIC_WRITE, 0, OPEN_EXISTING).get());
}

BOOL SetsTheTime(const wchar_t* file, const wchar_t*) {
    SetModificationTime(file, 132'000'000'000'000'000);
    return TRUE;
}

BOOL Copies(const wchar_t* file, const wchar_t* other) {
    return CopyFileW(other, file, FALSE);
}

BOOL CopiesToAFreeName(const wchar_t* file, const wchar_t* other) {
    return DeleteFileW(file) != 0
               ? CopyFileExW(other, file, nullptr, nullptr, nullptr, COPY_FILE_FAIL_IF_EXISTS)
               : FALSE;
}

BOOL Renames(const wchar_t* file, const wchar_t* other) {
    return MoveFileExW(other, file, MOVEFILE_REPLACE_EXISTING);
}

BOOL RenamesWhatIsOpen(const wchar_t* file, const wchar_t* other, bool overwrite) {
    const auto open = OpenFile(other, DELETE, FILE_SHARE_READ, OPEN_EXISTING);
    const DWORD code = RenameOpenFile(open.get(), L"\\\\?\\" + std::wstring(file), overwrite);
    SetLastError(code);
    return code == ERROR_SUCCESS ? TRUE : FALSE;
}

BOOL RenamesOpenFile(const wchar_t* file, const wchar_t* other) {
    return RenamesWhatIsOpen(file, other, true);
}

BOOL Replaces(const wchar_t* file, const wchar_t*) {
    return Opens(file, GENERIC_WRITE, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
}

const CallCase kCalls[] = {
    {"WritingSetsTheBit", kHidden, 0, &Writes, 0, kHidden | kArchive},
    {"WritingUnderTheOldTimeSetsTheBit", 0, 0, &WritesAndRestoresTheTime, 0, kArchive},
    {"CuttingOffSetsTheBit", 0, 0, &CutsOff, 0, kArchive},
    {"ReplacingTheContentSetsTheBit", 0, 0, &Replaces, 0, kArchive},
    {"SettingTheTimeLeavesTheAttributes", kHidden | kSystem, 0, &SetsTheTime, 0, kHidden | kSystem},
    {"OpeningLeavesTheBit", 0, 0,
     [](const wchar_t* file, const wchar_t*) { return Opens(file, GENERIC_WRITE, OPEN_ALWAYS); }, 0,
     0},
    {"ACopyHasTheBit", kArchive, 0, &CopiesToAFreeName, 0, kArchive},
    {"ACopyHasTheAttributesOfItsSource", kArchive, kAll, &CopiesToAFreeName, 0, kAll},
    {"ACopyHasTheAttributesAndTheBit", kArchive, kReadOnly | kSystem, &CopiesToAFreeName, 0,
     kReadOnly | kSystem | kArchive},
    {"ACopyOverAFileHasTheBit", 0, 0, &Copies, 0, kArchive},
    {"ACopyOverAReadOnlyFileIsRefused", kReadOnly, 0, &Copies, ERROR_ACCESS_DENIED, kReadOnly},
    {"ACopyOverAHiddenFileIsRefused", kHidden, 0, &Copies, ERROR_ACCESS_DENIED, kHidden},
    {"ACopyThatMustNotReplaceIsRefused", kReadOnly, 0,
     [](const wchar_t* file, const wchar_t* other) { return CopyFileW(other, file, TRUE); },
     ERROR_FILE_EXISTS, kReadOnly},
    {"RenamingOverAReadOnlyFileIsRefused", kReadOnly | kArchive, kArchive, &Renames,
     ERROR_ACCESS_DENIED, kReadOnly | kArchive},
    {"RenamingOverAHiddenSystemFileGoes", kHidden | kSystem, kArchive, &Renames, 0, kArchive},
    {"RenamingAReadOnlyFileGoes", 0, kAll, &Renames, 0, kAll},
    {"RenamingWithoutReplacingIsRefused", 0, kArchive,
     [](const wchar_t* file, const wchar_t* other) { return MoveFileExW(other, file, 0); },
     ERROR_ALREADY_EXISTS, 0},
    {"RenamingAnOpenFileOverAReadOnlyOneIsRefused", kReadOnly | kArchive, kArchive,
     &RenamesOpenFile, ERROR_ACCESS_DENIED, kReadOnly | kArchive},
    {"RenamingAnOpenFileOverAHiddenSystemFileGoes", kHidden | kSystem, kArchive, &RenamesOpenFile,
     0, kArchive},
    {"RenamingAnOpenReadOnlyFileGoes", 0, kAll, &RenamesOpenFile, 0, kAll},
    {"RenamingAnOpenFileWithoutReplacingIsRefused", 0, kArchive,
     [](const wchar_t* file, const wchar_t* other) {
         return RenamesWhatIsOpen(file, other, false);
     },
     ERROR_ALREADY_EXISTS, 0},
    {"RemovingAReadOnlyFileIsRefused", kReadOnly, 0,
     [](const wchar_t* file, const wchar_t*) { return DeleteFileW(file); }, ERROR_ACCESS_DENIED,
     kReadOnly},
    {"ReplacingTheContentOfAReadOnlyFileIsRefused", kReadOnly, 0, &Replaces, ERROR_ACCESS_DENIED,
     kReadOnly},
    {"ReplacingTheContentOfAHiddenFileIsRefused", kHidden, 0, &Replaces, ERROR_ACCESS_DENIED,
     kHidden},
    {"ReplacingTheContentOfASystemFileIsRefused", kSystem, 0, &Replaces, ERROR_ACCESS_DENIED,
     kSystem},
    {"ReplacingTheContentOfAFileKnownToBeHiddenGoes", kHidden, 0,
     [](const wchar_t* file, const wchar_t*) {
         return Opens(file, GENERIC_WRITE, CREATE_ALWAYS, FILE_ATTRIBUTE_HIDDEN);
     },
     0, kHidden | kArchive},
    {"WritingToAReadOnlyFileIsRefused", kReadOnly, 0,
     [](const wchar_t* file, const wchar_t*) {
         return Opens(file, FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS);
     },
     ERROR_ACCESS_DENIED, kReadOnly},
    {"ReadingAReadOnlyFileGoes", kReadOnly, 0,
     [](const wchar_t* file, const wchar_t*) { return Opens(file, GENERIC_READ, OPEN_EXISTING); },
     0, kReadOnly},
};

class CallTest : public WindowsFilesTest, public testing::WithParamInterface<CallCase> {};

TEST_P(CallTest, IsAnsweredAsOnWindows) {
    const CallCase& call = GetParam();
    SetFileAttributesOf(file_, call.Before);
    SetFileAttributesOf(other_, call.OtherBefore);
    const DWORD error = call.Make(file_.c_str(), other_.c_str()) != FALSE ? 0 : GetLastError();
    EXPECT_EQ(error, call.Error);
    EXPECT_EQ(FileAttributesOf(file_), call.After);
    if (error != 0) {
        EXPECT_EQ(ReadFileBytes(file_), "file");
    }
    if (FileExists(other_)) {
        EXPECT_EQ(FileAttributesOf(other_), call.OtherBefore);
    }
}

INSTANTIATE_TEST_SUITE_P(OfTheSystem, CallTest, testing::ValuesIn(kCalls), NameOf());

TEST_F(WindowsFilesTest, AHiddenSystemFileCanBeRemoved) {
    SetFileAttributesOf(file_, kHidden | kSystem);
    EXPECT_NE(DeleteFileW(file_.c_str()), 0);
    EXPECT_FALSE(FileExists(file_));
}

}  // namespace
}  // namespace ambrio::e2e
