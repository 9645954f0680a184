// The keyboard's way through the dialogs into a run.

#include <gtest/gtest.h>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {
namespace {

class KeyboardTest : public DialogTest {
  protected:
    static void Press(WORD key, int times = 1) {
        for (int i = 0; i < times; ++i) {
            PressKey(key);
        }
    }
    // Fills a new Set from its first box on and presses OK by Enter.
    void TypeSet(const std::wstring& name, const std::wstring& source,
                 const std::wstring& destination) {
        const WindowProbe properties = WindowTitled(kNewSet);
        TypeText(name.c_str());
        Press(VK_TAB);
        TypeText(source.c_str());
        Press(VK_TAB, 2);
        TypeText(destination.c_str());
        Press(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !properties.Exists(); }));
    }
};

TEST_F(KeyboardTest, ConfiguresTwoSetsThatARunThenCopies) {
    for (const wchar_t* name : {L"a", L"b"}) {
        MakeFolders(Folder.Below(name));
        WriteFileBytes(Folder.Below(name) + L"\\file.txt", "content");
    }
    const WindowProbe dialog = OpenConfiguration();
    for (const wchar_t* name : {L"a", L"b"}) {
        // From the list over the two moving buttons to the new one.
        ASSERT_TRUE(WaitUntil([&] { return dialog.IsEnabled(); }));
        Press(VK_TAB, std::wstring(name) == L"a" ? 3 : 0);
        Press(VK_SPACE);
        TypeSet(name, Folder.Below(name), Folder.Below(std::wstring(L"to-") + name));
    }
    ASSERT_TRUE(SetsBecome(dialog, L"a|>b|"));
    // Back to the list, where the space bar ticks.
    keybd_event(VK_SHIFT, 0, 0, 0);
    Press(VK_TAB, 3);
    keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    Press(VK_SPACE);
    Press(VK_UP);
    Press(VK_SPACE);
    ASSERT_TRUE(SetsBecome(dialog, L">+a|+b|"));
    Press(VK_ESCAPE);
    Press(VK_RETURN);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"a,b");
    for (const wchar_t* name : {L"a", L"b"}) {
        EXPECT_EQ(Settings.Read(name, L"Source"), Folder.Below(name));
        EXPECT_EQ(Settings.Read(name, L"Destination"), Folder.Below(std::wstring(L"to-") + name));
    }
    Start(L"/S");
    EXPECT_TRUE(WaitUntil([&] {
        return FileExists(Folder.Below(L"to-a\\file.txt")) &&
               FileExists(Folder.Below(L"to-b\\file.txt"));
    }));
    PressKey(VK_SPACE);
    EXPECT_TRUE(Ends());
}

}  // namespace
}  // namespace ambrio::e2e
