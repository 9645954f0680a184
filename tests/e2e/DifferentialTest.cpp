// The scheme "Differential", chosen in the dialogs and then run.

#include <gtest/gtest.h>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/RuleTest.h"

namespace ambrio::e2e {
namespace {

class DifferentialTest : public RuleTest, public DialogTest {
  protected:
    // Makes the Set "Documents" with the scheme and ticks it.
    void AddTheSet() {
        const WindowProbe configuration = OpenConfiguration();
        const WindowProbe properties = Open(configuration, IDC_CMD_NEW, kNewSet);
        SetText(properties, IDC_TXT_SET, L"Documents");
        SetText(properties, IDC_TXT_FOLDER_0, Source.Root());
        SetText(properties, IDC_TXT_FOLDER_1, Destination());
        for (int entry = 0; entry < 2; ++entry) {
            Tell(At(properties, IDC_LST_SCHEME), WM_KEYDOWN, VK_DOWN);
        }
        EXPECT_EQ(TextOf(properties, IDC_LST_SCHEME), L"Differential");
        EXPECT_TRUE(Closes(properties, IDOK));
        EXPECT_TRUE(SetsBecome(configuration, L">Documents|"));
        TypeIntoSets(configuration, L' ');
        EXPECT_TRUE(Closes(configuration, IDOK));
        EXPECT_TRUE(Ends());
    }

    // Looks at the properties of the Set, which are to tick or not to tick the removal of copies,
    // and agrees to them.
    void OpenAndAgree(bool ticked) {
        const WindowProbe configuration = OpenConfiguration();
        const WindowProbe properties =
            Open(configuration, IDC_CMD_PROPERTIES, L"Documents Properties");
        EXPECT_EQ(TextOf(properties, IDC_LST_SCHEME), L"Differential");
        EXPECT_EQ(At(properties, IDC_CHK_DELETE_COPY_ARCHIVE).Send(BM_GETCHECK), ticked ? 1 : 0);
        EXPECT_TRUE(Closes(properties, IDOK));
        EXPECT_TRUE(Closes(configuration, IDOK));
        EXPECT_TRUE(Ends());
    }

    [[nodiscard]] std::optional<std::wstring> Stored(const wchar_t* key) const {
        return Settings.Read(L"Documents", key);
    }
};

TEST_F(DifferentialTest, KeepsCopiesOfWhatHasChangedSinceTheLastFullBackup) {
    AddTheSet();
    EXPECT_EQ(Stored(L"CopyType"), L"ArchiveBit");
    EXPECT_EQ(Stored(L"ClearArchiveBit"), L"No");
    EXPECT_EQ(Stored(L"DeleteCopyArchiveBit"), L"Yes");

    Source.AddFile(L"a", "a").AddFile(L"sub\\b", "b");
    RunAndExpect({.Checked = 2, .Copied = 2});
    EXPECT_TRUE(HasArchiveBit(L"a"));
    RunAndExpect({.Checked = 2});

    Source.AddFile(L"a", "a, changed", 60);
    RunAndExpect({.Checked = 2, .Copied = 1});
    EXPECT_EQ(ReadFileBytes(CopyOf(L"a")), "a, changed");

    // A full backup makes the copies needless.
    for (const wchar_t* name : {L"a", L"sub\\b"}) {
        ClearArchiveBit(name);
    }
    RunAndExpect({.Checked = 2, .Removed = 2});
    RunAndExpect({.Checked = 2});

    Source.AddFile(L"sub\\b", "b, changed", 50);
    RunAndExpect({.Checked = 2, .Copied = 1});
    EXPECT_FALSE(FileExists(CopyOf(L"a")));
    EXPECT_EQ(ReadFileBytes(CopyOf(L"sub\\b")), "b, changed");
}

// Wanted: the properties read "DeleteCopyArchive", which nobody writes, and write
// "DeleteCopyArchiveBit", by which the run goes.
TEST_F(DifferentialTest, StopsRemovingCopiesOnceItsPropertiesAreAgreedToAgain) {
    AddTheSet();
    Source.AddFile(L"a", "a");
    RunAndExpect({.Checked = 1, .Copied = 1});
    OpenAndAgree(false);
    EXPECT_EQ(Stored(L"DeleteCopyArchiveBit"), L"No");
    EXPECT_EQ(Stored(L"Scheme"), L"Differential");
    ClearArchiveBit(L"a");
    RunAndExpect({.Checked = 1});
    EXPECT_TRUE(FileExists(CopyOf(L"a")));

    Settings.Write(L"Documents", L"DeleteCopyArchive", L"Yes");
    RunAndExpect({.Checked = 1});
    EXPECT_TRUE(FileExists(CopyOf(L"a"))) << "the run has read the dialog's key";
    OpenAndAgree(true);
    EXPECT_EQ(Stored(L"DeleteCopyArchiveBit"), L"Yes");
    RunAndExpect({.Checked = 1, .Removed = 1});
    EXPECT_FALSE(FileExists(CopyOf(L"a")));
}

}  // namespace
}  // namespace ambrio::e2e
