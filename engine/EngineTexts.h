#pragma once

#include <string>

#include "engine/RunState.h"
#include "platform/DateTime.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// Every text that the engine logs, shows or hands to the system, each as a whole. Only how a
// failure itself is told is RuntimeError's affair, and how a date is written GeneralDateText's.

inline constexpr const wchar_t* kLineBreak = L"\r\n";

// The log: its name, and lines of a run without failures.
[[nodiscard]] std::wstring LogName(const std::wstring& title);
inline constexpr const wchar_t* kSeparatorLine = L"~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~";
inline constexpr const wchar_t* kNoSets = L"No Sets to process";
[[nodiscard]] std::wstring StartLine(const std::wstring& title, const DateTime& time);
[[nodiscard]] std::wstring SetStarts(const std::wstring& set);
[[nodiscard]] std::wstring SetIsComplete(const std::wstring& set);
[[nodiscard]] std::wstring SetIsNotSelected(const std::wstring& set);

// What is logged when something fails: what was being done and, each on a line of its own, the
// paths.
[[nodiscard]] std::wstring CopyNotRemoved(const RuntimeError& failure, const std::wstring& copy);
[[nodiscard]] std::wstring FileNotCopied(const RuntimeError& failure, const std::wstring& source,
                                         const std::wstring& copy);
[[nodiscard]] std::wstring ArchiveBitNotCleared(const RuntimeError& failure,
                                                const std::wstring& source);
[[nodiscard]] std::wstring FileNotDecided(const RuntimeError& failure, const std::wstring& source,
                                          const std::wstring& copy);
[[nodiscard]] std::wstring FolderMissing(const std::wstring& folder);
enum class FolderAction { Accessing, Creating };
[[nodiscard]] std::wstring FolderNotProcessed(const RuntimeError& failure, FolderAction action,
                                              const std::wstring& folder);
[[nodiscard]] std::wstring SetNotProcessed(const RuntimeError& failure, const std::wstring& set);
// Descriptions of a failure of the log itself.
[[nodiscard]] std::wstring LogNotWritten(const RuntimeError& cause, const std::wstring& log);
[[nodiscard]] std::wstring LogNotDeleted(const RuntimeError& cause, const std::wstring& log);

// What the box adds when the log could not be opened or removed.
[[nodiscard]] std::wstring LogRefusedAdvice();

// The closing block of the log.
inline constexpr const wchar_t* kCompleted = L" completed ";
inline constexpr const wchar_t* kEnded = L" ended ";
inline constexpr const wchar_t* kInterrupted = L" interrupted ";
[[nodiscard]] std::wstring SummarySentence(const RunState& run);
[[nodiscard]] std::wstring UnprocessableFolders(const RunState& run);
[[nodiscard]] std::wstring EndLine(const std::wstring& title, const std::wstring& endWord,
                                   const DateTime& time);

// The panel.
[[nodiscard]] std::wstring PanelTitle(const std::wstring& title, int major, int minor);
inline constexpr const wchar_t* kBuildingFileList = L"building file list ...";
inline constexpr const wchar_t* kBuildingFolderList = L"building folder list ...";
[[nodiscard]] std::wstring RemovingCopy(const std::wstring& file);
[[nodiscard]] std::wstring Copying(const std::wstring& file);
[[nodiscard]] std::wstring Done(const std::wstring& file);
inline constexpr const wchar_t* kAllSetsProcessed = L"<All sets processed>";
[[nodiscard]] std::wstring AllSetsProcessedWithErrors(const std::wstring& log);
[[nodiscard]] std::wstring ClipPath(const std::wstring& programFolder);

// The box that counts the failures, shown when the form closes. The text has a line for each kind
// of failure and says where the log lies; it is empty when nothing failed.
inline constexpr const wchar_t* kFailureSummaryTitle = L"Ambrio execution errors";
[[nodiscard]] std::wstring FailureSummaryText(const RunState& run, const std::wstring& log);

// The secondary screen saver: its file, what is started for it, and what is said when that fails.
[[nodiscard]] std::wstring SaverFile(const std::wstring& name);
[[nodiscard]] std::wstring StartSaverOfWindowsFolder(const std::wstring& name);
[[nodiscard]] std::wstring StartSaverOfSystemFolder(const std::wstring& name);
[[nodiscard]] std::wstring SaverNotFound(const std::wstring& name);
[[nodiscard]] std::wstring SaverNotStarted(const std::wstring& name);

}  // namespace ambrio
