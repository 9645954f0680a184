// The keyboard's way through the dialogs into a run, and the mouse's short ways in the list.

#include <gtest/gtest.h>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

class KeyboardTest : public DialogTest {
  protected:
    static void Press(WORD key, int times = 1) {
        for (int i = 0; i < times; ++i) {
            PressKey(key);
        }
    }
    [[nodiscard]] static bool HasFocus(const WindowProbe& dialog, int control) {
        return WaitUntil([&] {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            GetGUIThreadInfo(GetWindowThreadProcessId(dialog.Handle(), nullptr), &info);
            return info.hwndFocus == At(dialog, control).Handle();
        });
    }
    // The middle of a line of the list of Sets, counted from 0, that part of the way across; on the
    // screen.
    [[nodiscard]] static POINT PlaceOf(const WindowProbe& dialog, int line, double across) {
        const WindowProbe list = At(dialog, IDC_LST_SETS);
        const RECT place = list.Rectangle();
        const auto height = static_cast<LONG>(list.Send(LB_GETITEMHEIGHT).value_or(0));
        return {place.left + static_cast<LONG>(across * (place.right - place.left)),
                place.top + height * line + height / 2};
    }
    static void DoubleClick(POINT place) {
        ClickAt(place);
        ClickAt(place);
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
    // From the list over the two moving buttons to the new one.
    Press(VK_TAB, 3);
    Press(VK_SPACE);
    TypeSet(L"a", Folder.Below(L"a"), Folder.Below(L"to-a"));
    // The list has the focus then, and the space bar ticks the new entry.
    ASSERT_TRUE(SetsBecome(dialog, L">a|"));
    ASSERT_TRUE(HasFocus(dialog, IDC_LST_SETS));
    Press(VK_SPACE);
    ASSERT_TRUE(SetsBecome(dialog, L">+a|"));
    Press(VK_INSERT);
    TypeSet(L"b", Folder.Below(L"b"), Folder.Below(L"to-b"));
    ASSERT_TRUE(SetsBecome(dialog, L"+a|>b|"));
    ASSERT_TRUE(HasFocus(dialog, IDC_LST_SETS));
    Press(VK_SPACE);
    Press(VK_UP);
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

TEST_F(KeyboardTest, AFolderThatWasBegunIsCompleted) {
    if (RunsOnWine()) {
        GTEST_SKIP() << "Wine's shell completes nothing that is typed";
    }
    MakeFolders(Folder.Below(L"Begun\\Inner folder"));
    WriteFileBytes(Folder.Below(L"Begun\\Inner file"), "file");
    const WindowProbe dialog = OpenProperties(L"S");
    SetText(dialog, IDC_TXT_FOLDER_0, L"");
    const std::wstring begun = Folder.Below(L"Begun\\Inn");
    TypeText(begun.c_str());
    // The list of what there is comes up when the shell has found it; files are not in it.
    EXPECT_TRUE(WaitUntil([&] {
        Press(VK_DOWN);
        return TextOf(dialog, IDC_TXT_FOLDER_0) == Folder.Below(L"Begun\\Inner folder");
    }));
    Press(VK_ESCAPE);
    EXPECT_TRUE(ClosesByItsBox(dialog));
    CloseConfiguration();
}

TEST_F(KeyboardTest, InsertAndDeleteAreNewSetAndRemove) {
    Settings.Write(L"General", L"Sets", L"A,B");
    const WindowProbe dialog = OpenConfiguration();
    Press(VK_DELETE);
    const MessageBoxProbe question = WaitForBox();
    EXPECT_TRUE(question.Text().starts_with(L"About to remove A\r"));
    EXPECT_TRUE(question.Press(0));
    EXPECT_TRUE(SetsBecome(dialog, L">+B|"));
    Press(VK_INSERT);
    const WindowProbe properties = WindowTitled(kNewSet);
    Press(VK_ESCAPE);
    EXPECT_TRUE(WaitUntil([&] { return !properties.Exists(); }));
    EXPECT_TRUE(HasFocus(dialog, IDC_LST_SETS));
    Press(VK_RETURN);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"B");
}

TEST_F(KeyboardTest, ANewSetThatIsCancelledLeavesTheFocusAtItsButton) {
    const WindowProbe dialog = OpenConfiguration();
    Press(VK_TAB, 3);
    Press(VK_SPACE);
    const WindowProbe properties = WindowTitled(kNewSet);
    Press(VK_ESCAPE);
    EXPECT_TRUE(WaitUntil([&] { return !properties.Exists() && dialog.IsEnabled(); }));
    EXPECT_TRUE(HasFocus(dialog, IDC_CMD_NEW));
    CloseConfiguration();
}

TEST_F(KeyboardTest, ADoubleClickOnANameShowsItsPropertiesAndOnABoxTicksTwice) {
    Settings.Write(L"General", L"Sets", L"A,B");
    const WindowProbe dialog = OpenConfiguration();
    DoubleClick(PlaceOf(dialog, 1, 0.5));
    EXPECT_TRUE(Closes(WindowTitled(L"B Properties"), IDCANCEL));
    EXPECT_TRUE(SetsBecome(dialog, L"+A|>+B|"));
    // Had it been left to the list box, the dialog would be there when the answer comes.
    DoubleClick(PlaceOf(dialog, 0, 0.03));
    EXPECT_TRUE(SetsBecome(dialog, L">+A|+B|"));
    EXPECT_TRUE(dialog.IsEnabled());
    ClickAt(PlaceOf(dialog, 0, 0.03));
    EXPECT_TRUE(SetsBecome(dialog, L">A|+B|"));
    DoubleClick(PlaceOf(dialog, 4, 0.5));
    Tell(At(dialog, IDC_LST_SETS), WM_NULL);
    EXPECT_TRUE(dialog.IsEnabled()) << "there is no entry";
    CloseConfiguration();
}

}  // namespace
}  // namespace ambrio::e2e
