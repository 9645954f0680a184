// What of the panel reaches those who look at it, and those who cannot see it.

#include <gtest/gtest.h>

#include "platform/win32/windows/ControlSubclass.h"
#include "tests/unit/PanelFixture.h"

namespace ambrio {
namespace {

bool IsSamePicture(const BackBuffer& one, const BackBuffer& other) {
    for (int y = 0; y < one.Height(); ++y) {
        for (int x = 0; x < one.Width(); ++x) {
            if (GetPixel(one.DC(), x, y) != GetPixel(other.DC(), x, y)) {
                return false;
            }
        }
    }
    return true;
}

TEST(PanelOnlookers, DrawsNothingWhileNobodySeesItAndCatchesUp) {
    const Panel panel;
    const auto change = [&panel](int number) {
        panel.View->SetCaption(PanelLabel::lblFile, L"file " + std::to_wstring(number));
        panel.View->SetBackColor({static_cast<std::uint8_t>(number), 10, 30});
        panel.View->Redraw();
    };
    change(1);
    const BackBuffer seen = panel.Picture();
    panel.View->SetSeen(false);
    change(200);
    EXPECT_TRUE(IsSamePicture(seen, panel.Picture()));
    EXPECT_EQ(L"file 200", panel.Text(PanelControl::lblFile));
    panel.View->SetSeen(true);
    const BackBuffer caughtUp = panel.Picture();
    EXPECT_FALSE(IsSamePicture(seen, caughtUp));
    panel.View->Redraw();
    EXPECT_TRUE(IsSamePicture(caughtUp, panel.Picture()));
}

// Counts how often the animation control is told to play for ever.
class PlaysOf : private ControlSubclass {
  public:
    explicit PlaysOf(HWND control) { AttachTo(control); }
    int Count = 0;

  private:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override {
        Count += message == ACM_PLAY ? 1 : 0;
        return PassOn(message, wParam, lParam);
    }
};

TEST(PanelOnlookers, LetsTheClipRestUntilSomebodySeesIt) {
    const Panel panel;
    const PlaysOf plays(panel.Control(PanelControl::Animation1));
    panel.View->SetSeen(false);
    panel.View->PlayClip();
    EXPECT_EQ(0, plays.Count);
    panel.View->SetSeen(true);
    EXPECT_EQ(1, plays.Count);
}

// What other programs get who ask the system and not the label.
std::wstring ToldText(const Panel& panel, PanelControl control) {
    std::wstring text(300, L'#');
    text.resize(static_cast<std::size_t>(
        InternalGetWindowText(panel.Control(control), text.data(), static_cast<int>(text.size()))));
    return text;
}

TEST(PanelOnlookers, TellsTheSystemWhatItsLabelsShowOnlyWhenItIsAsked) {
    const Panel panel;
    EXPECT_EQ(L"Label3", ToldText(panel, PanelControl::lblfsoStatus));
    for (int i = 0; i <= static_cast<int>(PanelLabel::lblfsoStatus); ++i) {
        const auto label = static_cast<PanelLabel>(i);
        const std::wstring before = ToldText(panel, ControlOf(label));
        const std::wstring caption = L"caption " + std::to_wstring(i);
        panel.View->SetCaption(label, caption);
        EXPECT_EQ(before, ToldText(panel, ControlOf(label))) << "each change costs";
        panel.View->Tell();
        EXPECT_EQ(caption, ToldText(panel, ControlOf(label)));
        EXPECT_EQ(caption, panel.Text(ControlOf(label)));
    }
    panel.View->SetTitle(L"Ambrio v1.0");
    EXPECT_EQ(L"Ambrio v1.0", ToldText(panel, PanelControl::fraStatus));
}

}  // namespace
}  // namespace ambrio
