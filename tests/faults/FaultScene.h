#pragma once

#include <array>
#include <string>
#include <string_view>

#include "tests/support/EngineBench.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// What a run without a fault does with a file.
enum class Plan {
    CopyNew,             // there is no copy yet
    Replace,             // the copy is older
    ReplaceReadOnly,     // the copy is older and read-only, and may be overwritten
    RemoveCopy,          // the file does not qualify any more
    RemoveReadOnlyCopy,  // the same, and the copy is read-only
    Leave,               // the copy is as new as the file
};

struct PlannedFile {
    const wchar_t* Folder;  // below the root: "A", "A\s1"
    const wchar_t* Name;
    Plan What;

    [[nodiscard]] std::wstring Source() const;
    [[nodiscard]] std::wstring Copy() const;
    [[nodiscard]] std::wstring SetName() const { return {Folder[0]}; }
};

// Three Sets of three folders with two files each, in the order in which they are walked. A goes by
// date and makes all its destination folders; B goes by the archive bit, clears it and removes
// copies; C goes by the read-only bit and overwrites read-only copies.
inline constexpr std::array<PlannedFile, 18> kPlannedFiles{{
    {L"A", L"1", Plan::CopyNew},
    {L"A", L"2", Plan::CopyNew},
    {L"A\\s1", L"3", Plan::CopyNew},
    {L"A\\s1", L"4", Plan::CopyNew},
    {L"A\\s2", L"5", Plan::CopyNew},
    {L"A\\s2", L"6", Plan::CopyNew},
    {L"B", L"1", Plan::Replace},
    {L"B", L"2", Plan::RemoveCopy},
    {L"B\\s1", L"3", Plan::RemoveReadOnlyCopy},
    {L"B\\s1", L"4", Plan::CopyNew},
    {L"B\\s2", L"5", Plan::Replace},
    {L"B\\s2", L"6", Plan::RemoveCopy},
    {L"C", L"1", Plan::ReplaceReadOnly},
    {L"C", L"2", Plan::Leave},
    {L"C\\s1", L"3", Plan::ReplaceReadOnly},
    {L"C\\s1", L"4", Plan::CopyNew},
    {L"C\\s2", L"5", Plan::ReplaceReadOnly},
    {L"C\\s2", L"6", Plan::Leave},
}};

inline constexpr std::array<const wchar_t*, 3> kFaultSets = {L"A", L"B", L"C"};
inline constexpr std::array<const wchar_t*, 3> kFoldersOfASet = {L"", L"\\s1", L"\\s2"};

// The folders of that name at the source and at the destination.
[[nodiscard]] std::wstring SourceFolder(const std::wstring& folder);
[[nodiscard]] std::wstring CopyFolder(const std::wstring& folder);
// What a killed copy left in a destination folder that exists from the start.
[[nodiscard]] std::wstring NameOfLeftover();
[[nodiscard]] std::wstring LeftoverIn(const std::wstring& folder);

// The three Sets, ready to run, with yesterday's log and a second screen saver that is to follow.
class FaultScene {
  public:
    FaultScene();

    EngineBench Bench;

  private:
    void AddSets();
    void AddFile(const PlannedFile& file);
};

// The contents before a run: a source's is new and named after it, a copy's is old.
[[nodiscard]] std::string NewContent(const PlannedFile& file);
inline constexpr std::string_view kOldContent = "old";

}  // namespace ambrio
