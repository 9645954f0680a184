// frmScreenSaver: what a touch does while a run cannot end at once.

#include "saver/form/Pointer.h"
#include "saver/form/SecureDesktop.h"
#include "saver/form/frmScreenSaver.h"
#include "saver/model/InputRules.h"
#include "saver/model/WaitText.h"

namespace ambrio {

// Gives the desktop back at once, while the run goes to its end behind it: that may take minutes,
// with a large file in hand or many folders still to come. The window stays, as it is what another
// saver finds.
void frmScreenSaver::LetGo() {
    if (hasLetGo_ || Stays()) {
        return;
    }
    hasLetGo_ = true;
    tmrKeepOnRunnin_.SetEnabled(false);  // nobody sees it any more
    pictures_.SetEnabled(false);
    ShowWindow(Handle(), SW_HIDE);
    ShowPointerSurely();
}

// Whether there is nothing behind the form that could be given back, or nothing that may be.
bool frmScreenSaver::Stays() const {
    return StaysOrdinaryWindow(application_.CommandLine) || UsesPassword() || IsOnSecureDesktop();
}

void frmScreenSaver::AskForPatience() {
    const bool isCopying = signals_.Interrupted && signals_.CopyInProgress && !hasLetGo_;
    plate_->Say(isCopying ? WaitText(signals_.CopiedFile, copyWatch_.PercentDone())
                          : std::wstring());
}

}  // namespace ambrio
