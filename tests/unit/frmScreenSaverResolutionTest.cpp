// What the form does when the system says that its monitor has another resolution.

#include <gtest/gtest.h>

#include <memory>

#include "platform/win32/windows/BackBuffer.h"
#include "platform/win32/windows/ScreenTwips.h"
#include "tests/unit/FormThatCopies.h"

namespace ambrio {
namespace {

class frmScreenSaverResolutionTest : public testing::Test {
  protected:
    static constexpr WPARAM kRunTimer = 1;
    static constexpr WPARAM kStepTimer = 2;

    static bool AreEqual(const RECT& one, const RECT& other) {
        return EqualRect(&one, &other) != FALSE;
    }

    void Show(const wchar_t* commandLine) {
        application_.Title = L"Ambrio";
        application_.CommandLine = commandLine;
        form_ = std::make_unique<frmScreenSaver>(application_, files_, copyWatch_, settings_,
                                                 clock_, [this] { ++unloads_; });
        form_->Show();
        dotsPerInch_ = DotsPerInchOf(form_->Handle());
    }

    // As the system tells of it.
    void Change(int dotsPerInch, const RECT& suggested) {
        SendMessageW(form_->Handle(), WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch),
                     reinterpret_cast<LPARAM>(&suggested));
    }

    [[nodiscard]] HWND Panel() const {
        return GetDlgItem(form_->Handle(), static_cast<int>(PanelControl::fraStatus));
    }
    [[nodiscard]] HWND OnPanel(PanelControl control) const {
        return GetDlgItem(Panel(), static_cast<int>(control));
    }
    [[nodiscard]] RECT Place() const {
        RECT place{};
        GetWindowRect(form_->Handle(), &place);
        return place;
    }
    // Against the upper left corner of the parent's inside.
    static RECT PlaceOf(HWND child) {
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    static int HeightOf(HWND child) {
        const RECT place = PlaceOf(child);
        return place.bottom - place.top;
    }

    // How many rows of the picture of the panel a text takes: the letters themselves.
    [[nodiscard]] int RowsOfLetters() const {
        RECT area{};
        GetClientRect(Panel(), &area);
        const BackBuffer picture(area.right, area.bottom);
        SendMessageW(Panel(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.DC()), PRF_CLIENT);
        const RECT box = PlaceOf(OnPanel(PanelControl::lblSet));
        int rows = 0;
        for (LONG y = box.top; y < box.bottom; ++y) {
            for (LONG x = box.left + 1; x < box.right; ++x) {
                if (GetPixel(picture.DC(), x, y) != GetPixel(picture.DC(), box.left, box.top)) {
                    ++rows;
                    break;
                }
            }
        }
        return rows;
    }

    void RunToTheEnd() {
        settings_.Values[{L"General", L"Sets"}] = L"A";
        settings_.Values[{L"A", L"Selected"}] = L"False";
        SendMessageW(form_->Handle(), WM_TIMER, kRunTimer, 0);
    }
    void MovePointer(int x, int y) {
        SendMessageW(form_->Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
    }

    Application application_;
    MemoryFileSystem files_;
    CopyWatch copyWatch_;
    MemorySettingsStore settings_;
    ManualClock clock_{DateTime{2026, 11, 22, 10, 0, 0}};
    int unloads_ = 0;
    int dotsPerInch_ = 0;
    std::unique_ptr<frmScreenSaver> form_;
};

TEST_F(frmScreenSaverResolutionTest, AnOrdinaryWindowGoesWhereTheSystemSuggestsAndItsPanelGrows) {
    Show(L"/D");
    SendMessageW(OnPanel(PanelControl::lblSet), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"HHH"));
    const RECT panel = PlaceOf(Panel());
    const RECT label = PlaceOf(OnPanel(PanelControl::lblfsoStatus));
    const RECT clip = PlaceOf(OnPanel(PanelControl::fraAni));
    const int letters = RowsOfLetters();
    ASSERT_GT(letters, 5);

    const RECT suggested{30, 20, 30 + 903, 20 + 704};
    Change(dotsPerInch_ * 3 / 2, suggested);
    EXPECT_TRUE(AreEqual(Place(), suggested));
    const RECT now = PlaceOf(Panel());
    EXPECT_NEAR(now.right, panel.right * 1.5, 1);
    EXPECT_NEAR(now.bottom, panel.bottom * 1.5, 1);
    EXPECT_NEAR(PlaceOf(OnPanel(PanelControl::lblfsoStatus)).left, label.left * 1.5, 1);
    EXPECT_NEAR(HeightOf(OnPanel(PanelControl::fraAni)), (clip.bottom - clip.top) * 1.5, 1);
    EXPECT_NEAR(RowsOfLetters(), letters * 1.5, 1);

    // And back.
    Change(dotsPerInch_, {5, 6, 807, 608});
    EXPECT_TRUE(AreEqual(PlaceOf(Panel()), panel));
    EXPECT_TRUE(AreEqual(PlaceOf(OnPanel(PanelControl::fraAni)), clip));
    EXPECT_EQ(RowsOfLetters(), letters);
}

// A window that shows less of itself, in twips, than before.
TEST_F(frmScreenSaverResolutionTest, ThePanelStaysInTheWindowAndKeepsMoving) {
    Show(L"/D");
    RunToTheEnd();
    Change(dotsPerInch_ * 3 / 2, {0, 0, 1000, 700});
    for (int i = 0; i < 400; ++i) {
        SendMessageW(form_->Handle(), WM_TIMER, kStepTimer, 0);
        RECT area{};
        GetClientRect(form_->Handle(), &area);
        const RECT panel = PlaceOf(Panel());
        ASSERT_GE(panel.left, 0);
        ASSERT_GE(panel.top, 0);
        ASSERT_LE(panel.right, area.right + 1);
        ASSERT_LE(panel.bottom, area.bottom + 1);
    }
    EXPECT_NE(PlaceOf(Panel()).left, 0);
}

TEST_F(frmScreenSaverResolutionTest, AFormThatCoversTheScreenStaysWhereItIsAndItsPanelGrows) {
    Show(L"/S");
    const RECT before = Place();
    const RECT panel = PlaceOf(Panel());
    ValidateRect(form_->Handle(), nullptr);
    Change(dotsPerInch_ * 2, {100, 100, 400, 300});
    EXPECT_TRUE(GetUpdateRect(form_->Handle(), nullptr, FALSE)) << "what the panel has left";
    EXPECT_TRUE(AreEqual(Place(), before));
    EXPECT_NEAR(PlaceOf(Panel()).right, panel.right * 2, 1);
    form_->UnloadForm();
}

TEST_F(frmScreenSaverResolutionTest, TheSameOnceMoreOrNoResolutionAtAllChangesNothing) {
    Show(L"/D");
    const RECT place = Place();
    const RECT panel = PlaceOf(Panel());
    const RECT suggested{11, 12, 613, 514};
    for (const int dotsPerInch : {dotsPerInch_, 0, 1, 65535}) {
        Change(dotsPerInch, suggested);
        EXPECT_TRUE(AreEqual(Place(), place)) << dotsPerInch;
        EXPECT_TRUE(AreEqual(PlaceOf(Panel()), panel)) << dotsPerInch;
    }
}

// A large file during which somebody presses a key, and the window is on another monitor after
// that.
class ResolutionDuringCopy : public MemoryFileSystem {
  public:
    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override {
        MemoryFileSystem::CopyFile(source, destination, overwrite, yield);
        SendMessageW(Form, WM_KEYDOWN, VK_SPACE, 1);
        Before = PlateSize();
        const int dotsPerInch = 2 * DotsPerInchOf(Form);
        const RECT suggested{0, 0, 950, 700};
        SendMessageW(Form, WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch),
                     reinterpret_cast<LPARAM>(&suggested));
        After = PlateSize();
    }

    HWND Form = nullptr;
    SIZE Before{};
    SIZE After{};

  private:
    [[nodiscard]] SIZE PlateSize() const {
        RECT area{};
        GetClientRect(FindWindowExW(Form, nullptr, L"AmbrioWaitPlate", nullptr), &area);
        return {area.right, area.bottom};
    }
};

TEST(frmScreenSaverResolution, ThePlateThatAsksToWaitGrowsWithItsLetters) {
    FormThatCopies<ResolutionDuringCopy> form;
    form.Run();
    EXPECT_GT(form.Disk.Before.cy, 20);
    EXPECT_NEAR(form.Disk.After.cy, 2 * form.Disk.Before.cy, 6);
}

// Places of before do not compare with places of now.
TEST_F(frmScreenSaverResolutionTest, TheNextMoveOfThePointerIsTheFirstAgain) {
    Show(L"/D");
    RunToTheEnd();
    MovePointer(40, 50);
    Change(dotsPerInch_ * 2, {30, 20, 1230, 920});
    MovePointer(45, 55);
    EXPECT_EQ(0, unloads_);
    MovePointer(46, 55);
    EXPECT_EQ(1, unloads_);
}

}  // namespace
}  // namespace ambrio
