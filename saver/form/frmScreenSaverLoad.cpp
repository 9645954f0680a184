// frmScreenSaver: how it is made and loaded.

#include <cmath>

#include "platform/Twips.h"
#include "platform/win32/registry/ReadRegistryValue.h"
#include "platform/win32/windows/ResourceText.h"
#include "resources/ResourceIds.h"
#include "saver/form/Pointer.h"
#include "saver/form/Windows9x.h"
#include "saver/form/frmScreenSaver.h"
#include "saver/model/FormConstants.h"

namespace ambrio {
namespace {

// The inner size of the form when it is an ordinary window, in twips.
constexpr int kDesignWidth = 12000;
constexpr int kDesignHeight = 9000;

}  // namespace

void frmScreenSaver::MakeWindow() {
    const bool isOrdinary = StaysOrdinaryWindow(application_.CommandLine);
    WindowDesign design;
    design.ClassName = L"AmbrioScreenSaver";
    design.Text = kScreenSaverCaption;
    design.Style = (isOrdinary ? WS_OVERLAPPEDWINDOW : WS_POPUP) | WS_CLIPCHILDREN;
    design.ClassStyle = CS_OWNDC;  // to fetch another one for each picture costs more than the copy
    RECT area{0, 0, PixelsFromTwips(kDesignWidth, twips_.X),
              PixelsFromTwips(kDesignHeight, twips_.Y)};
    AdjustWindowRectEx(&area, design.Style, FALSE, 0);
    design.Left = isOrdinary ? CW_USEDEFAULT : 0;
    design.Top = isOrdinary ? CW_USEDEFAULT : 0;
    design.Width = area.right - area.left;
    design.Height = area.bottom - area.top;
    Create(design);
    twips_ = TwipsOf(Handle());
    const auto icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_AMBRIO));
    SendMessageW(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    for (FormTimer* timer : {&tmrDoTheBiz_, &tmrKeepOnRunnin_, &pictures_, &tmrEnd_}) {
        timer->AttachTo(Handle());
    }
    notices_ = std::make_unique<AudienceNotices>(Handle());
    canvas_ = std::make_unique<LineCanvas>(*this);
    panel_ = std::make_unique<StatusPanelView>(Handle(), twips_.X, twips_.Y,
                                               ResourceText(IDS_SLOGAN), [this] { InputRule(); });
    run_ = std::make_unique<RunDriver>(application_, fileSystem_, settings_, clock_, *panel_, *this,
                                       signals_);
    plate_ = std::make_unique<WaitPlate>(Handle());
    frame_ = std::make_unique<PanelFrame>(*this, *panel_, *canvas_, twips_);
}

void frmScreenSaver::Form_Load() {
    if (!StaysOrdinaryWindow(application_.CommandLine)) {
        SetTopmost(true);
        SetMaxSize();
    }
    desktop_ = ReadDesktopSettings([](const std::wstring& name) {
        return ReadRegistryValue(HKEY_CURRENT_USER, L"Control Panel\\Desktop", name);
    });
    platformId_ = GetPlatform();
    if (UsesPassword()) {
        TellScreenSaverRunning(true);
    }
    if (HidesPointer(application_.CommandLine)) {
        HidePointerSurely();
    }
    tmrDoTheBiz_.SetEnabled(true);
}

// Spreads the form from the primary monitor's top-left corner over as much as the virtual screen
// measures. A monitor left of the primary one or above it lies beyond that, which is wanted: plain
// windows cover it.
void frmScreenSaver::SetMaxSize() {
    const auto width = std::lround(twips_.X * GetSystemMetrics(SM_CXVIRTUALSCREEN));
    const auto height = std::lround(twips_.Y * GetSystemMetrics(SM_CYVIRTUALSCREEN));
    SetWindowPos(Handle(), nullptr, 0, 0, PixelsFromTwips(static_cast<double>(width), twips_.X),
                 PixelsFromTwips(static_cast<double>(height), twips_.Y),
                 SWP_NOZORDER | SWP_SHOWWINDOW);
    CoverMonitors();
}

void frmScreenSaver::SetTopmost(bool topmost) {
    isToBeTopmost_ = topmost;
    // Otherwise it is in no one's way already, and placing it would bring it back before them.
    if (!haveOthersTheKeys_) {
        // A form that has let go must not take the focus from what the user works with now.
        PlaceInLayer(topmost, hasLetGo_ ? SWP_NOACTIVATE : 0);
    }
}

void frmScreenSaver::PlaceInLayer(bool topmost, UINT flags) {
    SetWindowPos(Handle(), topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | flags);
    blackWindows_.SetTopmost(topmost);
}

// The Windows NT family asks for the password itself.
bool frmScreenSaver::UsesPassword() const {
    return desktop_.UsePassword && platformId_ != kPlatformNt;
}

}  // namespace ambrio
