// Messages that another program makes up: they neither end the program nor make it do anything.

#include <gtest/gtest.h>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

// Where nothing can be read or written.
constexpr ULONG_PTR kNowhere = 16;

CREATESTRUCTW ForgedCreation() {
    CREATESTRUCTW creation{};
    creation.lpCreateParams = reinterpret_cast<void*>(kNowhere);
    creation.lpszName = L"forged";
    creation.lpszClass = L"forged";
    return creation;
}

// An entry that no list has.
DRAWITEMSTRUCT ForgedItem(int control) {
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_LISTBOX;
    item.CtlID = static_cast<UINT>(control);
    item.itemID = 12345;
    item.itemAction = ODA_DRAWENTIRE;
    return item;
}

bool IsOfTheProgramsOwnClass(const WindowProbe& window) {
    return window.ClassName().starts_with(L"Ambrio");
}

bool IsDialog(const WindowProbe& window) {
    return window.ClassName() == L"#32770";
}

// Sent messages have been handled when this returns, and posted ones as well.
void Forge(const WindowProbe& window) {
    CREATESTRUCTW creation = ForgedCreation();
    if (IsOfTheProgramsOwnClass(window)) {
        EXPECT_EQ(window.Send(WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&creation)), FALSE);
    }
    EXPECT_TRUE(window.Send(WM_INITDIALOG, 0, static_cast<LPARAM>(kNowhere)));
    window.Post(WM_INITDIALOG, 0, static_cast<LPARAM>(kNowhere));
    constexpr int kOtherResolution = 288;
    EXPECT_TRUE(window.Send(WM_DPICHANGED, MAKEWPARAM(kOtherResolution, kOtherResolution),
                            static_cast<LPARAM>(kNowhere)));
    for (WPARAM timer = 0; timer < 6; ++timer) {
        window.Post(WM_TIMER, timer);
    }
    for (const WindowProbe& control : window.Descendants()) {
        DRAWITEMSTRUCT item = ForgedItem(control.ControlId());
        EXPECT_TRUE(window.Send(WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item)));
    }
    EXPECT_TRUE(window.Send(WM_NULL)) << "the window has gone";
}

// To every window that the program's own code answers for.
void ForgeToAllOf(DWORD process) {
    for (const WindowProbe& window : TopLevelWindows(process)) {
        std::vector<WindowProbe> all = window.Descendants();
        all.push_back(window);
        for (const WindowProbe& each : all) {
            if (IsOfTheProgramsOwnClass(each) || IsDialog(each)) {
                Forge(each);
            }
        }
    }
}

class ForgedToSaverTest : public SaverTest {};

TEST_F(ForgedToSaverTest, TheSaverGoesOnAndKeepsItsNameAndItsOneRun) {
    Source.AddFile(L"file.txt", "file");
    WriteOneSet();
    RunToTheEnd();
    ForgeToAllOf(Program().ProcessId());
    EXPECT_EQ(Saver().Text(), kSaverTitle);
    EXPECT_EQ(Panel().Title().substr(0, 8), L"Ambrio v");
    EXPECT_EQ(Log().Blocks().size(), 1U);
    EndByKey();
}

TEST_F(ForgedToSaverTest, ARunGoesOnToItsEnd) {
    Source.AddManyFiles(L"many", 100);
    WriteOneSet();
    RunUntilFilesAreCopied();
    ForgeToAllOf(Program().ProcessId());
    WaitForTheEndOfTheRun();
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    EXPECT_EQ(Log().Blocks().size(), 1U);
    EndByKey();
}

class ForgedToDialogsTest : public DialogTest {};

TEST_F(ForgedToDialogsTest, EveryDialogGoesOn) {
    const WindowProbe properties = OpenProperties(L"A");
    SetText(properties, IDC_TXT_FOLDER_0, L"C:\\");
    SetText(properties, IDC_TXT_SET, L"A");
    SetText(properties, IDC_TXT_FOLDER_1, L"as it was");
    const WindowProbe browse = Open(properties, IDC_CMD_BROWSE_0, L"Choose A source folder");
    ForgeToAllOf(Program().ProcessId());
    EXPECT_TRUE(Closes(browse, IDCANCEL));
    EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_1), L"as it was") << "the dialog was loaded again";
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseConfiguration();
}

}  // namespace
}  // namespace ambrio::e2e
