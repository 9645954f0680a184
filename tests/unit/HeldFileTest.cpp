#include <gtest/gtest.h>

#include <vector>

#include "platform/TemporaryName.h"
#include "platform/win32/system/Handle.h"
#include "tests/conformance/win32/Win32World.h"
#include "tests/support/RuntimeErrorOf.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

// A copy whose temporary another program, such as a virus scanner, opens when it has just been
// made, on a disk of this machine, or is about to be renamed, on a server, without letting it be
// renamed or removed meanwhile. It lets go when so many waits have passed.
class HeldFileTest : public testing::Test {
  protected:
    HeldFileTest() {
        current_ = this;
        World.Write(Source, "new");
        World.Files().CreateFolder(World.Root() + L"\\to");
        World.Write(Copy, "old");
    }
    ~HeldFileTest() override { current_ = nullptr; }
    HeldFileTest(const HeldFileTest&) = delete;
    HeldFileTest& operator=(const HeldFileTest&) = delete;

    std::optional<ErrorNumber> Copying() {
        return RuntimeErrorOf([this] {
            World.Files().CopyFile(Source, Copy, true, [this] {
                if (++Yields == YieldsUntilRelease) {
                    Held.reset();
                }
            });
        });
    }
    std::vector<std::wstring> Temporaries() {
        std::vector<std::wstring> names;
        FileEntry entry;
        for (const auto reader = World.Files().GetFolder(World.Root() + L"\\to");
             reader->Next(entry);) {
            if (IsTemporaryName(entry.Name)) {
                names.push_back(World.Root() + L"\\to\\" + entry.Name);
            }
        }
        return names;
    }

    Win32World World;
    const std::wstring Source = World.Root() + L"\\file";
    const std::wstring Copy = World.Root() + L"\\to\\file";
    int YieldsUntilRelease = 0;
    int Yields = 0;
    // What the rename fails with for good, or 0.
    DWORD FailRenameWith = 0;
    std::vector<std::wstring> Renamed;  // each try
    UniqueHandle Held;
    // Where nothing is flushed nothing is open that could be renamed.
    UINT DriveType = DRIVE_REMOTE;
    bool HoldsWhatWasCopied = false;

  private:
    static UINT WINAPI TypeOf(LPCWSTR) { return current_->DriveType; }
    static BOOL WINAPI Make(LPCWSTR from, LPCWSTR to, LPPROGRESS_ROUTINE progress, LPVOID data,
                            LPBOOL cancel, DWORD flags) {
        const BOOL done = copyFile_(from, to, progress, data, cancel, flags);
        if (current_->HoldsWhatWasCopied) {
            current_->Held = Holding(to);
        }
        return done;
    }
    static UniqueHandle Holding(LPCWSTR path) {
        return MakeHandle<UniqueHandle>(CreateFileW(path, GENERIC_READ,
                                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                    OPEN_EXISTING, 0, nullptr));
    }
    // Called in place of the system's for every rename of the copy.
    static BOOL WINAPI Move(LPCWSTR from, LPCWSTR to, DWORD flags) {
        HeldFileTest& test = *current_;
        if (test.Renamed.empty()) {
            test.Held = Holding(from);
        }
        test.Renamed.emplace_back(from);
        if (test.FailRenameWith != 0) {
            SetLastError(test.FailRenameWith);
            return FALSE;
        }
        const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
        const auto move = reinterpret_cast<decltype(&MoveFileExW)>(
            reinterpret_cast<void*>(GetProcAddress(kernel, "MoveFileExW")));
        return move(from, to, flags);
    }

    static inline HeldFileTest* current_ = nullptr;
    static inline const auto copyFile_ = reinterpret_cast<decltype(&CopyFileExW)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "CopyFileExW")));
    ReplacedImport type_{L"kernel32.dll", "GetDriveTypeW", reinterpret_cast<void*>(&TypeOf)};
    ReplacedImport copy_{L"kernel32.dll", "CopyFileExW", reinterpret_cast<void*>(&Make)};
    ReplacedImport import_{L"kernel32.dll", "MoveFileExW", reinterpret_cast<void*>(&Move)};
};

TEST_F(HeldFileTest, AShortLookAtTheNewCopyDelaysItsRename) {
    YieldsUntilRelease = 3;
    EXPECT_EQ(std::nullopt, Copying());
    EXPECT_EQ("new", World.Read(Copy));
    EXPECT_TRUE(Temporaries().empty());
    EXPECT_EQ(3, Yields);
    EXPECT_EQ(4U, Renamed.size());
}

TEST_F(HeldFileTest, OnADiskOfThisMachineItDelaysTheFlush) {
    DriveType = DRIVE_FIXED;
    HoldsWhatWasCopied = true;
    YieldsUntilRelease = 3;
    EXPECT_EQ(std::nullopt, Copying());
    EXPECT_EQ("new", World.Read(Copy));
    EXPECT_TRUE(Temporaries().empty());
    EXPECT_EQ(3, Yields);
    EXPECT_TRUE(Renamed.empty()) << "it was renamed as it was flushed";
}

TEST_F(HeldFileTest, AnOldCopyOnADiskOfThisMachineIsWaitedForToo) {
    DriveType = DRIVE_FIXED;
    YieldsUntilRelease = 2;
    Renamed.emplace_back();  // the new one is left alone
    Held = MakeHandle<UniqueHandle>(CreateFileW(Copy.c_str(), GENERIC_READ, FILE_SHARE_READ,
                                                nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(std::nullopt, Copying());
    EXPECT_EQ("new", World.Read(Copy));
    EXPECT_EQ(2, Yields);
}

TEST_F(HeldFileTest, AShortLookDelaysTheRemovalOfACopyThatFailed) {
    FailRenameWith = ERROR_DISK_FULL;
    YieldsUntilRelease = 2;
    EXPECT_EQ(ErrorNumber::DiskFull, Copying());
    EXPECT_EQ("old", World.Read(Copy));
    EXPECT_TRUE(Temporaries().empty());
    EXPECT_EQ(2, Yields);
    EXPECT_EQ(1U, Renamed.size());
}

TEST_F(HeldFileTest, ALongLookFailsTheCopyAfterTwoSeconds) {
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(ErrorNumber::PermissionDenied, Copying());
    const ULONGLONG time = GetTickCount64() - start;
    EXPECT_GE(time, 1'900U);
    EXPECT_LT(time, 20'000U);
    EXPECT_GT(Yields, 3);
    EXPECT_EQ("old", World.Read(Copy));
    ASSERT_EQ(1U, Temporaries().size());
    Held.reset();
    // As the next run does it.
    World.Files().DeleteFile(Temporaries().front(), true);
    EXPECT_TRUE(Temporaries().empty());
}

TEST_F(HeldFileTest, ALookAtTheOldCopyIsWaitedForToo) {
    YieldsUntilRelease = 2;
    Renamed.emplace_back();  // the new one is left alone
    Held = MakeHandle<UniqueHandle>(CreateFileW(Copy.c_str(), GENERIC_READ, FILE_SHARE_READ,
                                                nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(std::nullopt, Copying());
    EXPECT_EQ("new", World.Read(Copy));
    EXPECT_EQ(2, Yields);
}

TEST_F(HeldFileTest, ARenameThatIsRefusedForGoodIsNotWaitedFor) {
    FailRenameWith = ERROR_ACCESS_DENIED;
    Renamed.emplace_back();
    EXPECT_EQ(ErrorNumber::PermissionDenied, Copying());
    EXPECT_EQ(0, Yields);
    EXPECT_TRUE(Temporaries().empty());
}

TEST_F(HeldFileTest, NoTwoTemporariesHaveOneName) {
    Held.reset();
    YieldsUntilRelease = 1;
    EXPECT_EQ(std::nullopt, Copying());
    const std::wstring first = Renamed.back();
    EXPECT_EQ(std::nullopt, Copying());
    EXPECT_NE(first, Renamed.back());
    EXPECT_TRUE(IsTemporaryName(first.substr(first.rfind(L'\\') + 1)));
}

}  // namespace
}  // namespace ambrio
