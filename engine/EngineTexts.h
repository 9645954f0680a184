#pragma once

#include <string>

namespace ambrio {

// Every text that the engine logs, shows or puts together. Titles, names, numbers and paths come in
// between.
inline constexpr const wchar_t* kLineBreak = L"\r\n";

// The log.
inline constexpr const wchar_t* kSeparatorLine = L"~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~";
inline constexpr const wchar_t* kStartWord = L" start ";
inline constexpr const wchar_t* kNoSets = L"No Sets to process";
inline constexpr const wchar_t* kSetStart = L" start";
inline constexpr const wchar_t* kSetComplete = L" complete";
inline constexpr const wchar_t* kSetNotSelected = L" not selected";
inline constexpr const wchar_t* kLogExtension = L".log";

// What was being done when something failed; the paths follow on lines of their own.
inline constexpr const wchar_t* kWhileRemoving = L" while removing ";
inline constexpr const wchar_t* kWhileCopying = L" while copying ";
inline constexpr const wchar_t* kWhileClearingArchiveBit = L" while clearing archive bit on ";
inline constexpr const wchar_t* kInCopyFile = L" in CopyFile ";
inline constexpr const wchar_t* kWhileWriting = L" while writing ";
inline constexpr const wchar_t* kWhileDeleting = L" while deleting ";
inline constexpr const wchar_t* kWhileProcessingSet = L" while processing Set ";
inline constexpr const wchar_t* kPathLine = L"      <";
inline constexpr const wchar_t* kToPathLine = L"   to <";
inline constexpr const wchar_t* kPathEnd = L">";
inline constexpr const wchar_t* kMissingFolder = L"Error <";
inline constexpr const wchar_t* kMissingFolderEnd = L"> does not exist.";
inline constexpr const wchar_t* kWhile = L" while ";
inline constexpr const wchar_t* kFolder = L" folder ";
inline constexpr const wchar_t* kAccessing = L"accessing";
inline constexpr const wchar_t* kCreating = L"creating";

// The closing block of the log.
inline constexpr const wchar_t* kUnprocessableFolders =
    L" folders (and their sub-folders) were unprocessable.";
inline constexpr const wchar_t* kCompleted = L" completed ";
inline constexpr const wchar_t* kEnded = L" ended ";
inline constexpr const wchar_t* kInterrupted = L" interrupted ";

// The panel.
inline constexpr const wchar_t* kBuildingFileList = L"building file list ...";
inline constexpr const wchar_t* kBuildingFolderList = L"building folder list ...";
inline constexpr const wchar_t* kRemovingCopy = L" - removing copy";
inline constexpr const wchar_t* kCopying = L" - copying";
inline constexpr const wchar_t* kDone = L" - done";
inline constexpr const wchar_t* kAllSetsProcessed = L"<All sets processed>";
inline constexpr const wchar_t* kErrorsReported = L"<ERRORS reported>";
inline constexpr const wchar_t* kSee = L"see ";
inline constexpr const wchar_t* kClipName = L"\\filecopy.avi";

// The box that counts the failures, shown when the form closes.
inline constexpr const wchar_t* kFailureSummaryTitle = L"Ambrio execution errors";
inline constexpr const wchar_t* kFilesFailed = L" files failed to copy.";
inline constexpr const wchar_t* kRemovalsFailed = L" files could not be removed.";
inline constexpr const wchar_t* kSeeLog = L"See ";
inline constexpr const wchar_t* kForDetails = L" for details.";

// The secondary screen saver.
inline constexpr const wchar_t* kScreenSaverExtension = L".scr";
inline constexpr const wchar_t* kStartInWindows = L" /S";
inline constexpr const wchar_t* kStartInSystem = L" /s";
inline constexpr const wchar_t* kTryingToStart = L"Trying to start secondary screen-saver";
inline constexpr const wchar_t* kCantFind = L"Can't find ";
inline constexpr const wchar_t* kCantRun = L"Can't run ";

// A path or name in angle brackets on a line of its own.
[[nodiscard]] inline std::wstring PathLine(const std::wstring& path) {
    return kLineBreak + (kPathLine + path) + kPathEnd;
}
[[nodiscard]] inline std::wstring ToPathLine(const std::wstring& path) {
    return kLineBreak + (kToPathLine + path) + kPathEnd;
}

}  // namespace ambrio
