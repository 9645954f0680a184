// What the system's own screen saver settings make of the program.

#include <gtest/gtest.h>

#include <iostream>
#include <optional>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/ProgramTest.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

// Looks through all windows for a list that offers a saver of that name.
struct SaverList {
    std::optional<WindowProbe> List;
    LRESULT Entry = CB_ERR;
};

BOOL CALLBACK LookAtControl(HWND window, LPARAM result) {
    auto& found = *reinterpret_cast<SaverList*>(result);
    const WindowProbe control(window);
    if (control.ClassName() == L"ComboBox") {
        const auto entry = control.Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                        reinterpret_cast<LPARAM>(L"Ambrio"));
        if (entry && *entry != CB_ERR) {
            found = {control, *entry};
            return FALSE;
        }
    }
    return TRUE;
}

BOOL CALLBACK LookAtWindow(HWND window, LPARAM result) {
    if (IsWindowVisible(window) != 0) {
        EnumChildWindows(window, LookAtControl, result);
    }
    return reinterpret_cast<SaverList*>(result)->List ? FALSE : TRUE;
}

SaverList FindSaverList() {
    SaverList found;
    EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

BOOL CALLBACK LookForPreview(HWND window, LPARAM result) {
    if (WindowProbe(window).ClassName() != L"SSDemoParent") {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

// The place in which the settings let a saver show its preview, once it shows one.
HWND PreviewIn(HWND settings) {
    HWND place = nullptr;
    EnumChildWindows(settings, LookForPreview, reinterpret_cast<LPARAM>(&place));
    return place != nullptr && GetWindow(place, GW_CHILD) != nullptr ? place : nullptr;
}

class DisplaySettingsTest : public ProgramTest {};

TEST_F(DisplaySettingsTest, ListTheProgramByItsNameAndShowItsPreview) {
    if (RunsOnWine()) {
        GTEST_SKIP() << "Wine has no screen saver settings";
    }
    const SystemFile saver(TestProgramFolder() + L"\\Ambrio.scr",
                           WindowsFolder() + L"\\Ambrio.scr");
    if (!saver.IsInstalled()) {
        GTEST_SKIP()
            << "the system's folders cannot be written with these rights, or Ambrio is there";
    }
    StartFile(SystemFolder() + L"\\control.exe", L"desk.cpl,,@screensaver");
    SaverList savers;
    ASSERT_TRUE(WaitUntil([&] {
        savers = FindSaverList();
        return savers.List.has_value();
    })) << "no list offers Ambrio";

    const HWND settings = GetAncestor(savers.List->Handle(), GA_ROOT);
    EXPECT_TRUE(savers.List->Send(CB_SETCURSEL, static_cast<WPARAM>(savers.Entry)));
    SendMessageW(GetParent(savers.List->Handle()), WM_COMMAND,
                 MAKEWPARAM(savers.List->ControlId(), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(savers.List->Handle()));
    HWND place = nullptr;
    EXPECT_TRUE(WaitUntil([&] { return (place = PreviewIn(settings)) != nullptr; }));
    if (place != nullptr) {
        RECT room{};
        RECT preview{};
        GetClientRect(place, &room);
        GetWindowRect(GetWindow(place, GW_CHILD), &preview);
        std::cout << "| the room for a preview | " << room.right << " x " << room.bottom << " |\n";
        EXPECT_EQ(preview.right - preview.left, room.right);
        EXPECT_EQ(preview.bottom - preview.top, room.bottom);
    }
    PostMessageW(settings, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return IsWindow(settings) == 0; }));
}

}  // namespace
}  // namespace ambrio::e2e
