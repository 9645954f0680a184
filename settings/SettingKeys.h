#pragma once

namespace ambrio {

// The sections and keys of the settings tree and the texts that stand in it. A Set's own section
// bears the Set's name.
inline constexpr const wchar_t* kGeneralSection = L"General";

inline constexpr const wchar_t* kSetsKey = L"Sets";
inline constexpr const wchar_t* kLogOnlyErrorsKey = L"LogOnlyErrors";
inline constexpr const wchar_t* kClearLogDailyKey = L"ClearLogDaily";
inline constexpr const wchar_t* kSecondarySaverKey = L"Secondary SS";
inline constexpr const wchar_t* kLastRunKey = L"LastRun";

inline constexpr const wchar_t* kSelectedKey = L"Selected";
inline constexpr const wchar_t* kSourceKey = L"Source";
inline constexpr const wchar_t* kDestinationKey = L"Destination";
inline constexpr const wchar_t* kRecursiveKey = L"Recursive";
inline constexpr const wchar_t* kCopyTypeKey = L"CopyType";
inline constexpr const wchar_t* kOverwriteReadOnlyKey = L"OverwriteReadOnly";
inline constexpr const wchar_t* kClearArchiveBitKey = L"ClearArchiveBit";
inline constexpr const wchar_t* kDeleteCopyArchiveBitKey = L"DeleteCopyArchiveBit";
inline constexpr const wchar_t* kDeleteCopyReadOnlyKey = L"DeleteCopyReadOnly";
inline constexpr const wchar_t* kSchemeKey = L"Scheme";
inline constexpr const wchar_t* kIncludeKey = L"Include";
inline constexpr const wchar_t* kExcludeKey = L"Exclude";
// Wanted: the properties dialog reads this key and writes kDeleteCopyArchiveBitKey.
inline constexpr const wchar_t* kDeleteCopyArchiveKey = L"DeleteCopyArchive";

// How the flags of Flags.h stand there.
inline constexpr const wchar_t* kYes = L"Yes";
inline constexpr const wchar_t* kNo = L"No";
[[nodiscard]] constexpr const wchar_t* YesNo(bool value) {
    return value ? kYes : kNo;
}

inline constexpr const wchar_t* kCopyTypeArchiveBit = L"ArchiveBit";
inline constexpr const wchar_t* kCopyTypeReadOnly = L"ReadOnly";
inline constexpr const wchar_t* kCopyTypeDateTime = L"Date/Time";

}  // namespace ambrio
