#include "engine/SetLoop.h"

#include <gtest/gtest.h>

#include "engine/EngineTexts.h"
#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

class SetLoopTest : public testing::Test {
  protected:
    void AddSets(const Lines& names) {
        for (const std::wstring& name : names) {
            Bench.Files.WriteFile(L"C:\\" + name + L"\\file.txt", "x");
            Bench.AddSet(name, L"C:\\" + name, L"C:\\Copy of " + name);
        }
    }
    [[nodiscard]] bool Ran(const std::wstring& name) {
        return Bench.Files.FileExists(L"C:\\Copy of " + name + L"\\file.txt");
    }
    [[nodiscard]] std::wstring SetCaption() const {
        return Bench.Panel.Caption(PanelLabel::lblSet);
    }

    EngineBench Bench;
};

TEST_F(SetLoopTest, WithoutSetsOnlySaysSo) {
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({kNoSets,
                              L"Of 0 files checked, 0 were copied; 0 copies were "
                              L"removed."}));
    EXPECT_EQ(SetCaption(), L"-");
    Bench.Set(kGeneralSection, kSetsKey, L"");
    Bench.Run();
    EXPECT_EQ(SetCaption(), L"-");
}

// The events of a Set with one new file: before its copy, during it, after it.
TEST_F(SetLoopTest, AnInterruptDuringTheSecondOfThreeSetsLeavesTheThirdAlone) {
    AddSets({L"A", L"B", L"C"});
    Bench.Host.OnDoEvents = [&](int) { Bench.Signals.Interrupted = SetCaption() == L"B"; };
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"'A' start", L"'A' complete", L"'B' start", L"'B' complete"}));
    EXPECT_FALSE(Bench.HasLog({L"'C' start"}));
    EXPECT_TRUE(Ran(L"A") && Ran(L"B") && !Ran(L"C"));
    EXPECT_EQ(SetCaption(), L"");
}

TEST_F(SetLoopTest, TheDrivesOfEachSelectedSetAreConnectedBeforeItsFoldersAreLookedFor) {
    AddSets({L"A", L"B", L"C"});
    Bench.Set(L"B", kSelectedKey, L"False");
    Bench.Set(L"C", kSourceKey, L"Q:\\Data");
    Bench.Host.OnReconnect = [&] {
        Bench.Files.SetVolume(L"Q:", true);
        Bench.Files.WriteFile(L"Q:\\Data\\file.txt", "x");
    };
    Bench.Run();
    EXPECT_EQ(Bench.Host.Reconnected,
              (Lines{L"C:\\A", L"C:\\Copy of A", L"Q:\\Data", L"C:\\Copy of C"}));
    EXPECT_TRUE(Ran(L"A") && !Ran(L"B") && Ran(L"C"));
}

TEST_F(SetLoopTest, AnInterruptedRunConnectsNoMoreDrives) {
    AddSets({L"A", L"B"});
    Bench.Host.OnReconnect = [&] { Bench.Signals.Interrupted = true; };
    Bench.Run();
    EXPECT_EQ(Bench.Host.Reconnected, Lines{L"C:\\A"});
}

// Wanted: nobody asks after the last Set.
TEST_F(SetLoopTest, AnInterruptDuringTheLastSetStillShowsTheEndOfTheList) {
    AddSets({L"A"});
    Bench.InterruptAtEvent(1);
    Bench.Run();
    EXPECT_EQ(SetCaption(), kAllSetsProcessed);
}

TEST_F(SetLoopTest, OneNameWithoutACommaRunsToTheEndOfTheList) {
    AddSets({L"A"});
    Bench.Run();
    EXPECT_TRUE(Ran(L"A"));
    EXPECT_EQ(SetCaption(), L"<All sets processed>");
    EXPECT_EQ(Bench.Panel.Caption(PanelLabel::lblFile), L"");
}

TEST_F(SetLoopTest, NamesAreTrimmed) {
    AddSets({L"A", L"B"});
    Bench.Set(kGeneralSection, kSetsKey, L" A , B ");
    Bench.Run();
    EXPECT_TRUE(Ran(L"A") && Ran(L"B"));
}

TEST_F(SetLoopTest, ASetWithoutASectionRunsWithEmptyFolders) {
    Bench.Set(kGeneralSection, kSetsKey, L"Ghost");
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"'Ghost' start", L"Error <> does not exist.", L"'Ghost' complete"}));
    EXPECT_EQ(SetCaption(), L"<All sets processed><ERRORS reported>\r\nsee C:\\Ambrio\\Ambrio.log");
}

TEST_F(SetLoopTest, ASetThatIsNotSelectedLeavesOneLineAndNothingElse) {
    AddSets({L"A", L"B"});
    Bench.Set(L"A", kSelectedKey, L"False");
    Bench.Run();
    EXPECT_TRUE(
        Bench.HasLog({L"Ambrio start 11/21/2026 3:49:46 PM", L"'A' not selected", L"'B' start"}));
    EXPECT_FALSE(Ran(L"A"));
    EXPECT_TRUE(Ran(L"B"));
}

TEST_F(SetLoopTest, LogOnlyErrorsLeavesOutTheLinesOfTheSets) {
    AddSets({L"A", L"B"});
    Bench.Set(L"A", kSelectedKey, L"False");
    Bench.AddSet(L"Ghost", L"", L"");
    Bench.Set(kGeneralSection, kLogOnlyErrorsKey, kYes);
    Bench.Run();
    EXPECT_EQ(Bench.Log().at(2), L"Error <> does not exist.");
    EXPECT_TRUE(Bench.Log().at(3).starts_with(L"Of "));
}

TEST_F(SetLoopTest, LabelsFollowTheSetAndAreEmptiedAfterIt) {
    AddSets({L"A"});
    Bench.Run();
    Lines captions;
    for (const std::wstring& event : Bench.Panel.Events) {
        if (event.starts_with(L"lblSet") || event.starts_with(L"lblSource") ||
            event.starts_with(L"lblDest")) {
            captions.push_back(event);
        }
    }
    EXPECT_EQ(captions,
              (Lines{L"lblSet=A", L"lblSource=C:\\A", L"lblDest=C:\\Copy of A", L"lblSet=",
                     L"lblSource=", L"lblDest=", L"lblSet=<All sets processed>"}));
}

}  // namespace
}  // namespace ambrio
