#include "settings/BackupSet.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "settings/SettingKeys.h"
#include "tests/support/FailingSettingsStore.h"
#include "tests/support/MemorySettingsStore.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

class BackupSetTest : public testing::Test {
  protected:
    void Store(const wchar_t* key, const wchar_t* value) { settings.Values[{L"A", key}] = value; }
    BackupSet Loaded() { return LoadBackupSet(settings, L"A").value_or(BackupSet{}); }
    std::vector<std::wstring> KeysRead() const {
        std::vector<std::wstring> keys;
        for (const auto& [section, key] : settings.Reads) {
            EXPECT_EQ(L"A", section);
            keys.push_back(key);
        }
        return keys;
    }
    // Every flag that a copy type can have is set.
    void TickEverything() {
        for (const wchar_t* key : {L"Recursive", L"OverwriteReadOnly", L"ClearArchiveBit",
                                   L"DeleteCopyArchiveBit", L"DeleteCopyReadOnly"}) {
            Store(key, L"Yes");
        }
    }
    void ExpectReads(const wchar_t* copyType, const std::vector<std::wstring>& ownKeys) {
        TickEverything();
        Store(L"CopyType", copyType);
        (void)Loaded();
        std::vector<std::wstring> expected = {L"Selected",  L"Source",   L"Destination",
                                              L"Recursive", L"CopyType", L"OverwriteReadOnly"};
        expected.insert(expected.end(), ownKeys.begin(), ownKeys.end());
        EXPECT_EQ(expected, KeysRead());
    }

    MemorySettingsStore settings;
};

TEST_F(BackupSetTest, WithoutASectionRunsByDateWithEmptyFolders) {
    const BackupSet expected{L"A", L"", L"", false, L"Date/Time", false, false, false};
    EXPECT_EQ(expected, Loaded());
    EXPECT_TRUE(settings.Writes.empty());
}

TEST_F(BackupSetTest, TakesEveryFieldFromItsKey) {
    TickEverything();
    Store(L"Source", L"C:\\From");
    Store(L"Destination", L"D:\\To");
    Store(L"CopyType", L"ArchiveBit");
    const BackupSet expected{L"A", L"C:\\From", L"D:\\To", true, L"ArchiveBit", true, true, true};
    EXPECT_EQ(expected, Loaded());
}

TEST_F(BackupSetTest, FeedsDeleteCopyFromTheKeyOfTheCopyType) {
    const struct {
        const wchar_t* CopyType;
        const wchar_t* Key;
        bool DeleteCopy;
    } cases[] = {{L"ArchiveBit", L"DeleteCopyArchiveBit", true},
                 {L"ArchiveBit", L"DeleteCopyReadOnly", false},
                 {L"ReadOnly", L"DeleteCopyReadOnly", true},
                 {L"ReadOnly", L"DeleteCopyArchiveBit", false},
                 {L"Date/Time", L"DeleteCopyArchiveBit", false},
                 {L"archivebit", L"DeleteCopyArchiveBit", false}};
    for (const auto& [copyType, key, deleteCopy] : cases) {
        settings.Values.clear();
        Store(L"CopyType", copyType);
        Store(key, L"Yes");
        EXPECT_EQ(deleteCopy, Loaded().rbDeleteCopy) << copyType << key;
    }
}

TEST_F(BackupSetTest, WithoutACopyTypeKeepsTheArchiveFlagsFalse) {
    TickEverything();
    const BackupSet set = Loaded();
    EXPECT_EQ(kCopyTypeDateTime, set.rsCopyType);
    EXPECT_FALSE(set.rbDeleteCopy);
    EXPECT_FALSE(set.rbClearArchive);
}

TEST_F(BackupSetTest, ReadsTheArchiveKeysOnlyForTheArchiveBit) {
    ExpectReads(L"ArchiveBit", {L"ClearArchiveBit", L"DeleteCopyArchiveBit"});
}
TEST_F(BackupSetTest, ReadsTheReadOnlyKeyOnlyForReadOnly) {
    ExpectReads(L"ReadOnly", {L"DeleteCopyReadOnly"});
}
TEST_F(BackupSetTest, ReadsNoFurtherKeyForDateAndTime) {
    ExpectReads(L"Date/Time", {});
}

TEST_F(BackupSetTest, TakesNothingButYesForYes) {
    for (const wchar_t* text : {L"yes", L"YES", L" Yes", L"True", L"1", L"", L"No"}) {
        Store(L"Recursive", text);
        EXPECT_FALSE(Loaded().rbRecursive) << text;
    }
}

TEST_F(BackupSetTest, ReadsSelectedAloneWhenItIsFalse) {
    for (const wchar_t* text : {L"False", L"false", L"0"}) {
        settings.Reads.clear();
        Store(L"Selected", text);
        EXPECT_FALSE(LoadBackupSet(settings, L"A")) << text;
        EXPECT_EQ(std::vector<std::wstring>{L"Selected"}, KeysRead());
    }
}

TEST_F(BackupSetTest, IsSelectedByTrueAndByAnyNumberButZero) {
    for (const wchar_t* text : {L"True", L"true", L"-1", L"7"}) {
        Store(L"Selected", text);
        EXPECT_TRUE(LoadBackupSet(settings, L"A")) << text;
    }
}

TEST_F(BackupSetTest, FailsWhenSelectedIsNoBoolean) {
    for (const wchar_t* text : {L"Yes", L"", L"maybe"}) {
        Store(L"Selected", text);
        EXPECT_EQ(ErrorNumber::TypeMismatch,
                  RuntimeErrorOf([this] { (void)LoadBackupSet(settings, L"A"); }))
            << text;
    }
}

TEST_F(BackupSetTest, LetsTheFailureOfEachReadThrough) {
    TickEverything();
    Store(L"CopyType", L"ArchiveBit");
    int failing = 1;
    for (;; ++failing) {
        FailingSettingsStore store(settings, failing, ErrorNumber::PermissionDenied);
        const auto error = RuntimeErrorOf([&] { (void)LoadBackupSet(store, L"A"); });
        if (!store.HasFailed()) {
            EXPECT_FALSE(error);
            break;
        }
        EXPECT_EQ(ErrorNumber::PermissionDenied, error) << failing;
    }
    EXPECT_EQ(9, failing);
}

}  // namespace
}  // namespace ambrio
