#include "saver/LineCanvas.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "platform/win32/windows/BackBuffer.h"
#include "saver/panel/PanelFrame.h"

namespace ambrio {
namespace {

// A window without borders that shows nothing by itself.
class PlainWindow : public Window {
  public:
    PlainWindow(int width, int height) {
        WindowDesign design;
        design.ClassName = L"AmbrioPlainWindow";
        design.Style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
        design.ExtendedStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
        design.Width = width;
        design.Height = height;
        Create(design);
    }
    ~PlainWindow() override { Destroy(); }
    using Window::Destroy;

    [[nodiscard]] bool HasToBePainted() const {
        return GetUpdateRect(Handle(), nullptr, FALSE) != FALSE;
    }
    void IsPainted() const { ValidateRect(Handle(), nullptr); }
};

constexpr Palette kPalette{{255, 200, 90}, {90, 200, 255}};

constexpr Line LineFrom(float fromX, float fromY, float toX, float toY) {
    return {fromX, fromY, toX, toY, {255, 255}};
}

// What the window shows when it is painted.
BackBuffer Painted(const LineCanvas& canvas, int width, int height) {
    BackBuffer picture(width, height);
    canvas.Paint(picture.DC(), {0, 0, width, height});
    return picture;
}

bool IsLitNear(const BackBuffer& picture, int x, int y) {
    for (int row = y - 2; row <= y + 2; ++row) {
        for (int column = x - 2; column <= x + 2; ++column) {
            const COLORREF pixel = GetPixel(picture.DC(), column, row);
            if (pixel != CLR_INVALID && pixel != 0) {
                return true;
            }
        }
    }
    return false;
}

TEST(LineCanvas, DrawsFromEdgeToEdgeOfTheFormAtEveryResolution) {
    constexpr int kWidth = 640;
    constexpr int kHeight = 420;
    for (const double twips : {15.0, 12.0, 10.0, 60.0 / 7, 7.5}) {
        const PlainWindow form(kWidth, kHeight);
        const ScreenTwips screen{twips, twips};
        LineCanvas canvas(form);
        StatusPanelView panel(form.Handle(), twips, twips, L"", [] {});
        PanelFrame frame(form, panel, canvas, screen);
        const auto right = static_cast<float>(frame.ParentScaleWidth());
        const auto bottom = static_cast<float>(frame.ParentScaleHeight());
        std::array<Line, 2> diagonals{LineFrom(0, 0, right, bottom), LineFrom(0, bottom, right, 0)};
        diagonals[1].Key = 1;
        frame.DrawLines(diagonals, kPalette);
        const BackBuffer picture = Painted(canvas, kWidth, kHeight);
        for (const POINT corner :
             {POINT{2, 2}, POINT{kWidth - 3, 2}, POINT{2, kHeight - 3},
              POINT{kWidth - 3, kHeight - 3}, POINT{kWidth / 2, kHeight / 2}}) {
            EXPECT_TRUE(IsLitNear(picture, corner.x, corner.y))
                << twips << ": " << corner.x << ", " << corner.y;
        }
    }
}

TEST(LineCanvas, DrawsNothingOnAWindowThatIsGone) {
    PlainWindow window(300, 200);
    LineCanvas canvas(window);
    const std::array<Line, 1> line{LineFrom(0, 0, 4500, 3000)};
    canvas.Draw(line, kPalette, {});
    EXPECT_TRUE(IsLitNear(Painted(canvas, 300, 200), 150, 100));
    window.Destroy();
    canvas.Draw(line, kPalette, {});
    EXPECT_FALSE(IsLitNear(Painted(canvas, 300, 200), 150, 100));
}

// What a window shows at a place.
COLORREF ShownAt(const Window& window, int x, int y) {
    return GetPixel(WindowDC(window.Handle()).get(), x, y);
}

// The panel moves without the system's redrawing.
TEST(LineCanvas, IsSeenAgainWhereThePanelHasBeen) {
    const PlainWindow form(1000, 600);
    const ScreenTwips screen{15, 15};
    LineCanvas canvas(form);
    StatusPanelView panel(form.Handle(), 15, 15, L"", [] {});
    PanelFrame frame(form, panel, canvas, screen);
    panel.SetBackColor({200, 10, 30});
    panel.SetLabelColours({{255, 255, 255}, {240, 240, 240}, {200, 10, 30}});
    panel.Redraw();
    std::array<Line, 1> line{LineFrom(0, 150, 15000, 150)};  // through the tenth row
    line[0].Light = {200, 0};
    frame.DrawLines(line, kPalette);
    const COLORREF ofLine = ShownAt(form, 900, 10);
    ASSERT_NE(ofLine, 0U);
    ASSERT_NE(ShownAt(panel, 5, 90), CLR_INVALID) << "the window cannot be seen";
    const COLORREF ofPanel = ShownAt(panel, 5, 90);
    frame.Move(3000, 4500);
    EXPECT_EQ(ShownAt(form, 100, 10), ofLine);
    EXPECT_EQ(ShownAt(form, 100, 90), 0U);
    EXPECT_EQ(ShownAt(panel, 5, 90), ofPanel);
    EXPECT_EQ(ShownAt(panel, 400, 175), ShownAt(panel, 5, 90));
    frame.Move(3045, 4545);
    EXPECT_EQ(ShownAt(form, 201, 400), 0U) << "the panel has left this place";
    EXPECT_EQ(ShownAt(form, 300, 10), ofLine);
}

SIZE_T PrivateBytes() {
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof memory;
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, memory.cb);
    return memory.PagefileUsage;
}

TEST(LineCanvas, TakesNoMoreThanTwoPicturesOfItsWindow) {
    constexpr SIZE_T kPicture = SIZE_T{3840} * 2160 * 4;
    const PlainWindow window(3840, 2160);
    LineCanvas canvas(window);
    const std::array<Line, 1> line{LineFrom(0, 0, 57600, 32400)};
    const SIZE_T before = PrivateBytes();
    canvas.Draw(line, kPalette, {15, 15});
    const SIZE_T after = PrivateBytes();
    EXPECT_GT(after, before + kPicture) << "nothing was measured";
    EXPECT_LT(after, before + 2 * kPicture + kPicture / 16);
}

// A window of such a size needs more memory than a 32-bit program can have.
TEST(LineCanvas, LeavesAWindowAloneThatThereIsNoMemoryForAndTriesSoonAgain) {
    PlainWindow window(30000, 30000);
    RECT area;
    GetClientRect(window.Handle(), &area);
    if (sizeof(void*) > 4 || area.right < 30000 || area.bottom < 30000) {
        GTEST_SKIP() << "there is memory for the largest window of this system";
    }
    LineCanvas canvas(window);
    const std::array<Line, 1> line{LineFrom(0, 0, 4500, 3000)};
    canvas.Draw(line, kPalette, {});
    EXPECT_TRUE(window.HasToBePainted()) << "with black";
    window.IsPainted();
    for (int i = 0; i < 250; ++i) {
        canvas.Draw(line, kPalette, {});
        ASSERT_FALSE(window.HasToBePainted()) << i;
    }
    SetWindowPos(window.Handle(), nullptr, 0, 0, 300, 200, SWP_NOZORDER | SWP_NOACTIVATE);
    canvas.Draw(line, kPalette, {});
    EXPECT_TRUE(IsLitNear(Painted(canvas, 300, 200), 150, 100)) << "not without a wait";
}

}  // namespace
}  // namespace ambrio
