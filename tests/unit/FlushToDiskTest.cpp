// When a copy is flushed to the disk, and what a flush that fails leads to.

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "platform/TemporaryName.h"
#include "platform/win32/NativeHeaders.h"
#include "platform/win32/files/FlushToDisk.h"
#include "platform/win32/system/Handle.h"
#include "tests/conformance/win32/Win32World.h"
#include "tests/support/RuntimeErrorOf.h"
#include "tests/support/win32/ReplacedImport.h"
#include "tests/support/win32/SystemFunction.h"

namespace ambrio {
namespace {

using Events = std::vector<std::wstring>;

std::wstring PathOf(HANDLE file) {
    std::array<wchar_t, 1024> path{};
    GetFinalPathNameByHandleW(file, path.data(), static_cast<DWORD>(path.size()), 0);
    return path.data();
}

std::wstring NameIn(const std::wstring& path) {
    return path.substr(path.rfind(L'\\') + 1);
}

// Notes flushes and renames of the program in their order.
class FlushToDiskTest : public testing::Test {
  protected:
    FlushToDiskTest() {
        current_ = this;
        World.Write(Source, "new");
        World.Files().CreateFolder(World.Root() + L"\\to");
        World.Write(Copy, "old");
    }
    ~FlushToDiskTest() override { current_ = nullptr; }
    FlushToDiskTest(const FlushToDiskTest&) = delete;
    FlushToDiskTest& operator=(const FlushToDiskTest&) = delete;

    std::optional<ErrorNumber> Copying() {
        return RuntimeErrorOf([this] { World.Files().CopyFile(Source, Copy, true, {}); });
    }
    // The temporary's name is replaced by "temporary".
    static std::wstring Shown(const std::wstring& path) {
        const std::wstring name = NameIn(path);
        return IsTemporaryName(name) ? L"temporary" : name;
    }
    [[nodiscard]] std::size_t FilesInDestination() {
        std::size_t count = 0;
        FileEntry entry;
        for (const auto reader = World.Files().GetFolder(World.Root() + L"\\to");
             reader->Next(entry);) {
            ++count;
        }
        return count;
    }

    Win32World World;
    const std::wstring Source = World.Root() + L"\\file";
    const std::wstring Copy = World.Root() + L"\\to\\copy";
    Events Seen;
    DWORD FailFlushWith = 0;
    UINT DriveType = DRIVE_FIXED;
    NTSTATUS OpenRenameAnswers = 0;  // 0 for what the system answers
    // What the flush of newer systems answers; nothing where there is none.
    std::optional<LONG> NewFlushAnswers;

  private:
    static BOOL WINAPI Flush(HANDLE file) {
        current_->Seen.push_back(L"flush " + Shown(PathOf(file)));
        if (current_->FailFlushWith != 0) {
            SetLastError(current_->FailFlushWith);
            return FALSE;
        }
        return SystemFunction(&FlushFileBuffers, "FlushFileBuffers")(file);
    }
    static BOOL WINAPI Move(LPCWSTR from, LPCWSTR to, DWORD flags) {
        current_->Seen.push_back(L"rename " + Shown(from) + L" to " + Shown(to));
        return SystemFunction(&MoveFileExW, "MoveFileExW")(from, to, flags);
    }
    static NTSTATUS NTAPI SetInformation(HANDLE file, PIO_STATUS_BLOCK result, PVOID data,
                                         ULONG size, FILE_INFORMATION_CLASS what) {
        constexpr int kRename = 10;
        if (static_cast<int>(what) == kRename) {
            const auto& rename = *static_cast<const FILE_RENAME_INFORMATION*>(data);
            const std::wstring to(&rename.FileName[0], rename.FileNameLength / sizeof(wchar_t));
            current_->Seen.push_back(L"rename open " + Shown(PathOf(file)) + L" to " + Shown(to));
        }
        return current_->OpenRenameAnswers != 0
                   ? current_->OpenRenameAnswers
                   : SystemFunction(&NtSetInformationFile, "NtSetInformationFile", L"ntdll.dll")(
                         file, result, data, size, what);
    }
    static LONG NTAPI NewFlush(HANDLE file, ULONG flags, PVOID, ULONG, PVOID) {
        current_->Seen.push_back(L"flush data of " + Shown(PathOf(file)) + L", flags " +
                                 std::to_wstring(flags));
        return *current_->NewFlushAnswers;
    }
    static FARPROC WINAPI AddressOf(HMODULE library, LPCSTR name) {
        if (std::strcmp(name, "NtFlushBuffersFileEx") != 0) {
            return getProcAddress_(library, name);
        }
        return current_->NewFlushAnswers
                   ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&NewFlush))
                   : nullptr;
    }
    static UINT WINAPI TypeOf(LPCWSTR) { return current_->DriveType; }

    static inline FlushToDiskTest* current_ = nullptr;
    // Asked of itself, before its import leads elsewhere.
    static inline const auto getProcAddress_ = SystemFunction(&GetProcAddress, "GetProcAddress");
    ReplacedImport flush_{L"kernel32.dll", "FlushFileBuffers", reinterpret_cast<void*>(&Flush)};
    ReplacedImport setInformation_{L"ntdll.dll", "NtSetInformationFile",
                                   reinterpret_cast<void*>(&SetInformation)};
    ReplacedImport move_{L"kernel32.dll", "MoveFileExW", reinterpret_cast<void*>(&Move)};
    ReplacedImport address_{L"kernel32.dll", "GetProcAddress", reinterpret_cast<void*>(&AddressOf)};
    ReplacedImport type_{L"kernel32.dll", "GetDriveTypeW", reinterpret_cast<void*>(&TypeOf)};
};

const Events kFlushedAndRenamed{L"flush temporary", L"rename open temporary to copy"};

TEST_F(FlushToDiskTest, ACopyIsFlushedBeforeItGetsItsName) {
    EXPECT_EQ(Copying(), std::nullopt);
    EXPECT_EQ(Seen, kFlushedAndRenamed);
    EXPECT_EQ(World.Read(Copy), "new");
}

TEST_F(FlushToDiskTest, AFileSystemThatRenamesNothingOpenIsAskedByName) {
    OpenRenameAnswers = static_cast<NTSTATUS>(0xC000000D);
    EXPECT_EQ(Copying(), std::nullopt);
    EXPECT_EQ(Seen, (Events{L"flush temporary", L"rename open temporary to copy",
                            L"rename temporary to copy"}));
    EXPECT_EQ(World.Read(Copy), "new");
    EXPECT_EQ(FilesInDestination(), 1U);
}

TEST_F(FlushToDiskTest, ACopyMadeAheadIsFlushedWhenItIsMade) {
    const auto copy = World.Files().PrepareCopy({Source, Copy, 3}, [] { return true; });
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(Seen, Events{L"flush temporary"});
    EXPECT_TRUE(copy->Finish(true));
    EXPECT_EQ(Seen, (Events{L"flush temporary", L"rename temporary to copy"}));
    EXPECT_EQ(World.Read(Copy), "new");
}

TEST_F(FlushToDiskTest, ACopyMadeAheadThatCannotBeFlushedIsNone) {
    FailFlushWith = ERROR_DISK_FULL;
    EXPECT_EQ(World.Files().PrepareCopy({Source, Copy, 3}, [] { return true; }), nullptr);
    EXPECT_EQ(World.Read(Copy), "old");
    EXPECT_EQ(FilesInDestination(), 1U);
}

TEST_F(FlushToDiskTest, ALargeOneIsToo) {
    World.Write(Source, std::string(3U << 20U, 'x'));
    int yields = 0;
    World.Files().CopyFile(Source, Copy, true, [&] { ++yields; });
    EXPECT_EQ(Seen, kFlushedAndRenamed);
    EXPECT_GE(yields, 2) << "the form answers while it is copied and while it is flushed";
}

TEST_F(FlushToDiskTest, AReadOnlyOneIsTooAndStaysReadOnly) {
    constexpr FileAttributes kThree = kAttributeReadOnly | kAttributeHidden | kAttributeSystem;
    World.Files().SetAttributes(Source, kThree);
    EXPECT_EQ(Copying(), std::nullopt);
    EXPECT_EQ(Seen, kFlushedAndRenamed);
    EXPECT_EQ(World.Files().GetFile(Copy).Attributes & kThree, kThree);
    EXPECT_EQ(World.Files().GetFile(Copy).DateLastModified,
              World.Files().GetFile(Source).DateLastModified);
    World.Files().SetAttributes(Source, 0);
    World.Files().SetAttributes(Copy, 0);
}

TEST_F(FlushToDiskTest, NewerSystemsFlushTheDataAlone) {
    NewFlushAnswers = 0;
    EXPECT_EQ(Copying(), std::nullopt);
    EXPECT_EQ(Seen,
              (Events{L"flush data of temporary, flags 4", L"rename open temporary to copy"}));
}

TEST_F(FlushToDiskTest, AFileSystemThatCannotFlushDataAloneFlushesAll) {
    for (const ULONG status : {0xC000000DU, 0xC0000010U, 0xC00000BBU, 0xC0000002U}) {
        Seen.clear();
        NewFlushAnswers = static_cast<LONG>(status);
        EXPECT_EQ(Copying(), std::nullopt);
        EXPECT_EQ(Seen, (Events{L"flush data of temporary, flags 4", L"flush temporary",
                                L"rename open temporary to copy"}));
    }
}

TEST_F(FlushToDiskTest, AFlushOfTheDataThatFailsIsNotTriedInAnotherWay) {
    NewFlushAnswers = static_cast<LONG>(0xC000007F);  // the disk is full
    EXPECT_EQ(Copying(), ErrorNumber::DiskFull);
    EXPECT_EQ(Seen, Events{L"flush data of temporary, flags 4"});
    EXPECT_EQ(World.Read(Copy), "old");
    EXPECT_EQ(FilesInDestination(), 1U);
}

TEST_F(FlushToDiskTest, OnARemovableDriveToo) {
    DriveType = DRIVE_REMOVABLE;
    EXPECT_EQ(Copying(), std::nullopt);
    EXPECT_EQ(Seen, kFlushedAndRenamed);
}

TEST_F(FlushToDiskTest, AServerIsLeftToItself) {
    DriveType = DRIVE_REMOTE;
    EXPECT_EQ(Copying(), std::nullopt);
    World.Files().OpenForAppending(World.Root() + L"\\log")->Flush();
    EXPECT_EQ(Seen, Events{L"rename temporary to copy"});
    FlushedDrives drives;
    EXPECT_FALSE(drives.Hold(L"\\\\?\\UNC\\server\\share\\file"));
}

TEST_F(FlushToDiskTest, AFlushThatFailsIsACopyThatFailed) {
    FailFlushWith = ERROR_DISK_FULL;
    EXPECT_EQ(Copying(), ErrorNumber::DiskFull);
    EXPECT_EQ(Seen, Events{L"flush temporary"});
    EXPECT_EQ(World.Read(Copy), "old");
    EXPECT_EQ(FilesInDestination(), 1U);
    FailFlushWith = ERROR_GEN_FAILURE;
    World.Write(Source, std::string(2U << 20U, 'x'));
    EXPECT_NE(Copying(), std::nullopt);
    EXPECT_EQ(World.Read(Copy), "old");
    EXPECT_EQ(FilesInDestination(), 1U);
}

TEST_F(FlushToDiskTest, AFileSystemThatKnowsNoFlushHoldsNothingBack) {
    for (const DWORD code : {ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED}) {
        FailFlushWith = code;
        EXPECT_EQ(Copying(), std::nullopt);
        EXPECT_EQ(World.Read(Copy), "new");
    }
}

TEST_F(FlushToDiskTest, TheLogIsFlushedWhereItLies) {
    const auto log = World.Files().OpenForAppending(World.Root() + L"\\log");
    log->WriteLine(L"line");
    EXPECT_EQ(Seen, Events{});
    log->Flush();
    EXPECT_EQ(Seen, Events{L"flush log"});
    FailFlushWith = ERROR_NOT_READY;
    EXPECT_EQ(RuntimeErrorOf([&] { log->Flush(); }), ErrorNumber::DiskNotReady);
}

// A drive is looked at once.
TEST_F(FlushToDiskTest, WhatADriveIsStaysKnown) {
    FlushedDrives drives;
    EXPECT_TRUE(drives.Hold(L"\\\\?\\q:\\folder\\file"));
    DriveType = DRIVE_REMOTE;
    EXPECT_TRUE(drives.Hold(L"\\\\?\\Q:\\other"));
    EXPECT_FALSE(drives.Hold(L"\\\\?\\R:\\other"));
    DriveType = DRIVE_NO_ROOT_DIR;
    EXPECT_FALSE(drives.Hold(L"\\\\?\\S:\\other"));
    DriveType = DRIVE_FIXED;
    EXPECT_TRUE(drives.Hold(L"\\\\?\\S:\\other")) << "it came later";
}

}  // namespace
}  // namespace ambrio
