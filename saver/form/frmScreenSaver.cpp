#include "saver/form/frmScreenSaver.h"

#include <utility>

#include "platform/win32/windows/ScreenTwips.h"
#include "saver/Press.h"
#include "saver/model/FormConstants.h"

namespace ambrio {
namespace {

enum TimerId : UINT_PTR { kDoTheBizTimer = 1, kKeepOnRunninTimer, kEndTimer, kPictureTimer };

int XOf(LPARAM position) {
    return static_cast<short>(LOWORD(position));
}
int YOf(LPARAM position) {
    return static_cast<short>(HIWORD(position));
}

}  // namespace

frmScreenSaver::frmScreenSaver(const Application& application, FileSystem& fileSystem,
                               CopyWatch& copyWatch, SettingsStore& settings, Clock& clock,
                               std::function<void()> unloaded)
    : tmrEnd_(kEndTimer, kEndInterval),
      application_(application),
      fileSystem_(fileSystem),
      copyWatch_(copyWatch),
      settings_(settings),
      clock_(clock),
      unloaded_(std::move(unloaded)),
      twips_(ReadScreenTwips()),
      tmrDoTheBiz_(kDoTheBizTimer, kDoTheBizInterval),
      tmrKeepOnRunnin_(kKeepOnRunninTimer, kKeepOnRunninInterval),
      pictures_(kPictureTimer, kPictureInterval) {}

// A form whose loading failed goes without having unloaded.
frmScreenSaver::~frmScreenSaver() {
    DestroyForm();
}

void frmScreenSaver::Show() {
    MakeWindow();
    Form_Load();
    ShowWindow(Handle(), SW_SHOW);
    SetForegroundWindow(Handle());
}

LRESULT frmScreenSaver::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint([this](HDC target, const RECT& part) { canvas_->Paint(target, part); });
            return 0;
        case WM_TIMER:
            TimerTick(wParam);
            return 0;
        case WM_SYSCOMMAND:
            // The system must not start a saver over this one.
            if ((wParam & 0xFFF0U) == SC_SCREENSAVE) {
                return 0;
            }
            return Window::Receive(message, wParam, lParam);
        case WM_SHOWWINDOW:
            blackWindows_.Show(wParam != FALSE);
            return Window::Receive(message, wParam, lParam);
        case WM_DISPLAYCHANGE:
            if (!StaysOrdinaryWindow(application_.CommandLine) && !hasLetGo_) {
                SetMaxSize();
            }
            mouseMoveRule_.Forget();  // the system puts the pointer elsewhere
            return 0;
        case WM_DPICHANGED:
            ResolutionChanges(wParam, lParam);
            return 0;
        case WM_CLOSE:
            CloseRequested();
            return 0;
        case WM_QUERYENDSESSION:
            return AgreeToEndOfSession();
        case WM_ENDSESSION:
            SessionEnds(wParam != FALSE);
            return 0;
        default:
            return ReceiveInput(message, wParam, lParam);
    }
}

LRESULT frmScreenSaver::ReceiveInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            InputRule();
            return 0;
        case WM_MOUSEMOVE:
            Form_MouseMove(XOf(lParam), YOf(lParam));
            return 0;
        case WM_SETCURSOR:
            if (reinterpret_cast<HWND>(wParam) != Handle()) {
                PointerIsOverChild();
            }
            return Window::Receive(message, wParam, lParam);
        case WM_GESTURE: {
            // A finger, before Windows 8. The system keeps a handle for it that goes when it has
            // seen the message too.
            const LRESULT result = Window::Receive(message, wParam, lParam);
            InputRule();
            return result;
        }
        default:
            if (!IsPress(message)) {
                return ReceiveNotice(message, wParam, lParam);
            }
            InputRule();
            return 0;
    }
}

// What every input does: it asks a run to stop, and ends the form when there is none any more.
void frmScreenSaver::InputRule() {
    signals_.Interrupted = true;
    if (signals_.RunFinished) {
        Unload();
    } else {
        LetGo();
        AskForPatience();
    }
}

void frmScreenSaver::Form_MouseMove(int x, int y) {
    POINT place{x, y};
    ClientToScreen(Handle(), &place);
    const int requests =
        mouseMoveRule_.Move(static_cast<float>(x * twips_.X), static_cast<float>(y * twips_.Y),
                            pointer_.MovesTo(place.x, place.y));
    for (int i = 0; i < requests; ++i) {
        InputRule();
    }
}

void frmScreenSaver::TimerTick(WPARAM timer) {
    if (tmrDoTheBiz_.IsTick(timer)) {
        tmrDoTheBiz_Timer();
    } else if (tmrKeepOnRunnin_.IsTick(timer)) {
        tmrKeepOnRunnin_Timer();
    } else if (pictures_.IsTick(timer)) {
        DrawBetweenSteps();
    } else if (tmrEnd_.IsTick(timer)) {
        End();
    }
}

void frmScreenSaver::tmrDoTheBiz_Timer() {
    if (signals_.RunStarted) {
        return;
    }
    tmrDoTheBiz_.SetEnabled(false);
    tmrKeepOnRunnin_.SetEnabled(!hasLetGo_);
    signals_.RunStarted = true;
    awake_ = std::make_unique<StayAwake>();
    sessionEndHold_ = std::make_unique<SessionEndHold>(Handle());
    run_->DoTheBiz();
    sessionEndHold_.reset();
    awake_.reset();
    signals_.RunFinished = true;
}

void frmScreenSaver::tmrKeepOnRunnin_Timer() {
    StepBehindOthers();
    if (++stepsSinceTold_ >= kStepsPerTelling) {
        stepsSinceTold_ = 0;
        panel_->Tell();
    }
    if (!audience_.IsThere()) {
        pictures_.SetEnabled(false);
        return;
    }
    AnimationInputs inputs;
    inputs.RunFinished = signals_.RunFinished;
    inputs.PowerSaveActive = desktop_.PowerSaveActive;
    inputs.PowerSaveTimeout = desktop_.PowerSaveTimeout;
    inputs.Interval = static_cast<std::int32_t>(tmrKeepOnRunnin_.Interval().count());
    inputs.PixelTwipsX = application_.PixelTwipsX;
    inputs.PixelTwipsY = application_.PixelTwipsY;
    animation_.Step(*frame_, inputs);
    lastStep_ = std::chrono::steady_clock::now();
    frame_->Present();
    pictures_.SetEnabled(!animation_.IsAtRest());
    AskForPatience();
}

// The step keeps to its timer; what moves is drawn more often than that. A step that comes late is
// waited for.
void frmScreenSaver::DrawBetweenSteps() {
    const std::chrono::duration<double> since = std::chrono::steady_clock::now() - lastStep_;
    animation_.Glide(*frame_, since / tmrKeepOnRunnin_.Interval());
}

}  // namespace ambrio
