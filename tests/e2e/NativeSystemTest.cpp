// What lies in System32 of a 64-bit system, where a 32-bit program is shown another folder. On a
// 32-bit system there is nothing to be seen, and every test is skipped.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/NativeFiles.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/e2e/support/Text.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

constexpr const wchar_t* kSaver = L"AmbrioStandIn";

// The test itself sees every path as the user's other programs do.
class NativeSystemTest : public SaverTest, public DialogTest {
  protected:
    void SetUp() override {
        if (!HasTwoSystemFolders()) {
            GTEST_SKIP() << "this system has one System folder only";
        }
        if (CreateDirectoryW(place_.c_str(), nullptr) == 0) {
            GTEST_SKIP() << "the system's folders cannot be written with these rights";
        }
    }
    ~NativeSystemTest() override {
        RemoveTree(place_);
        RemoveTree(inItsPlace_);
    }

    void Install(const std::wstring& folder) {
        savers_.push_back(std::make_unique<SystemFile>(TestProgramFolder() + L"\\StandInSaver.scr",
                                                       folder + L"\\" + kSaver + L".scr"));
        ASSERT_TRUE(savers_.back()->IsInstalled());
    }

    // Stored and offered once, it must show its settings and be started after a run.
    void ExpectChosenAndStarted(const std::wstring& folder, const std::wstring& realFolder) {
        const std::wstring name = std::wstring(L"\\") + kSaver + L".scr";
        Settings.Write(L"General", L"Secondary SS", kSaver);
        const WindowProbe dialog = OpenConfiguration();
        EXPECT_EQ(TextOf(dialog, IDC_CBO_SS), kSaver);
        EXPECT_EQ(TimesOffered(dialog), 1);
        Press(dialog, IDC_CMD_SETTINGS);
        EXPECT_EQ(LineOfTheSaver(), folder + name + L" /c");
        EXPECT_EQ(ReadText(kStandInKey, kSaverPath), realFolder + name);
        CloseConfiguration();
        RemoveKeyTree(kStandInKey);

        WriteOneSet();
        Start(L"/S");
        EXPECT_EQ(LineOfTheSaver(), std::wstring(kSaver) + L".scr /s");
        EXPECT_EQ(ReadText(kStandInKey, kSaverPath), realFolder + name);
        EXPECT_TRUE(WaitForBox().Press());
        EXPECT_TRUE(Ends());
    }

    const std::wstring name_ = L"\\Ambrio test " + std::to_wstring(GetCurrentProcessId());
    // Folders of one name, the real one and the one that 32-bit programs are shown.
    const std::wstring place_ = SystemFolder() + name_;
    const std::wstring inItsPlace_ = OtherSystemFolder() + name_;

  private:
    static std::wstring LineOfTheSaver() {
        EXPECT_TRUE(WaitUntil([] { return ReadText(kStandInKey, kSaverCommandLine).has_value(); }));
        return ReadText(kStandInKey, kSaverCommandLine).value_or(L"");
    }
    static int TimesOffered(const WindowProbe& dialog) {
        const WindowProbe box = At(dialog, IDC_CBO_SS);
        const auto count = static_cast<int>(box.Send(CB_GETCOUNT).value_or(0));
        int times = 0;
        for (int i = 0; i < count; ++i) {
            Tell(box, CB_SETCURSEL, static_cast<WPARAM>(i));
            times += box.Text() == kSaver ? 1 : 0;
        }
        Tell(box, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(kSaver));
        return times;
    }

    NativeFiles native_;
    RegistryTreeGuard standIn_{kStandInKey};
    std::vector<std::unique_ptr<SystemFile>> savers_;
};

TEST_F(NativeSystemTest, IsBackedUpAndNotTheFolderThatIsShownInItsPlace) {
    WriteFileBytes(place_ + L"\\file.txt", "real");
    MakeFolders(inItsPlace_);
    WriteFileBytes(inItsPlace_ + L"\\file.txt", "shown in its place");
    Settings.WriteSets({{L"System", place_, Destination()}});
    RunToTheEnd();
    EndByKey();
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\file.txt"), "real");
}

TEST_F(NativeSystemTest, MayHoldTheProgramWithItsClipAndItsLog) {
    const ProgramFolder there(L"Ambrio.scr", place_);
    Source.AddManyFiles(L"many", 150);
    Settings.WriteSets({{L"Documents", Source.Root(), Destination()},
                        {L"Gone", Source.PathOf(L"missing"), Destination()}});
    Start(L"/S", there);
    ASSERT_TRUE(WaitUntil([&] { return Panel().Number(PanelControl::lblcopied) > 0; }));
    const auto clip = Saver().Control(static_cast<int>(PanelControl::Animation1));
    ASSERT_TRUE(clip);
    EXPECT_EQ(clip->Send(ACM_PLAY, 1, MAKELPARAM(0, 0)), TRUE) << "no clip is open";
    WaitForTheEndOfTheRun();
    EXPECT_EQ(Panel().Caption(PanelControl::lblSet),
              std::wstring(kAllSetsProcessed) + L"<ERRORS reported>\r\nsee " + there.LogFile());
    EndByKeyAndBox();
    EXPECT_TRUE(LogText(there.LogFile()).Contains(L"'Documents' complete"));
    EXPECT_FALSE(FolderExists(inItsPlace_));
}

TEST_F(NativeSystemTest, OffersAndStartsASaverThatIsThereAlone) {
    Install(SystemFolder());
    ExpectChosenAndStarted(SystemFolder(), SystemFolder());
}

TEST_F(NativeSystemTest, OffersAndStartsASaverThatIsInTheOtherFolderAlone) {
    Install(OtherSystemFolder());
    ExpectChosenAndStarted(OtherSystemFolder(), OtherSystemFolder());
}

TEST_F(NativeSystemTest, OffersASaverOnceThatIsInBothAndStartsTheOneThatIsThere) {
    Install(OtherSystemFolder());
    Install(SystemFolder());
    ExpectChosenAndStarted(SystemFolder(), SystemFolder());
}

}  // namespace
}  // namespace ambrio::e2e
