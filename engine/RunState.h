#pragma once

#include <cstdint>
#include <string>

namespace ambrio {

// What one run counts and notes. It is made with the run and for no other.
struct RunState {
    std::int32_t FilesChecked = 0;   // files handed to CopyFile
    std::int32_t FilesCopied = 0;    // copy attempts
    std::int32_t CopyErrors = 0;     // failed copies
    std::int32_t CopiesRemoved = 0;  // removal attempts
    std::int32_t RemoveErrors = 0;   // failed removals
    std::int32_t FolderErrors = 0;   // folders that could not be read or made

    bool LogOnlyErrors = false;

    std::wstring RunStartLine;    // the log's start line
    std::wstring FatalErrorText;  // the unexpected failure that interrupted the run; else empty

    [[nodiscard]] bool HasFailures() const {
        return CopyErrors > 0 || RemoveErrors > 0 || FolderErrors > 0;
    }
};

}  // namespace ambrio
