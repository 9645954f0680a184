#include "engine/RunDriver.h"

#include <new>

#include "ProductVersion.h"
#include "engine/EngineTexts.h"
#include "settings/GeneralOptions.h"

namespace ambrio {
namespace {

std::wstring EndWordOf(const RunState& run, const RunSignals& signals) {
    if (signals.Interrupted) {
        return kInterrupted;
    }
    return run.HasFailures() ? kEnded : kCompleted;
}

}  // namespace

RunDriver::RunDriver(const Application& application, FileSystem& fileSystem,
                     SettingsStore& settings, Clock& clock, StatusPanel& panel, RunHost& host,
                     RunSignals& signals)
    : application_(application),
      fileSystem_(fileSystem),
      settings_(settings),
      clock_(clock),
      panel_(panel),
      host_(host),
      signals_(signals),
      log_(fileSystem, application, state_),
      run_{fileSystem, log_, panel, host, state_, signals},
      copier_(run_),
      walk_(run_, copier_),
      sets_(run_, settings, walk_) {}

void RunDriver::DoTheBiz() {
    RunUntilSetsEnd();
    fileSystem_.EndExpecting();
    TryWriteClosingBlock();
    CloseDisplay();
    if (HandOverToSecondarySaver() == HandOver::Ended) {
        return;
    }
    if (!state_.FatalErrorText.empty()) {
        host_.ShowMessage(state_.FatalErrorText + (IsLogRefused_ ? LogRefusedAdvice() : L""),
                          MessageIcon::CriticalStop);
    }
    if (!host_.IsEndTimerEnabled() && signals_.Interrupted) {
        host_.UnloadForm();
    }
}

void RunDriver::RunUntilSetsEnd() {
    try {
        Prepare();
        ClearLogOnNewDay();
        sets_.RunAllSets();
    } catch (const RuntimeError& failure) {
        KeepFatalError(failure);
    } catch (const std::bad_alloc&) {
        KeepFatalError(RuntimeError(ErrorNumber::OutOfMemory));
    }
}

void RunDriver::Prepare() {
    panel_.SetTitle(PanelTitle(application_.Title, AMBRIO_VERSION_MAJOR, AMBRIO_VERSION_MINOR));
    state_.LogOnlyErrors = ReadLogOnlyErrors(settings_);
    panel_.OpenClip(ClipPath(application_.ProgramFolder));
    state_.RunStartLine = StartLine(application_.Title, clock_.Now());
}

// Wanted: whatever "ClearLogDaily" holds.
void RunDriver::ClearLogOnNewDay() {
    const DateTime lastRun = ReadLastRun(settings_);
    const DateTime now = clock_.Now();
    SaveLastRun(settings_, now);
    if (DayDifference(lastRun, now) > 0) {
        log_.DeleteLog();
    }
}

// A failure that nobody below could place ends the Sets but not the closing steps.
void RunDriver::KeepFatalError(const RuntimeError& failure) {
    NoteIfLogRefused(failure);
    const bool isOfTheSet =
        !sets_.CurrentSet().empty() && dynamic_cast<const LogFailure*>(&failure) == nullptr;
    const std::wstring text =
        isOfTheSet ? SetNotProcessed(failure, sets_.CurrentSet()) : failure.LogText();
    AddFatalErrorText(text);
    signals_.Interrupted = true;
    try {
        log_.WriteLog(text, false);
    } catch (const LogFailure&) {
        return;  // the text is shown in a box anyway
    }
}

void RunDriver::NoteIfLogRefused(const RuntimeError& failure) {
    IsLogRefused_ = IsLogRefused_ || (dynamic_cast<const LogFailure*>(&failure) != nullptr &&
                                      failure.Number() == ErrorNumber::PermissionDenied);
}

void RunDriver::AddFatalErrorText(const std::wstring& text) {
    std::wstring& all = state_.FatalErrorText;
    if (all.find(text) == std::wstring::npos) {
        all += all.empty() ? text : kLineBreak + text;
    }
}

void RunDriver::TryWriteClosingBlock() {
    try {
        WriteClosingBlock();
    } catch (const LogFailure& failure) {
        NoteIfLogRefused(failure);
        // A run whose log nobody can read has not completed.
        AddFatalErrorText(failure.LogText());
        if (EndWord_ == kCompleted) {
            EndWord_ = kEnded;
        }
    }
}

// Wanted: a run without failures under LogOnlyErrors leaves EndWord empty, and with it the
// secondary screen saver alone.
void RunDriver::WriteClosingBlock() {
    if (state_.LogOnlyErrors && !state_.HasFailures()) {
        return;
    }
    log_.WriteLog(SummarySentence(state_), true);
    if (state_.FolderErrors > 0) {
        log_.WriteLog(UnprocessableFolders(state_), true);
    }
    EndWord_ = EndWordOf(state_, signals_);
    log_.WriteLog(EndLine(application_.Title, EndWord_, clock_.Now()), true);
    log_.WriteLog(kSeparatorLine, false);
}

void RunDriver::CloseDisplay() {
    panel_.CloseClip();
    host_.ShowPointer();
    host_.LeaveTopmost();
}

// Never after a failure, an interruption, or a clean run that was not to be logged.
HandOver RunDriver::HandOverToSecondarySaver() {
    if (EndWord_ != kCompleted) {
        return HandOver::Stayed;
    }
    try {
        return StartSecondarySaver(fileSystem_, host_, ReadSecondarySaver(settings_), EndWord_);
    } catch (const RuntimeError& failure) {
        AddFatalErrorText(failure.LogText());
        return HandOver::Stayed;
    }
}

std::wstring RunDriver::FailureSummary() {
    return state_.HasFailures() ? FailureSummaryText(state_, log_.Path()) : std::wstring();
}

}  // namespace ambrio
