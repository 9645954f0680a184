// How the dialogs follow the resolution of their monitor, and what the manifest promises of it.

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "config/frmAbout.h"
#include "config/frmBrowse.h"
#include "config/frmConfiguration.h"
#include "config/frmIncludeExclude.h"
#include "config/frmProperties.h"
#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/windows/ScreenTwips.h"
#include "resources/DialogIds.h"
#include "tests/support/win32/WindowsFiles.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

RECT PlaceIn(HWND dialog, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        controls.push_back(control);
    }
    return controls;
}

std::vector<RECT> PlacesIn(HWND dialog) {
    std::vector<RECT> places;
    for (const HWND control : ControlsOf(dialog)) {
        places.push_back(PlaceIn(dialog, control));
    }
    return places;
}

bool IsCombo(HWND control) {
    wchar_t name[32];
    GetClassNameW(control, name, 32);
    return lstrcmpiW(name, L"ComboBox") == 0;
}

// Of the text that a control of the dialog writes.
LONG FontHeight(HWND control) {
    LOGFONTW design{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof(design),
               &design);
    return std::abs(design.lfHeight);
}

// As the system tells a dialog that it is on another monitor now.
RECT MoveTo(HWND dialog, int dotsPerInch, double scale) {
    RECT place{};
    GetWindowRect(dialog, &place);
    const RECT suggested{40, 30, 40 + std::lround((place.right - place.left) * scale),
                         30 + std::lround((place.bottom - place.top) * scale)};
    SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch),
                 reinterpret_cast<LPARAM>(&suggested));
    return suggested;
}

class FormResolutionTest : public FormTest {};

void ExpectScaled(HWND dialog, const std::vector<RECT>& before, double scale, LONG tolerance) {
    const std::vector<HWND> controls = ControlsOf(dialog);
    ASSERT_EQ(before.size(), controls.size());
    for (std::size_t i = 0; i < controls.size(); ++i) {
        SCOPED_TRACE(GetDlgCtrlID(controls[i]));
        const RECT now = PlaceIn(dialog, controls[i]);
        EXPECT_NEAR(now.left, before[i].left * scale, tolerance);
        EXPECT_NEAR(now.top, before[i].top * scale, tolerance);
        EXPECT_NEAR(now.right, before[i].right * scale, tolerance);
        if (!IsCombo(controls[i])) {  // as high as its text
            EXPECT_NEAR(now.bottom, before[i].bottom * scale, tolerance);
        }
    }
}

template <typename SomeForm>
void ExpectToFollow(SomeForm& form) {
    form.Load(nullptr);
    const HWND dialog = form.Handle();
    const int dotsPerInch = DotsPerInchOf(dialog);
    const std::vector<RECT> before = PlacesIn(dialog);
    // Not of the first control everywhere: an icon has no font, or none before it gets one.
    const LONG font = FontHeight(ControlsOf(dialog).back());
    RECT place{};
    GetWindowRect(dialog, &place);

    const RECT suggested = MoveTo(dialog, dotsPerInch * 3 / 2, 1.5);
    RECT now{};
    GetWindowRect(dialog, &now);
    EXPECT_TRUE(EqualRect(&suggested, &now));
    for (const HWND control : ControlsOf(dialog)) {
        if (const LONG height = FontHeight(control); height != 0) {
            EXPECT_NEAR(height, font * 1.5, 1) << GetDlgCtrlID(control);
        }
    }
    ExpectScaled(dialog, before, 1.5, 1);

    // The same once more changes nothing, and the way back leads to where it began.
    MoveTo(dialog, dotsPerInch * 3 / 2, 1);
    ExpectScaled(dialog, before, 1.5, 1);
    MoveTo(dialog, dotsPerInch, 1 / 1.5);
    ExpectScaled(dialog, before, 1, 1);
    EXPECT_NEAR(FontHeight(ControlsOf(dialog).back()), font, 1);
}

TEST_F(FormResolutionTest, TheConfigurationFollows) {
    frmConfiguration form(Context);
    ExpectToFollow(form);
}

TEST_F(FormResolutionTest, ThePropertiesFollow) {
    frmProperties form(Context);
    ExpectToFollow(form);
}

TEST_F(FormResolutionTest, TheBrowseDialogFollows) {
    frmBrowse form(Context, nullptr);
    ExpectToFollow(form);
}

TEST_F(FormResolutionTest, TheFileSelectionFollows) {
    frmIncludeExclude form(Context);
    ExpectToFollow(form);
}

TEST_F(FormResolutionTest, TheAboutBoxFollows) {
    frmAbout form(Context);
    ExpectToFollow(form);
}

// Entries that the program draws by itself are as high as their text.
TEST_F(FormResolutionTest, TheEntriesOfListsGrowWithTheirText) {
    frmConfiguration configuration(Context);
    frmBrowse browse(Context, nullptr);
    const auto growth = [](Dialog& form, int list) {
        form.Load(nullptr);
        const HWND control = GetDlgItem(form.Handle(), list);
        const auto height = [control] {
            return static_cast<double>(SendMessageW(control, LB_GETITEMHEIGHT, 0, 0));
        };
        const double before = height();
        MoveTo(form.Handle(), DotsPerInchOf(form.Handle()) * 2, 2);
        return height() / before;
    };
    EXPECT_NEAR(growth(configuration, IDC_LST_SETS), 2, 0.25);
    EXPECT_NEAR(growth(browse, IDC_DIR1), 2, 0.25);
}

std::string Manifest() {
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
    const HGLOBAL loaded = found != nullptr ? LoadResource(nullptr, found) : nullptr;
    const void* text = loaded != nullptr ? LockResource(loaded) : nullptr;
    return text == nullptr
               ? std::string()
               : std::string(static_cast<const char*>(text), SizeofResource(nullptr, found));
}

TEST(Manifest, AsksForAResolutionPerMonitorAndForTheNextBestOnOlderSystems) {
    const std::string manifest = Manifest();
    EXPECT_NE(std::string::npos, manifest.find(">PerMonitorV2, system</dpiAwareness>"));
    EXPECT_NE(std::string::npos, manifest.find(">true</dpiAware>"));
}

TEST(Manifest, IsUnderstoodByTheSystem) {
    using ContextOf = HANDLE(WINAPI*)();
    using AreEqual = BOOL(WINAPI*)(HANDLE, HANDLE);
    const SystemLibrary user(L"user32.dll");
    const auto context = user.Function<ContextOf>("GetThreadDpiAwarenessContext");
    const auto areEqual = user.Function<AreEqual>("AreDpiAwarenessContextsEqual");
    if (context == nullptr || areEqual == nullptr || RunsOnWine()) {
        GTEST_SKIP()
            << "this system knows no resolution per monitor, or (Wine) does not compare it";
    }
    const auto perMonitor2 = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-4));
    EXPECT_TRUE(areEqual(context(), perMonitor2));
}

}  // namespace
}  // namespace ambrio
