#include "engine/EngineTexts.h"

#include <algorithm>
#include <cstdint>

#include "platform/DecimalText.h"
#include "platform/GeneralDate.h"

namespace ambrio {
namespace {

constexpr const wchar_t* kUnprocessableFolders =
    L" folders (and their sub-folders) were unprocessable.";

bool BreaksLines(wchar_t c) {
    return c < L' ' || (c >= L'\x7f' && c < L'\xa0') || c == L'\u2028' || c == L'\u2029';
}

// A path or name in angle brackets, all on one line: whoever named a folder must not write lines of
// his own into the log.
std::wstring InBrackets(std::wstring path) {
    std::replace_if(path.begin(), path.end(), BreaksLines, L'?');
    return L"<" + path + L">";
}

// On a line of its own.
std::wstring PathLine(const std::wstring& path) {
    return kLineBreak + (L"      " + InBrackets(path));
}

std::wstring PathLines(const std::wstring& source, const std::wstring& copy) {
    return PathLine(source) + kLineBreak + L"   to " + InBrackets(copy);
}

std::wstring Quoted(std::wstring set) {
    std::replace_if(set.begin(), set.end(), BreaksLines, L'?');
    return L"'" + set + L"'";
}

// The words before and after the number; nothing for a count of nothing.
std::wstring Clause(std::int32_t count, const wchar_t* before, const wchar_t* after) {
    return count > 0 ? before + DecimalText(count) + after : std::wstring();
}

std::wstring SaverTrouble(const wchar_t* trouble, const std::wstring& name) {
    return std::wstring(L"Trying to start secondary screen-saver") + kLineBreak + trouble + name;
}

}  // namespace

std::wstring LogName(const std::wstring& title) {
    return title + L".log";
}

std::wstring StartLine(const std::wstring& title, const DateTime& time) {
    return title + L" start " + GeneralDateText(time);
}

std::wstring SetStarts(const std::wstring& set) {
    return Quoted(set) + L" start";
}

std::wstring SetIsComplete(const std::wstring& set) {
    return Quoted(set) + L" complete";
}

std::wstring SetIsNotSelected(const std::wstring& set) {
    return Quoted(set) + L" not selected";
}

std::wstring CopyNotRemoved(const RuntimeError& failure, const std::wstring& copy) {
    return failure.LogText() + L" while removing " + PathLine(copy);
}

std::wstring FileNotCopied(const RuntimeError& failure, const std::wstring& source,
                           const std::wstring& copy) {
    return failure.LogText() + L" while copying " + PathLines(source, copy);
}

std::wstring ArchiveBitNotCleared(const RuntimeError& failure, const std::wstring& source) {
    return failure.LogText() + L" while clearing archive bit on " + PathLine(source);
}

std::wstring FileNotDecided(const RuntimeError& failure, const std::wstring& source,
                            const std::wstring& copy) {
    return failure.LogText() + L" in CopyFile " + PathLines(source, copy);
}

std::wstring FolderMissing(const std::wstring& folder) {
    return L"Error " + InBrackets(folder) + L" does not exist.";
}

std::wstring FolderNotProcessed(const RuntimeError& failure, FolderAction action,
                                const std::wstring& folder) {
    const wchar_t* words =
        action == FolderAction::Creating ? L" while creating folder " : L" while accessing folder ";
    return failure.LogText() + words + PathLine(folder);
}

std::wstring SetNotProcessed(const RuntimeError& failure, const std::wstring& set) {
    return failure.LogText() + L" while processing Set " + PathLine(set);
}

std::wstring LogNotWritten(const RuntimeError& cause, const std::wstring& log) {
    return cause.Description() + L" while writing " + PathLine(log);
}

std::wstring LogNotDeleted(const RuntimeError& cause, const std::wstring& log) {
    return cause.Description() + L" while deleting " + PathLine(log);
}

std::wstring LogRefusedAdvice() {
    return std::wstring(kLineBreak) + kLineBreak +
           L"Another program may have this file open, or it may be read-only. Close that "
           L"program or remove the file; until then nothing is backed up.";
}

std::wstring SummarySentence(const RunState& run) {
    return L"Of " + DecimalText(run.FilesChecked) + L" files checked, " +
           DecimalText(run.FilesCopied - run.CopyErrors) + L" were copied" +
           Clause(run.CopyErrors, L" and ", L" failed to copy") + L"; " +
           DecimalText(run.CopiesRemoved - run.RemoveErrors) + L" copies were removed" +
           Clause(run.RemoveErrors, L" and ", L" could not be removed") + L".";
}

std::wstring UnprocessableFolders(const RunState& run) {
    return DecimalText(run.FolderErrors) + kUnprocessableFolders;
}

std::wstring EndLine(const std::wstring& title, const std::wstring& endWord, const DateTime& time) {
    return title + endWord + GeneralDateText(time);
}

std::wstring PanelTitle(const std::wstring& title, int major, int minor) {
    return title + L" v" + DecimalText(major) + L"." + DecimalText(minor);
}

std::wstring RemovingCopy(const std::wstring& file) {
    return file + L" - removing copy";
}

std::wstring Copying(const std::wstring& file) {
    return file + L" - copying";
}

std::wstring Done(const std::wstring& file) {
    return file + L" - done";
}

std::wstring AllSetsProcessedWithErrors(const std::wstring& log) {
    return std::wstring(kAllSetsProcessed) + L"<ERRORS reported>" + kLineBreak + L"see " + log;
}

std::wstring ClipPath(const std::wstring& programFolder) {
    return programFolder + L"\\filecopy.avi";
}

std::wstring FailureSummaryText(const RunState& run, const std::wstring& log) {
    std::wstring lines;
    for (const std::wstring& line : {Clause(run.CopyErrors, L"", L" files failed to copy."),
                                     Clause(run.RemoveErrors, L"", L" files could not be removed."),
                                     Clause(run.FolderErrors, L"", kUnprocessableFolders)}) {
        lines += line.empty() ? line : line + kLineBreak;
    }
    if (lines.empty()) {
        return lines;
    }
    return lines + kLineBreak + kLineBreak + L"See " + log + L" for details.";
}

std::wstring SaverFile(const std::wstring& name) {
    return name + L".scr";
}

std::wstring StartSaverOfWindowsFolder(const std::wstring& name) {
    return SaverFile(name) + L" /S";
}

std::wstring StartSaverOfSystemFolder(const std::wstring& name) {
    return SaverFile(name) + L" /s";
}

std::wstring SaverNotFound(const std::wstring& name) {
    return SaverTrouble(L"Can't find ", name);
}

std::wstring SaverNotStarted(const std::wstring& name) {
    return SaverTrouble(L"Can't run ", name);
}

}  // namespace ambrio
