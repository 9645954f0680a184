// Copies that are read-only, hidden or system files: which are replaced, which are refused.

#include <gtest/gtest.h>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/RuleTest.h"

namespace ambrio::e2e {
namespace {

constexpr unsigned kNewer = 60;    // seconds of age
constexpr unsigned kOlder = 7200;  // than the source

// One file with a copy that is there already.
struct ReadOnlyCase {
    const char* Name;
    const wchar_t* Overwrites;
    unsigned Age;  // of the copy, in s
    DWORD Copy;    // its attributes
    enum class Outcome { Copied, Refused, Left } Is;
    DWORD After;  // the attributes of the copy
};
using Is = ReadOnlyCase::Outcome;

class ReadOnlyTest : public RuleTest, public testing::WithParamInterface<ReadOnlyCase> {};

TEST_P(ReadOnlyTest, IsReplacedOnlyWhenTheSetSaysSo) {
    const ReadOnlyCase& now = GetParam();
    Source.AddFile(L"file", "source");
    TestTree(Destination()).AddFile(L"file", "copy", now.Age, now.Copy);
    WriteRules({.OverwriteReadOnly = now.Overwrites});
    if (now.Is == Is::Refused) {
        RunAndExpectCopyFailure(
            L"file",
            L"Of 1 files checked, 0 were copied and 1 failed to copy; 0 copies were removed.");
    } else {
        RunAndExpect({.Checked = 1, .Copied = now.Is == Is::Copied ? 1 : 0});
    }
    EXPECT_EQ(ReadFileBytes(CopyOf(L"file")), now.Is == Is::Copied ? "source" : "copy");
    EXPECT_EQ(FileAttributesOf(CopyOf(L"file")), now.After);
    EXPECT_EQ(ReadTree(Destination()).size(), 1U) << "something else was left there";
    EXPECT_EQ(FileAttributesOf(Source.PathOf(L"file")), kArchive);
}

INSTANTIATE_TEST_SUITE_P(
    Copy, ReadOnlyTest,
    testing::Values(
        ReadOnlyCase{"RefusedWhenReadOnly", L"No", kOlder, kReadOnly, Is::Refused, kReadOnly},
        ReadOnlyCase{"RefusedWhenAllAtOnce", L"No", kOlder, kReadOnly | kHidden | kSystem,
                     Is::Refused, kReadOnly | kHidden | kSystem},
        ReadOnlyCase{"RefusedWhenYesIsNoYes", L"yes", kOlder, kReadOnly, Is::Refused, kReadOnly},
        ReadOnlyCase{"LeftAloneWhenNewer", L"No", kNewer, kReadOnly | kArchive, Is::Left,
                     kReadOnly | kArchive},
        ReadOnlyCase{"ReplacedWhenReadOnly", L"Yes", kOlder, kReadOnly, Is::Copied, kArchive},
        ReadOnlyCase{"ReplacedWhenAllAtOnce", L"Yes", kOlder, kReadOnly | kHidden | kSystem,
                     Is::Copied, kArchive},
        // Wanted: the copy loses the bit although it is then not replaced.
        ReadOnlyCase{"LosesTheBitWhenNewer", L"Yes", kNewer, kReadOnly | kHidden | kArchive,
                     Is::Left, kHidden | kArchive},
        ReadOnlyCase{"ReplacedWhenHidden", L"No", kOlder, kHidden, Is::Copied, kArchive},
        ReadOnlyCase{"ReplacedWhenSystem", L"No", kOlder, kSystem, Is::Copied, kArchive}),
    NameOf());

class NotReadOnlyTest : public RuleTest {
  protected:
    NotReadOnlyTest() {
        Source.AddFile(L"free", "free").AddFile(L"read-only", "read-only", 3600, kReadOnly);
    }
};

TEST_F(NotReadOnlyTest, ReadOnlyFilesGetNoCopyAndWhatTheyHaveIsKeptOrRemovedAsTheSetSays) {
    for (const bool removes : {false, true}) {
        TestTree(Destination()).AddFile(L"read-only", "old", kOlder, kReadOnly | kSystem);
        WriteRules({.CopyType = L"ReadOnly", .DeleteCopyReadOnly = removes ? L"Yes" : L"No"});
        RunAndExpect({.Checked = 2, .Copied = removes ? 0 : 1, .Removed = removes ? 1 : 0});
        EXPECT_EQ(FileExists(CopyOf(L"read-only")), !removes);
        EXPECT_EQ(ReadFileBytes(CopyOf(L"free")), "free");
    }
}

TEST_F(NotReadOnlyTest, ACopyKeepsTheAttributesOfItsFile) {
    const DWORD kinds[] = {kHidden, kSystem, kReadOnly, kHidden | kSystem,
                           kReadOnly | kHidden | kSystem};
    for (const DWORD attributes : kinds) {
        Source.AddFile(std::to_wstring(attributes), "f", 3600, attributes);
    }
    WriteRules({});
    RunAndExpect({.Checked = 7, .Copied = 7});
    for (const DWORD attributes : kinds) {
        const std::wstring name = std::to_wstring(attributes);
        EXPECT_EQ(FileAttributesOf(CopyOf(name)), attributes | kArchive);
        EXPECT_EQ(FileAttributesOf(Source.PathOf(name)), attributes) << "the source has changed";
    }
    RunAndExpect({.Checked = 7});
}

}  // namespace
}  // namespace ambrio::e2e
