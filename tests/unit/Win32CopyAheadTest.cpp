// Copies made ahead on real disks, by threads of the system.

#include <gtest/gtest.h>
#include <tlhelp32.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/CopyAhead.h"
#include "platform/TemporaryName.h"
#include "platform/win32/system/Handle.h"
#include "platform/win32/system/Win32WorkerPool.h"
#include "tests/conformance/win32/Win32World.h"

namespace ambrio {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr std::uint64_t kTicks = 10'000'000;  // a second's

class Win32CopyAheadTest : public testing::Test {
  protected:
    Win32CopyAheadTest() {
        World.Files().CreateFolder(World.Root() + L"\\from");
        World.Files().CreateFolder(World.Root() + L"\\to");
    }

    static FileSeconds Now() {
        FILETIME now;
        GetSystemTimeAsFileTime(&now);
        return static_cast<FileSeconds>(
            ((static_cast<std::uint64_t>(now.dwHighDateTime) << 32U) | now.dwLowDateTime) / kTicks);
    }
    // So many files that are to be copied.
    std::vector<ExpectedCopy> Files(int count, const std::string& content = "content") {
        std::vector<ExpectedCopy> copies;
        for (int i = 0; i < count; ++i) {
            const std::wstring name = L"\\" + std::to_wstring(i);
            copies.push_back({World.Root() + L"\\from" + name, World.Root() + L"\\to" + name,
                              content.size(), true});
            World.Write(copies.back().Source, content);
        }
        return copies;
    }
    // The temporaries in the destination.
    [[nodiscard]] std::size_t Waiting() {
        std::size_t count = 0;
        FileEntry entry;
        for (const auto reader = World.Files().GetFolder(World.Root() + L"\\to");
             reader->Next(entry);) {
            count += IsTemporaryName(entry.Name) ? 1 : 0;
        }
        return count;
    }
    // How long it takes to remove so many files one after the other, and to see that they are gone.
    Clock::duration RemovingPlainly(int count) {
        std::vector<std::wstring> paths;
        for (int i = 0; i < count; ++i) {
            paths.push_back(World.Root() + L"\\to\\plain" + std::to_wstring(i));
            World.Write(paths.back(), "content");
        }
        const auto start = Clock::now();
        for (const std::wstring& path : paths) {
            World.Files().DeleteFile(path, true);
        }
        static_cast<void>(Waiting());
        return Clock::now() - start;
    }
    // Waits for the threads to come so far.
    bool AwaitWaiting(std::size_t count) {
        const auto end = Clock::now() + 30s;
        while (Waiting() != count && Clock::now() < end) {
            Sleep(1);
        }
        return Waiting() == count;
    }
    // Waits for the thread that is still at it.
    std::shared_ptr<void> LockSurely(const std::wstring& path) {
        for (const auto end = Clock::now() + 30s;; Sleep(1)) {
            try {
                return World.Lock(path);
            } catch (const std::runtime_error&) {
                if (Clock::now() > end) {
                    throw;
                }
            }
        }
    }
    static int Threads() {
        const auto all = MakeHandle<UniqueHandle>(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
        THREADENTRY32 thread{};
        thread.dwSize = sizeof(thread);
        int count = 0;
        for (BOOL more = Thread32First(all.get(), &thread); more != 0;
             more = Thread32Next(all.get(), &thread)) {
            count += thread.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
        }
        return count;
    }

    Win32World World;
    Win32WorkerPool Pool;
    CopyAhead Ahead{World.Files(), Pool};
};

TEST_F(Win32CopyAheadTest, ThreadsStartWithTheFirstHintOfMoreThanTwoFilesAndEndWithTheRun) {
    const int before = Threads();
    std::vector<ExpectedCopy> copies = Files(3);
    Ahead.ExpectCopies({copies[0], copies[1]});
    EXPECT_EQ(Threads(), before);
    Ahead.ExpectCopies(copies);
    EXPECT_EQ(Threads(), before + static_cast<int>(CopyAhead::kMostUnderWay));
    for (const ExpectedCopy& copy : copies) {
        Ahead.CopyFile(copy.Source, copy.Destination, false, {});
    }
    Ahead.ExpectNothing();
    EXPECT_EQ(Threads(), before + static_cast<int>(CopyAhead::kMostUnderWay));
    Ahead.EndExpecting();
    EXPECT_EQ(Threads(), before);
}

// One go of some tells, as a busy machine only makes it slower; one that is busy all the time is
// measured by how long it takes to remove such files one after the other.
TEST_F(Win32CopyAheadTest, WhatWaitsIsGoneWithinATenthOfASecondOfTheInterruption) {
    constexpr int kWaiting = 32;
    const std::vector<ExpectedCopy> copies = Files(kWaiting);
    Clock::duration least = 1h;
    Clock::duration plain = 0ms;
    for (int go = 0; go < 20 && least >= 100ms && least >= 2 * plain; ++go) {
        Ahead.ExpectCopies(copies);
        ASSERT_TRUE(AwaitWaiting(kWaiting));
        const auto start = Clock::now();
        Ahead.ExpectNothing();
        const auto returned = Clock::now() - start;
        ASSERT_TRUE(AwaitWaiting(0));
        least = std::min(least, Clock::now() - start);
        EXPECT_LT(returned, 5s) << "who interrupts does not wait for it";
        plain = std::max(plain, RemovingPlainly(kWaiting));
    }
    EXPECT_TRUE(least < 100ms || least < 2 * plain)
        << std::chrono::duration_cast<std::chrono::milliseconds>(least).count() << " ms";
}

TEST_F(Win32CopyAheadTest, AnInterruptionAmongThemLeavesNothing) {
    constexpr int kExpected = 32;
    const std::vector<ExpectedCopy> copies = Files(kExpected, std::string(4'096, 'x'));
    for (std::size_t reached = 0; reached < kExpected; reached += 5) {
        Ahead.ExpectCopies(copies);
        const auto end = Clock::now() + 30s;
        while (Waiting() < reached && Clock::now() < end) {
            Sleep(1);
        }
        Ahead.ExpectNothing();
        EXPECT_TRUE(AwaitWaiting(0));
        Ahead.EndExpecting();
    }
}

// On a disk with times of whole seconds a file can change without looking it.
TEST_F(Win32CopyAheadTest, AFileThatMayChangeUnseenWaitsForItsTurn) {
    const ExpectedCopy copy = Files(1).front();
    const auto isMade = [&](FileSeconds time, std::uint32_t ticks) {
        World.SetTime(copy.Source, time, ticks);
        return World.Files().PrepareCopy(copy, [] { return true; }) != nullptr;
    };
    EXPECT_FALSE(isMade(Now(), 0));
    EXPECT_FALSE(isMade(Now() - 1, 5'400'000));
    EXPECT_FALSE(isMade(Now() + 1'000, 0)) << "a clock that is ahead";
    EXPECT_TRUE(isMade(Now() - 10, 0));
    EXPECT_TRUE(isMade(Now(), 1'234'567)) << "a disk that keeps the time exactly";
}

// What holds a copy back for a moment, as a virus scanner does, is waited for in the ordinary way.
TEST_F(Win32CopyAheadTest, ATemporaryThatIsHeldIsCopiedAnew) {
    const std::vector<ExpectedCopy> copies = Files(3);
    Ahead.ExpectCopies(copies);
    ASSERT_TRUE(AwaitWaiting(3));
    FileEntry entry;
    std::vector<std::shared_ptr<void>> locks;
    for (const auto reader = World.Files().GetFolder(World.Root() + L"\\to");
         reader->Next(entry);) {
        locks.push_back(LockSurely(World.Root() + L"\\to\\" + entry.Name));
    }
    for (const ExpectedCopy& copy : copies) {
        Ahead.CopyFile(copy.Source, copy.Destination, false, {});
        EXPECT_EQ(World.Read(copy.Destination), "content");
    }
}

// Another program may take it for a leftover.
TEST_F(Win32CopyAheadTest, ATemporaryThatSomebodyRemovesIsCopiedAnew) {
    const std::vector<ExpectedCopy> copies = Files(3);
    Ahead.ExpectCopies(copies);
    ASSERT_TRUE(AwaitWaiting(3));
    FileEntry entry;
    for (const auto reader = World.Files().GetFolder(World.Root() + L"\\to");
         reader->Next(entry);) {
        const std::wstring path = World.Root() + L"\\to\\" + entry.Name;
        // A thread may open it to flush it in between.
        do {
            LockSurely(path).reset();
        } while (DeleteFileW(path.c_str()) == FALSE);
    }
    for (const ExpectedCopy& copy : copies) {
        Ahead.CopyFile(copy.Source, copy.Destination, false, {});
        EXPECT_EQ(World.Read(copy.Destination), "content");
    }
    Ahead.EndExpecting();
    EXPECT_EQ(World.Read(copies.back().Destination), "content");
}

}  // namespace
}  // namespace ambrio
