// The about box, used from outside.

#include <gtest/gtest.h>

#include "tests/e2e/support/DialogTest.h"

namespace ambrio::e2e {
namespace {

class AboutTest : public DialogTest {};

TEST_F(AboutTest, TellsThatThereIsNoSystemInformation) {
    for (const wchar_t* key : {L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO",
                               L"SOFTWARE\\Microsoft\\Shared Tools Location"}) {
        HKEY opened = nullptr;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, key, 0, KEY_READ, &opened) == ERROR_SUCCESS) {
            RegCloseKey(opened);
            GTEST_SKIP() << "this system has the tool";
        }
    }
    const WindowProbe configuration = OpenConfiguration();
    const WindowProbe about = Open(configuration, IDC_CMD_ABOUT, L"About Ambrio");
    Press(about, IDC_CMD_SYS_INFO);
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Text(), L"System Information Is Unavailable At This Time");
    EXPECT_EQ(box.ButtonTexts(), std::vector<std::wstring>{L"OK"});
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Closes(about, IDOK));
    EXPECT_TRUE(ClosesByItsBox(configuration));
    EXPECT_TRUE(Ends());
}

}  // namespace
}  // namespace ambrio::e2e
