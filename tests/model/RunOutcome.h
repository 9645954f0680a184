#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace ambrio {

// By section and key.
using ModelSettings = std::map<std::pair<std::wstring, std::wstring>, std::wstring>;
// By the name of the label.
using ModelCaptions = std::map<std::wstring, std::wstring>;

// Everything that can be seen of a run: what it says on the way and what it leaves.
struct RunOutcome {
    std::int32_t FilesChecked = 0;
    std::int32_t FilesCopied = 0;  // attempts, as are the removals
    std::int32_t CopyErrors = 0;
    std::int32_t CopiesRemoved = 0;
    std::int32_t RemoveErrors = 0;
    std::int32_t FolderErrors = 0;
    bool Interrupted = false;
    std::wstring FatalErrorText;
    std::wstring FailureSummary;                // what the box says when the form closes
    ModelCaptions Captions;                     // at the end
    std::vector<std::wstring> Display;          // each change of the panel: "lblSet=A", "play", ...
    std::vector<std::wstring> Actions;          // what was asked of the screen saver around the run
    ModelSettings Settings;                     // at the end
    std::map<std::wstring, std::wstring> Disk;  // ModelDisk's facts, at the end; the log is there

    [[nodiscard]] bool HasFailures() const {
        return CopyErrors > 0 || RemoveErrors > 0 || FolderErrors > 0;
    }
};

// Names each part in which the two differ, a line each; empty when they are alike.
[[nodiscard]] std::string Differences(const RunOutcome& actual, const RunOutcome& expected);

}  // namespace ambrio
