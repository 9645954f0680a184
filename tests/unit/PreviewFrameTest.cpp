#include "app/preview/PreviewFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>

#include "saver/SystemColour.h"
#include "saver/animation/Contrast.h"

namespace ambrio {
namespace {

constexpr int kWidth = 152;
constexpr int kHeight = 112;

// Stands where the display settings have the preview.
class PreviewWindow : public Window {
  public:
    PreviewWindow() {
        WindowDesign design;
        design.ClassName = L"AmbrioPreviewWindow";
        design.Style = WS_POPUP | WS_VISIBLE;
        design.ExtendedStyle = WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
        design.Width = kWidth;
        design.Height = kHeight;
        Create(design);
    }
    ~PreviewWindow() override { Destroy(); }
};

Colour ColourOf(COLORREF pixel) {
    return {GetRValue(pixel), GetGValue(pixel), GetBValue(pixel)};
}

// What a frame of some colour shows on the screen.
struct Shown {
    Colour Border;        // at its left edge
    Colour Plate;         // beside the text
    Colour Text;          // of the pixel that differs most from the plate
    double Contrast = 0;  // between the two
};

class PreviewFrameTest : public testing::TestWithParam<Colour> {
  protected:
    PreviewFrameTest() : picture_(window_.Handle(), application_) {
        application_.PixelTwipsX = 15;
        application_.PixelTwipsY = 15;
        picture_.Resize({kWidth * 15, kHeight * 15});
        ShowWindow(picture_.Handle(), SW_SHOWNA);
    }

    Shown Show(Colour colour, const std::wstring& caption) {
        PreviewFrame frame(picture_, application_);
        frame.SetBackColor(colour);
        frame.SetLabelColours(LabelColoursOn(colour));
        frame.SetCaption(caption);
        frame.Repaint();
        RECT area{};
        GetClientRect(frame.Handle(), &area);
        const WindowDC screen(frame.Handle());
        constexpr int kOfThePlate = 5;  // within its padding
        Shown shown;
        shown.Border = ColourOf(GetPixel(screen.get(), 0, area.bottom / 2));
        shown.Plate = ColourOf(GetPixel(screen.get(), kOfThePlate, area.bottom / 2));
        for (int row = kOfThePlate; row < area.bottom - kOfThePlate; ++row) {
            for (int column = kOfThePlate; column < area.right - kOfThePlate; ++column) {
                const Colour pixel = ColourOf(GetPixel(screen.get(), column, row));
                const double contrast = ContrastRatio(pixel, shown.Plate);
                if (contrast > shown.Contrast) {
                    shown.Text = pixel;
                    shown.Contrast = contrast;
                }
            }
        }
        return shown;
    }

    Application application_;
    PreviewWindow window_;
    PreviewPicture picture_;
};

TEST_P(PreviewFrameTest, ShowsACaptionThatStandsOutOnItsPlate) {
    const Shown shown = Show(GetParam(), L"relaxMMHHE");
    EXPECT_EQ(SystemColour(shown.Plate), SystemColour(LabelColoursOn(GetParam()).Plate));
    EXPECT_GE(shown.Contrast, kReadableContrast);
    EXPECT_GE(ContrastRatio(shown.Border, shown.Plate), kVisibleContrast);
}

TEST_P(PreviewFrameTest, ShowsNothingButItsPlateWhereTheCaptionIsEmpty) {
    EXPECT_LT(Show(GetParam(), L"          ").Contrast, kReadableContrast);
}

std::string NameOf(const testing::TestParamInfo<Colour>& info) {
    const auto part = [](int value) { return "_" + std::to_string(value); };
    return "Of" + part(info.param.Red) + part(info.param.Green) + part(info.param.Blue);
}

INSTANTIATE_TEST_SUITE_P(Frames, PreviewFrameTest,
                         testing::Values(Colour{40, 10, 90}, Colour{200, 220, 60},
                                         Colour{130, 120, 20}, Colour{250, 0, 5}, Colour{0, 1, 2},
                                         Colour{255, 254, 253}),
                         NameOf);

}  // namespace
}  // namespace ambrio
