#include "app/preview/frmControl.h"

#include <cstdint>
#include <utility>

#include "platform/Twips.h"

namespace ambrio {
namespace {

constexpr UINT_PTR kTimer1 = 1;
constexpr std::chrono::milliseconds kTimer1Interval{100};
constexpr const wchar_t* kCaption = L"Mini form for 'Screen Properties' window";

}  // namespace

frmControl::frmControl(const Application& application, std::function<void()> unloaded)
    : application_(application),
      unloaded_(std::move(unloaded)),
      Timer1_(kTimer1, kTimer1Interval) {}

frmControl::~frmControl() {
    isUnloaded_ = true;
    Destroy();
}

HWND frmControl::ParentWindow() const {
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(application_.ParentWindow));
}

void frmControl::Load() {
    WindowDesign design;
    design.ClassName = L"AmbrioPreviewForm";
    design.Text = kCaption;
    design.Style = WS_POPUP;
    Create(design);
    Form_Load();
    Timer1_.AttachTo(Handle());
    Timer1_.SetEnabled(true);
}

void frmControl::Form_Load() {
    Picture1_ = std::make_unique<PreviewPicture>(Handle(), application_);
    Picture1_->ReplaceProcedure();
    RECT PreviewRect{};
    GetClientRect(ParentWindow(), &PreviewRect);
    const TwipsSize size{(PreviewRect.right - PreviewRect.left) * application_.PixelTwipsX,
                         (PreviewRect.bottom - PreviewRect.top) * application_.PixelTwipsY};
    Picture1_->Resize(size);
    SetWindowPos(Handle(), nullptr, 0, 0, PixelsFromTwips(size.Width, application_.PixelTwipsX),
                 PixelsFromTwips(size.Height, application_.PixelTwipsY),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    fraStatus_ = std::make_unique<PreviewFrame>(*Picture1_, application_);
    Picture1_->Activate(ParentWindow());
}

LRESULT frmControl::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER:
            if (Timer1_.IsTick(wParam)) {
                Timer1_Timer();
            }
            return 0;
        case WM_CLOSE:
            Unload();
            return 0;
        default:
            return Window::Receive(message, wParam, lParam);
    }
}

void frmControl::Timer1_Timer() {
    if (IsWindow(ParentWindow()) == FALSE || !Picture1_->IsPreviewActive()) {
        Unload();
        return;
    }
    AnimationInputs inputs;
    inputs.Interval = static_cast<std::int32_t>(Timer1_.Interval().count());
    inputs.PixelTwipsX = application_.PixelTwipsX;
    inputs.PixelTwipsY = application_.PixelTwipsY;
    animation_.Step(*fraStatus_, inputs);
    if (const auto caption = caption_.Tick()) {
        fraStatus_->SetCaption(*caption);
    }
    fraStatus_->Repaint();
}

void frmControl::Unload() {
    if (std::exchange(isUnloaded_, true)) {
        return;
    }
    Timer1_.SetEnabled(false);
    Form_Unload();
    Destroy();
    unloaded_();
}

// The picture's former procedure goes to the form and not back to the picture. This is wanted: the
// picture may already be gone with the preview window, the form is still there.
void frmControl::Form_Unload() {
    if (const WNDPROC saved = Picture1_->TakeSavedProcedure(); saved != nullptr) {
        SetWindowLongPtrW(Handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(saved));
    }
}

}  // namespace ambrio
