#include "engine/DestinationListing.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ForwardingFileSystem.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/RecordingHost.h"

namespace ambrio {
namespace {

constexpr FileSeconds kListedTime = 13'400'000'000;

class CountsFoldings : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;
    [[nodiscard]] std::wstring FoldedName(const std::wstring& name) const override {
        ++Foldings;
        return ForwardingFileSystem::FoldedName(name);
    }
    mutable int Foldings = 0;
};

// A destination folder with the copies "one" and "two", which is two seconds younger.
class DestinationListingTest : public testing::Test {
  protected:
    DestinationListingTest() : set_(files_, SetOfTheTest()), folder_(files_, set_) {
        disk_.MakeFolder(L"C:\\From");
        disk_.WriteFile(L"C:\\To\\one", "1", 0, kListedTime);
        disk_.WriteFile(L"C:\\To\\two", "2", 0, kListedTime + 2);
        Listing.Fetch(host_, signals_);
        files_.Foldings = 0;
    }
    static BackupSet SetOfTheTest() {
        BackupSet set;
        set.rsSourceDir = L"C:\\From";
        set.rsDestnDir = L"C:\\To";
        return set;
    }
    FileSeconds TimeOf(const std::wstring& name) const {
        const auto copy = Listing.Listed(name);
        return copy ? copy->DateLastModified : 0;
    }
    [[nodiscard]] int Foldings() const { return files_.Foldings; }

  private:
    MemoryFileSystem disk_;
    CountsFoldings files_{disk_};
    const WalkedSet set_;
    const WalkedFolder folder_;
    RecordingHost host_;
    RunSignals signals_;

  protected:
    DestinationListing Listing{files_, folder_};
};

TEST_F(DestinationListingTest, AnswersForEachNameByItself) {
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(TimeOf(L"one"), kListedTime);
        EXPECT_EQ(TimeOf(L"two"), kListedTime + 2);
        EXPECT_TRUE(Listing.SeemsMissing(L"three"));
    }
}

TEST_F(DestinationListingTest, WhatIsForgottenIsForgottenAtOnce) {
    EXPECT_EQ(TimeOf(L"one"), kListedTime);
    Listing.Forget(L"one");
    EXPECT_EQ(TimeOf(L"one"), 0);
    EXPECT_TRUE(Listing.SeemsMissing(L"one"));
    EXPECT_EQ(TimeOf(L"two"), kListedTime + 2);
}

TEST_F(DestinationListingTest, WhatIsNotedIsKnownAtOnceButNotItsTime) {
    EXPECT_TRUE(Listing.SeemsMissing(L"three"));
    Listing.Note(L"three");
    EXPECT_FALSE(Listing.SeemsMissing(L"three"));
    EXPECT_EQ(TimeOf(L"three"), 0);
    EXPECT_EQ(TimeOf(L"two"), kListedTime + 2);
    Listing.Note(L"two");
    EXPECT_EQ(TimeOf(L"two"), 0);
}

// Each costs pieces of memory, and a name that is not plain a call of the system.
TEST_F(DestinationListingTest, AllQuestionsAboutAFileFoldItsNameOnce) {
    EXPECT_EQ(Listing.OtherSpelling(L"one"), std::nullopt);
    EXPECT_TRUE(Listing.MayHold(L"one"));
    EXPECT_EQ(TimeOf(L"one"), kListedTime);
    EXPECT_FALSE(Listing.SeemsMissing(L"one"));
    EXPECT_EQ(Foldings(), 1);
    EXPECT_EQ(TimeOf(L"two"), kListedTime + 2);
    EXPECT_EQ(Foldings(), 2);
}

}  // namespace
}  // namespace ambrio
