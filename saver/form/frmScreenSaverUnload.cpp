// frmScreenSaver: how it closes.

#include "engine/EngineTexts.h"
#include "saver/form/Pointer.h"
#include "saver/form/Windows9x.h"
#include "saver/form/frmScreenSaver.h"

namespace ambrio {

// A second request while the first is being answered, or after it, does nothing.
void frmScreenSaver::Unload() {
    if (isClosing_ || Handle() == nullptr) {
        return;
    }
    isClosing_ = true;
    if (isSessionEnding_ || Form_QueryUnload()) {
        Form_Unload();
        DestroyForm();
        unloaded_();
    }
    isClosing_ = false;
}

// False when the user may not leave.
bool frmScreenSaver::Form_QueryUnload() {
    SetTopmost(false);  // so that a password dialog can be seen
    ShowPointerSurely();
    if (UsesPassword() && !VerifyScreenSavePwd(Handle())) {
        SetTopmost(true);
        if (HidesPointer(application_.CommandLine)) {
            HidePointerSurely();
        }
        return false;
    }
    ShowFailureSummary();
    return true;
}

// Nothing is shown after a run without failures.
void frmScreenSaver::ShowFailureSummary() {
    const std::wstring text = run_->FailureSummary();
    if (!text.empty()) {
        ShowBox(text, kFailureSummaryTitle, MB_ICONEXCLAMATION);
    }
}

void frmScreenSaver::Form_Unload() {
    ShowPointerSurely();
    if (UsesPassword()) {
        TellScreenSaverRunning(false);
    }
}

// The window goes in this order: the timers first, so that no tick finds half a form; then, by the
// system, the panel and its labels, whose objects stay, empty, until the form's object goes. A run
// that is still returning thus finds everything it calls.
void frmScreenSaver::DestroyForm() {
    for (FormTimer* timer : {&tmrDoTheBiz_, &tmrKeepOnRunnin_, &pictures_, &tmrEnd_}) {
        timer->SetEnabled(false);
    }
    notices_.reset();
    blackWindows_.Cover({});
    Destroy();
}

// The close box. A run is asked to stop and unloads the form when it returns.
void frmScreenSaver::CloseRequested() {
    if (IsRunning()) {
        signals_.Interrupted = true;
    } else {
        Unload();
    }
}

// Agrees at once and uses the time until the session ends to stop a run.
LRESULT frmScreenSaver::AgreeToEndOfSession() {
    hasAgreedToEnd_ = true;
    if (IsRunning()) {
        signals_.Interrupted = true;
    }
    return TRUE;
}

// Nobody is there any more to type a password or to read a summary, or to wait for a large file.
// Where there is a password, an end that the system has not asked about first is not believed:
// another program could send it in the password's place. The news comes twice during a run.
void frmScreenSaver::SessionEnds(bool ends) {
    isSessionEnding_ = ends && (isSessionEnding_ || hasAgreedToEnd_ || !UsesPassword());
    hasAgreedToEnd_ = false;
    if (isSessionEnding_) {
        copyWatch_.BreakOff();
        CloseRequested();
    }
}

}  // namespace ambrio
