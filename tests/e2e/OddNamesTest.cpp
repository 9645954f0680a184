// Names and paths that nobody would type, through the dialogs into the store and back.

#include <gtest/gtest.h>

#include <array>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

// The longest is as long as the registry lets a name be.
const std::array<std::wstring, 9> kNames = {
    L"\"quoted\" 'name'",
    L"back\\slash",
    L"A & B && C",
    L"%TEMP% 100%",
    L"\u0414\u043e\u043a\u0443\u043c\u0435\u043d\u0442\u044b \u03b5\u03bb \u00e9",
    L"\u6587\u4ef6 \u65e5\u672c\u8a9e \ud55c\uad6d\uc5b4",
    L"\u05e9\u05dc\u05d5\u05dd \u0645\u0644\u0641\u0627\u062a \u0e44\u0e1f\u0e25\u0e4c",
    L"\xd83d\xdcbe e\u0301",
    std::wstring(255, L'n'),
};

const std::array<std::wstring, 5> kPaths = {
    L"C:\\no such folder\\at all", L"\\\\server\\share\\a, \"b\" & c",
    L"D:\\" + std::wstring(400, L'p'), L"\u65e5\u672c", L"a|b<c>d*e?"};

class OddNamesTest : public DialogTest {};

TEST_F(OddNamesTest, NamesOfEveryKindBecomeSetsAndComeBack) {
    WindowProbe dialog = OpenConfiguration();
    std::wstring joined;
    std::wstring shown;
    for (const std::wstring& name : kNames) {
        AddSet(dialog, name, L"C:\\" + std::to_wstring(name.size()), L"D:\\x");
        joined += (joined.empty() ? L"" : L",") + name;
        shown += name + L"|";
    }
    ASSERT_TRUE(WaitUntil([&] { return SetsOf(dialog).ends_with(L">" + kNames.back() + L"|"); }));
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), joined);

    dialog = OpenConfiguration();
    EXPECT_EQ(SetsOf(dialog), L">" + shown);
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const std::wstring& name = kNames[i];
        EXPECT_EQ(Settings.Read(name, L"Selected"), L"False") << Utf8(name);
        EXPECT_EQ(Settings.Read(name, L"Source"), L"C:\\" + std::to_wstring(name.size()))
            << Utf8(name);
        MakeCurrent(dialog, static_cast<int>(i));
        const WindowProbe properties = Open(dialog, IDC_CMD_PROPERTIES, name + L" Properties");
        EXPECT_EQ(TextOf(properties, IDC_TXT_SET), name);
        EXPECT_TRUE(Closes(properties, IDCANCEL));
    }
    CloseConfiguration();
    // The general section and one for each; the one with the separator lies below another.
    EXPECT_EQ(Settings.Sections().size(), kNames.size() + 1);
}

TEST_F(OddNamesTest, ANameWithACommaComesBackAsTwo) {
    WindowProbe dialog = OpenConfiguration();
    AddSet(dialog, L"A,B", L"C:\\ab", L"D:\\ab");
    ASSERT_TRUE(SetsBecome(dialog, L">A,B|"));
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"A,B");
    EXPECT_EQ(Settings.Read(L"A,B", L"Source"), L"C:\\ab");
    dialog = OpenConfiguration();
    EXPECT_EQ(SetsOf(dialog), L">+A|+B|");
    CloseConfiguration();
}

TEST_F(OddNamesTest, AStoredNameThatTheRegistryRefusesKeepsTheListUntilItIsRemoved) {
    const std::wstring sets = L"A," + std::wstring(300, L'n');
    Settings.Write(L"General", L"Sets", sets);
    const WindowProbe dialog = OpenConfiguration();
    Press(dialog, IDOK);
    EXPECT_TRUE(WaitForBox().Press());
    EXPECT_TRUE(dialog.Exists());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), sets);
    EXPECT_EQ(Settings.Keys(L"General"), std::vector<std::wstring>{L"Sets"});
    MakeCurrent(dialog, 1);
    Press(dialog, IDC_CMD_REMOVE);
    EXPECT_TRUE(WaitForBox().Press(0));
    EXPECT_TRUE(SetsBecome(dialog, L">+A|"));
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"A");
}

TEST_F(OddNamesTest, ANameOfBlanksIsTrimmedToNothingAndAddsNoSet) {
    const WindowProbe dialog = OpenConfiguration();
    AddSet(dialog, L"   ", L"C:\\blank", L"D:\\blank");
    EXPECT_TRUE(WaitUntil([&] { return dialog.IsEnabled(); }));
    EXPECT_EQ(SetsOf(dialog), L"");
    EXPECT_EQ(Settings.Read(L"", L"Source"), L"C:\\blank");
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"");
    EXPECT_EQ(Settings.Sections(), std::vector<std::wstring>{L"General"});
}

TEST_F(OddNamesTest, PathsOfEveryKindAreStoredAndComeBackAsTyped) {
    Settings.Write(L"Other", L"Source", L"untouched");
    WindowProbe properties = OpenProperties(L"S");
    for (const std::wstring& path : kPaths) {
        SetText(properties, IDC_TXT_FOLDER_0, L" " + path + L"  ");
        SetText(properties, IDC_TXT_FOLDER_1, path);
        EXPECT_TRUE(Closes(properties, IDOK));
        EXPECT_EQ(Settings.Read(L"S", L"Source"), path) << Utf8(path);
        properties = Open(WindowTitled(kConfiguration), IDC_CMD_PROPERTIES, L"S Properties");
        EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_0), path);
        EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_1), path);
    }
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseConfiguration();
    EXPECT_EQ(Settings.Sections(), (std::vector<std::wstring>{L"General", L"Other", L"S"}));
    EXPECT_EQ(Settings.Keys(L"Other"), std::vector<std::wstring>{L"Source"});
    EXPECT_EQ(Settings.Read(L"Other", L"Source"), L"untouched");
    EXPECT_EQ(Settings.Keys(L"General"), std::vector<std::wstring>{L"Sets"});
}

}  // namespace
}  // namespace ambrio::e2e
