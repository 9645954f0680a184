#include "engine/RunSummary.h"

#include "engine/EngineTexts.h"

namespace ambrio {
namespace {

// The words before and after the number; nothing for a count of nothing.
std::wstring Clause(std::int32_t count, const wchar_t* before, const wchar_t* after) {
    return count > 0 ? before + std::to_wstring(count) + after : std::wstring();
}

}  // namespace

std::wstring SummarySentence(const RunState& state) {
    return L"Of " + std::to_wstring(state.FilesChecked) + L" files checked, " +
           std::to_wstring(state.FilesCopied - state.CopyErrors) + L" were copied" +
           Clause(state.CopyErrors, L" and ", L" failed to copy") + L"; " +
           std::to_wstring(state.CopiesRemoved - state.RemoveErrors) + L" copies were removed" +
           Clause(state.RemoveErrors, L" and ", L" could not be removed") + L".";
}

std::wstring UnprocessableFolders(const RunState& state) {
    return std::to_wstring(state.FolderErrors) + kUnprocessableFolders;
}

std::wstring EndWordOf(const RunState& state, const RunSignals& signals) {
    if (signals.Interrupted) {
        return kInterrupted;
    }
    return state.HasFailures() ? kEnded : kCompleted;
}

std::wstring FailureSummaryText(const RunState& state, const std::wstring& logPath) {
    std::wstring lines;
    for (const std::wstring& line : {Clause(state.CopyErrors, L"", kFilesFailed),
                                     Clause(state.RemoveErrors, L"", kRemovalsFailed),
                                     Clause(state.FolderErrors, L"", kUnprocessableFolders)}) {
        lines += line.empty() ? line : line + kLineBreak;
    }
    if (lines.empty()) {
        return lines;
    }
    return lines + kLineBreak + kLineBreak + kSeeLog + logPath + kForDetails;
}

}  // namespace ambrio
