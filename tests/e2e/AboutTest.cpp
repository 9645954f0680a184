// The about box, used from outside.

#include <gtest/gtest.h>

#include "ProductVersion.h"
#include "tests/e2e/support/DialogTest.h"

namespace ambrio::e2e {
namespace {

class AboutTest : public DialogTest {};

TEST_F(AboutTest, TellsWhatItIsAndClosesByOkEnterAndItsBox) {
    const std::wstring version = L"Version " + std::to_wstring(AMBRIO_VERSION_MAJOR) + L"." +
                                 std::to_wstring(AMBRIO_VERSION_MINOR) + L"." +
                                 std::to_wstring(AMBRIO_VERSION_REVISION);
    const WindowProbe configuration = OpenConfiguration();
    const auto open = [&] { return Open(configuration, IDC_CMD_ABOUT, L"About Ambrio"); };
    WindowProbe about = open();
    EXPECT_EQ(TextOf(about, IDC_LBL_TITLE), L"Ambrio");
    EXPECT_EQ(TextOf(about, IDC_LBL_VERSION), version);
    EXPECT_FALSE(configuration.IsEnabled());
    EXPECT_TRUE(Closes(about, IDOK));
    EXPECT_TRUE(configuration.IsEnabled());
    about = open();
    PressKey(VK_ESCAPE);  // there is no Cancel that it could press
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return !about.Exists(); }));
    EXPECT_TRUE(ClosesByItsBox(open()));
    EXPECT_TRUE(ClosesByItsBox(configuration));
    EXPECT_TRUE(Ends());
}

}  // namespace
}  // namespace ambrio::e2e
