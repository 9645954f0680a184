#include "platform/CopyAhead.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/TemporaryName.h"
#include "tests/support/AtOncePool.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/PreparingFileSystem.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

using Names = PreparingFileSystem::Names;

class CopyAheadTest : public testing::Test {
  protected:
    CopyAheadTest() {
        Disk.MakeFolder(L"C:\\To");
        for (const wchar_t* name : {L"1", L"2", L"3", L"4"}) {
            Disk.WriteFile(From(name), "new " + std::string(1, static_cast<char>(*name)), 0, kNew);
        }
    }

    static std::wstring From(const std::wstring& name) { return L"C:\\From\\" + name; }
    static std::wstring To(const std::wstring& name) { return L"C:\\To\\" + name; }
    void Expect(const Names& names) {
        std::vector<ExpectedCopy> copies;
        for (const std::wstring& name : names) {
            copies.push_back({From(name), To(name), Disk.GetFile(From(name)).Size});
        }
        Ahead.ExpectCopies(copies);
    }
    std::optional<ErrorNumber> Copying(const std::wstring& name) {
        return RuntimeErrorOf([&] { Ahead.CopyFile(From(name), To(name), true, {}); });
    }
    // What the destination holds, temporaries as "temporary".
    [[nodiscard]] Names Destination() {
        Names names;
        FileEntry entry;
        for (const auto reader = Disk.GetFolder(L"C:\\To"); reader->Next(entry);) {
            names.push_back(IsTemporaryName(entry.Name) ? L"temporary" : entry.Name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    static constexpr FileSeconds kOld = 13'000'000'000;
    static constexpr FileSeconds kNew = 13'100'000'000;

    MemoryFileSystem Disk;
    PreparingFileSystem Files{Disk};
    AtOncePool Pool;
    CopyAhead Ahead{Files, Pool};
};

TEST_F(CopyAheadTest, NothingGetsItsNameBeforeItsTurn) {
    Disk.WriteFile(To(L"2"), "old", 0, kOld);
    Expect({L"1", L"2", L"3"});
    EXPECT_EQ(Destination(), (Names{L"2", L"temporary", L"temporary", L"temporary"}));
    EXPECT_EQ(Disk.Content(To(L"2")), "old");
    EXPECT_EQ(Copying(L"2"), std::nullopt);
    EXPECT_EQ(Destination(), (Names{L"2", L"temporary", L"temporary"}));
    EXPECT_EQ(Disk.Content(To(L"2")), "new 2");
    EXPECT_EQ(Disk.GetFile(To(L"2")).DateLastModified, kNew);
    EXPECT_EQ(Copying(L"1"), std::nullopt);
    EXPECT_EQ(Copying(L"3"), std::nullopt);
    EXPECT_EQ(Destination(), (Names{L"1", L"2", L"3"}));
    EXPECT_EQ(Files.Finished, 3);
    EXPECT_EQ(Files.CallsOf(FileOperation::CopyFile), 0);
}

TEST_F(CopyAheadTest, WhatWasNotExpectedIsCopiedAsEver) {
    Expect({L"1", L"2", L"3"});
    EXPECT_EQ(Copying(L"4"), std::nullopt);
    EXPECT_EQ(Disk.Content(To(L"4")), "new 4");
    EXPECT_EQ(Files.CallsOf(FileOperation::CopyFile), 1);
}

TEST_F(CopyAheadTest, ACopyIsOfItsOwnSourceAndForItsOwnPlace) {
    Expect({L"1", L"2", L"3"});
    Ahead.CopyFile(From(L"1"), To(L"2"), true, {});
    EXPECT_EQ(Disk.Content(To(L"2")), "new 1");
    EXPECT_EQ(Destination(), (Names{L"2", L"temporary", L"temporary", L"temporary"}));
    EXPECT_EQ(Files.Finished, 0);
}

TEST_F(CopyAheadTest, ASourceThatHasChangedIsCopiedAnew) {
    Expect({L"1", L"2", L"3"});
    Disk.WriteFile(From(L"1"), "newer", 0, kNew + 1);
    Disk.WriteFile(From(L"2"), "longer than before", 0, kNew);
    Disk.WriteFile(From(L"3"), "new 3", kAttributeHidden, kNew);
    for (const wchar_t* name : {L"1", L"2", L"3"}) {
        EXPECT_EQ(Copying(name), std::nullopt);
        EXPECT_EQ(Disk.Content(To(name)), Disk.Content(From(name)));
    }
    EXPECT_EQ(Disk.GetFile(To(L"3")).Attributes & kAttributeHidden, kAttributeHidden);
    EXPECT_EQ(Files.Finished, 0);
    EXPECT_EQ(Destination(), (Names{L"1", L"2", L"3"}));
}

TEST_F(CopyAheadTest, ADestinationThatHasChangedIsLookedAtAnew) {
    Disk.WriteFile(To(L"2"), "old", 0, kOld);
    Disk.WriteFile(To(L"3"), "old", 0, kOld);
    Expect({L"1", L"2", L"3"});
    Disk.WriteFile(To(L"1"), "somebody's", kAttributeReadOnly, kNew);
    Disk.WriteFile(To(L"2"), "somebody's", 0, kNew);
    Disk.SetAttributes(To(L"3"), kAttributeReadOnly);
    EXPECT_EQ(Copying(L"1"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(Disk.Content(To(L"1")), "somebody's");
    EXPECT_EQ(Copying(L"2"), std::nullopt);
    EXPECT_EQ(Disk.Content(To(L"2")), "new 2");
    EXPECT_EQ(Copying(L"3"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(Files.Finished, 0);
    EXPECT_EQ(Destination(), (Names{L"1", L"2", L"3"}));
}

TEST_F(CopyAheadTest, AFailureIsMetAtItsTurnAndOnlyThen) {
    Disk.Node(From(L"2")).Locked = true;
    Expect({L"1", L"2", L"3"});
    EXPECT_EQ(Copying(L"1"), std::nullopt);
    EXPECT_EQ(Copying(L"2"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(Copying(L"3"), std::nullopt);
    EXPECT_EQ(Destination(), (Names{L"1", L"3"}));
}

TEST_F(CopyAheadTest, AFailureThatIsThrownIsForgottenToo) {
    Files.BeforePreparing = [this] {
        if (Files.Prepared.size() == 2) {
            throw RuntimeError(ErrorNumber::PathNotFound);
        }
    };
    Expect({L"1", L"2", L"3"});
    for (const wchar_t* name : {L"1", L"2", L"3"}) {
        EXPECT_EQ(Copying(name), std::nullopt);
    }
    EXPECT_EQ(Destination(), (Names{L"1", L"2", L"3"}));
    EXPECT_EQ(Files.Finished, 2);
}

TEST_F(CopyAheadTest, AFailureThatHasGoneIsNone) {
    Disk.Node(From(L"2")).Locked = true;
    Expect({L"1", L"2", L"3"});
    Disk.Node(From(L"2")).Locked = false;
    EXPECT_EQ(Copying(L"2"), std::nullopt);
    EXPECT_EQ(Disk.Content(To(L"2")), "new 2");
}

TEST_F(CopyAheadTest, WhatIsNotExpectedAnyMoreGoes) {
    Expect({L"1", L"2", L"3"});
    EXPECT_EQ(Copying(L"1"), std::nullopt);
    Ahead.ExpectNothing();
    EXPECT_EQ(Destination(), Names{L"1"});
    EXPECT_EQ(Copying(L"2"), std::nullopt);
    EXPECT_EQ(Files.Finished, 1);
    Expect({L"3", L"4"});
    Ahead.EndExpecting();
    EXPECT_EQ(Destination(), (Names{L"1", L"2"}));
}

TEST_F(CopyAheadTest, WhatIsDroppedWhileItIsMadeGoesToo) {
    Files.BeforePreparing = [this] { Ahead.ExpectNothing(); };
    Expect({L"1", L"2", L"3"});
    EXPECT_EQ(Destination(), Names{});
    EXPECT_EQ(Files.Prepared, Names{From(L"1")});
    EXPECT_EQ(Files.Unwanted, 1);
}

TEST_F(CopyAheadTest, WhoExpectsNothingAnyMoreDoesNotWaitUntilItIsGone) {
    Expect({L"1", L"2", L"3"});
    Pool.IsAsleep = true;
    Ahead.ExpectNothing();
    EXPECT_EQ(Destination().size(), 3U);
    EXPECT_EQ(Copying(L"1"), std::nullopt);
    EXPECT_EQ(Files.Finished, 0);
    Pool.IsAsleep = false;
    Pool.Wake();
    EXPECT_EQ(Destination(), Names{L"1"});
}

TEST_F(CopyAheadTest, WhatIsDroppedTakesNoRoom) {
    std::vector<ExpectedCopy> copies;
    for (const wchar_t* name : {L"1", L"2", L"3"}) {
        copies.push_back({From(name), To(name), CopyAhead::kLarge - 1});
    }
    Files.BeforePreparing = [this] { Ahead.ExpectNothing(); };
    for (int i = 0; i < 40; ++i) {
        Ahead.ExpectCopies(copies);
    }
    EXPECT_EQ(Files.Prepared.size(), 40U);
    Files.BeforePreparing = nullptr;
    Ahead.ExpectCopies(copies);
    EXPECT_EQ(Files.Prepared.size(), 43U);
}

TEST_F(CopyAheadTest, TwoFilesAreNotWorthAThread) {
    Expect({L"1", L"2"});
    EXPECT_EQ(Files.Prepared, Names{});
    Expect({L"1", L"2", L"3"});
    EXPECT_EQ(Files.Prepared.size(), 3U);
}

TEST_F(CopyAheadTest, LargeFilesWaitForTheirTurn) {
    Disk.WriteFile(From(L"3"), std::string(CopyAhead::kLarge, 'x'), 0, kNew);
    Disk.WriteFile(From(L"4"), std::string(CopyAhead::kLarge - 1, 'x'), 0, kNew);
    Expect({L"2", L"3", L"4"});
    EXPECT_EQ(Files.Prepared, (Names{From(L"2"), From(L"4")}));
}

TEST_F(CopyAheadTest, NoMoreWaitsThanThirtyTwoMebibytes) {
    Names names;
    for (int i = 0; i < 80; ++i) {
        names.push_back(L"half" + std::to_wstring(i));
        Disk.WriteFile(From(names.back()), std::string(1U << 19U, 'x'), 0, kNew);
    }
    Disk.SetQuota(L"C:\\", 1ULL << 30U);
    Expect(names);
    EXPECT_EQ(Files.Prepared.size(), 64U);
    EXPECT_EQ(Copying(names.back()), std::nullopt);
    EXPECT_EQ(Files.Prepared.size(), 64U) << "that one did not wait";
    EXPECT_EQ(Copying(names.front()), std::nullopt);
    EXPECT_EQ(Files.Prepared.size(), 65U);
}

TEST_F(CopyAheadTest, NoMoreWaitsThanAQuarterOfTheFreeSpace) {
    for (const wchar_t* name : {L"1", L"2", L"3", L"4"}) {
        Disk.WriteFile(From(name), std::string(1000, *name == L'1' ? 'a' : 'b'), 0, kNew);
    }
    Disk.SetVolume(L"D:", true);
    Disk.MakeFolder(L"D:\\To");
    Disk.SetQuota(L"D:\\", 8'400);
    std::vector<ExpectedCopy> copies;
    for (const wchar_t* name : {L"1", L"2", L"3", L"4"}) {
        copies.push_back({From(name), L"D:\\To\\" + std::wstring(name), 1000});
    }
    Ahead.ExpectCopies(copies);
    EXPECT_EQ(Files.Prepared.size(), 2U);
}

TEST_F(CopyAheadTest, TheFreeSpaceIsAskedForWithEachHint) {
    Disk.SetVolume(L"D:", true);
    Disk.MakeFolder(L"D:\\To");
    Disk.SetQuota(L"D:\\", 1'000);
    const auto expect = [this](const Names& names) {
        std::vector<ExpectedCopy> copies;
        for (const std::wstring& name : names) {
            Disk.WriteFile(From(name), std::string(10, 'x'), 0, kNew);
            copies.push_back({From(name), L"D:\\To\\" + name, 10});
        }
        Ahead.ExpectCopies(copies);
    };
    expect({L"1", L"2", L"3"});
    EXPECT_EQ(Files.Prepared.size(), 3U);
    Disk.WriteFile(L"D:\\theirs", std::string(960, 'x'), 0, kNew);
    expect({L"4", L"5", L"6"});
    EXPECT_EQ(Files.Prepared.size(), 3U);
}

// What waits must not be in the way of what is asked for.
TEST_F(CopyAheadTest, ADiskThatIsFullOfWhatWaitsIsNotFull) {
    Disk.SetVolume(L"D:", true);
    Disk.MakeFolder(L"D:\\To");
    Disk.WriteFile(From(L"large"), std::string(9'000, 'x'), 0, kNew);
    Disk.SetQuota(L"D:\\", 9'010);
    std::vector<ExpectedCopy> copies;
    for (const wchar_t* name : {L"1", L"2", L"3"}) {
        copies.push_back({From(name), L"D:\\To\\" + std::wstring(name), 5});
    }
    Ahead.ExpectCopies(copies);
    EXPECT_EQ(Files.Prepared.size(), 3U);
    Ahead.CopyFile(From(L"large"), L"D:\\To\\large", true, {});
    EXPECT_EQ(Disk.GetFile(L"D:\\To\\large").Size, 9'000U);
    EXPECT_EQ(RuntimeErrorOf([&] { Ahead.CopyFile(From(L"large"), L"D:\\To\\again", true, {}); }),
              ErrorNumber::DiskFull);
}

TEST_F(CopyAheadTest, ADiskThatIsFullOfOtherThingsIsAskedOnce) {
    Expect({L"1", L"2", L"3"});
    for (const wchar_t* name : {L"1", L"2", L"3"}) {
        EXPECT_EQ(Copying(name), std::nullopt);
    }
    Disk.SetVolume(L"D:", true);
    Disk.MakeFolder(L"D:\\To");
    Disk.SetQuota(L"D:\\", 4);
    EXPECT_EQ(RuntimeErrorOf([&] { Ahead.CopyFile(From(L"4"), L"D:\\To\\4", true, {}); }),
              ErrorNumber::DiskFull);
    EXPECT_EQ(Files.CallsOf(FileOperation::CopyFile), 1);
}

// Whether it was there when the copy was made, or has come since.
TEST_F(CopyAheadTest, WithoutLeaveToOverwriteNothingIsOverwritten) {
    Disk.WriteFile(To(L"1"), "somebody's", 0, kOld);
    Disk.WriteFile(To(L"2"), "somebody's", 0, kOld);
    std::vector<ExpectedCopy> copies;
    for (const wchar_t* name : {L"1", L"2", L"3", L"4"}) {
        copies.push_back({From(name), To(name), 5, *name != L'1'});
    }
    Ahead.ExpectCopies(copies);
    EXPECT_EQ(Files.Prepared.size(), 4U);
    Disk.WriteFile(To(L"3"), "somebody's", 0, kOld);
    for (const wchar_t* name : {L"1", L"2", L"3"}) {
        EXPECT_EQ(RuntimeErrorOf([&] { Ahead.CopyFile(From(name), To(name), false, {}); }),
                  ErrorNumber::FileAlreadyExists);
        EXPECT_EQ(Disk.Content(To(name)), "somebody's");
    }
    EXPECT_EQ(Files.Finished, 0);
    Ahead.CopyFile(From(L"4"), To(L"4"), false, {});
    EXPECT_EQ(Disk.Content(To(L"4")), "new 4");
    EXPECT_EQ(Files.Finished, 1);
    EXPECT_EQ(Destination(), (Names{L"1", L"2", L"3", L"4"}));
}

// The listing of a folder may tell of less than there is.
TEST_F(CopyAheadTest, WhatIsLargerThanSaidWaitsForItsTurn) {
    Ahead.ExpectCopies(
        {{From(L"1"), To(L"1"), 4}, {From(L"2"), To(L"2"), 5}, {From(L"3"), To(L"3"), 6}});
    EXPECT_EQ(Destination(), (Names{L"temporary", L"temporary"}));
    EXPECT_EQ(Copying(L"1"), std::nullopt);
    EXPECT_EQ(Disk.Content(To(L"1")), "new 1");
    EXPECT_EQ(Files.Finished, 0);
}

}  // namespace
}  // namespace ambrio
