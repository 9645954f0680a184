// The about box's way to the system's information tool, which two places of the registry can name.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {
namespace {

const std::wstring kToolKey = std::wstring(kMachine) + L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const std::wstring kPlacesKey =
    std::wstring(kMachine) + L"SOFTWARE\\Microsoft\\Shared Tools Location";

class SystemToolTest : public DialogTest {
  protected:
    SystemToolTest() : folder_(Folder.Below(L"The tools")), tool_(folder_ + L"\\MSINFO32.EXE") {
        MakeFolders(folder_);
        for (const std::wstring& key : {kToolKey, kPlacesKey}) {
            // What the user may not change counts as missing, so nothing need be put aside.
            if (MayChangeKey(key)) {
                guards_.push_back(std::make_unique<RegistryTreeGuard>(key));
            }
        }
    }

    // Skips the test where the keys cannot be changed.
    void SetUp() override {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        if (guards_.size() < 2 && name != "ThereIsNone") {
            GTEST_SKIP() << "the machine's registry cannot be written with these rights";
        }
    }
    void InstallTool() {
        WriteFileBytes(tool_, ReadFileBytes(TestProgramFolder() + L"\\StandInSaver.scr"));
    }
    [[nodiscard]] WindowProbe Ask() {
        configuration_ = OpenConfiguration();
        const WindowProbe about = Open(*configuration_, IDC_CMD_ABOUT, L"About Ambrio");
        Press(about, IDC_CMD_SYS_INFO);
        return about;
    }
    void Close(const WindowProbe& about) {
        EXPECT_TRUE(Closes(about, IDOK));
        EXPECT_TRUE(ClosesByItsBox(*configuration_));
        EXPECT_TRUE(Ends());
    }
    void ExpectUnavailable() {
        const WindowProbe about = Ask();
        const MessageBoxProbe box = WaitForBox();
        EXPECT_EQ(box.Text(), L"System Information Is Unavailable At This Time");
        EXPECT_EQ(box.ButtonTexts(), std::vector<std::wstring>{L"OK"});
        EXPECT_TRUE(box.Press());
        Close(about);
    }
    void ExpectStarted() {
        const WindowProbe about = Ask();
        EXPECT_TRUE(WaitUntil([] { return ReadText(kStandInKey, kSaverCommandLine).has_value(); }));
        const std::wstring line = ReadText(kStandInKey, kSaverCommandLine).value_or(L"");
        EXPECT_NE(line.find(tool_), std::wstring::npos);
        EXPECT_EQ(ReadNumber(kStandInKey, kSaverShowState), static_cast<DWORD>(SW_SHOWNORMAL));
        EXPECT_FALSE(MessageBoxProbe::Find(Program().ProcessId()));
        Close(about);
    }

    const std::wstring folder_;
    const std::wstring tool_;

  private:
    const RegistryTreeGuard standIn_{kStandInKey};
    std::vector<std::unique_ptr<RegistryTreeGuard>> guards_;
    std::optional<WindowProbe> configuration_;
};

TEST_F(SystemToolTest, ThereIsNone) {
    ExpectUnavailable();
}

TEST_F(SystemToolTest, TheFirstPlaceNamesTheFile) {
    InstallTool();
    WriteText(kToolKey, L"PATH", tool_);
    ExpectStarted();
}

TEST_F(SystemToolTest, TheSecondPlaceNamesTheFolder) {
    InstallTool();
    WriteText(kPlacesKey, L"MSINFO", folder_);
    ExpectStarted();
}

TEST_F(SystemToolTest, TheFolderHasNoTool) {
    WriteText(kPlacesKey, L"MSINFO", folder_);
    ExpectUnavailable();
}

TEST_F(SystemToolTest, TheFirstPlaceNamesAFileThatIsGone) {
    WriteText(kToolKey, L"PATH", tool_);
    ExpectUnavailable();
}

}  // namespace
}  // namespace ambrio::e2e
