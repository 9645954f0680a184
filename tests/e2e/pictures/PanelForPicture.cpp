// Shows the panel of the saver at a resolution, for a picture of it, and prints where it lies:
//     PanelForPicture DPI copying|errors
// While it copies, the clip beside this program plays.

#include <cstdio>
#include <string>

#include "engine/EngineTexts.h"
#include "platform/Twips.h"
#include "platform/win32/windows/MessageLoop.h"
#include "saver/animation/Contrast.h"
#include "saver/panel/StatusPanelView.h"

namespace ambrio {
namespace {

void SetCounts(StatusPanelView& panel) {
    panel.SetTitle(L"Ambrio v1.0");
    panel.SetCaption(PanelLabel::lblChecked, L"1284");
    panel.SetCaption(PanelLabel::lblcopied, L"37");
    panel.SetCaption(PanelLabel::lblRemoved, L"2");
    panel.SetCaption(PanelLabel::lblfsoStatus, L"");
}

void ShowCopying(StatusPanelView& panel) {
    panel.SetCaption(PanelLabel::lblSet, L"Documents");
    panel.SetCaption(PanelLabel::lblSource, L"C:\\Users\\jo\\Documents\\Letters\\Grandmother");
    panel.SetCaption(PanelLabel::lblDest, L"\\\\archive\\backups\\Documents\\Letters\\Grandmother");
    panel.SetCaption(PanelLabel::lblFile, L"Thank you for the pyjamas.doc - copying");
    panel.OpenClip(L"filecopy.avi");
    panel.PlayClip();
    panel.ShowCopyFrame(true);
    panel.MatchCopyFrameColour();
}

void ShowErrors(StatusPanelView& panel) {
    panel.SetCaption(PanelLabel::lblSet, AllSetsProcessedWithErrors(L"C:\\Windows\\Ambrio.log"));
    for (const PanelLabel emptied :
         {PanelLabel::lblSource, PanelLabel::lblDest, PanelLabel::lblFile}) {
        panel.SetCaption(emptied, L"");
    }
}

int Run(int dotsPerInch, bool isCopying) {
    const double twips = TwipsPerPixel(dotsPerInch);
    const HWND form = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0,
                                      1000, 500, nullptr, nullptr, nullptr, nullptr);
    StatusPanelView panel(form, twips, twips, L"You rest. Your files are kept safe.",
                          EndMessageLoop);
    constexpr Colour kFrame{38, 116, 150};
    panel.SetBackColor(kFrame);
    panel.SetLabelColours(LabelColoursOn(kFrame));
    SetCounts(panel);
    isCopying ? ShowCopying(panel) : ShowErrors(panel);
    panel.Redraw();
    RECT place{};
    GetWindowRect(panel.Handle(), &place);
    std::printf("%ldx%ld+%ld+%ld\n", place.right - place.left, place.bottom - place.top, place.left,
                place.top);
    std::fflush(stdout);
    RunMessageLoop();
    DestroyWindow(form);
    return 0;
}

}  // namespace
}  // namespace ambrio

int wmain(int count, wchar_t** arguments) {
    return count == 3
               ? ambrio::Run(std::stoi(arguments[1]), arguments[2] == std::wstring(L"copying"))
               : 2;
}
