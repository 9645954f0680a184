#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/RunState.h"
#include "platform/Application.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// The log cannot be written or deleted. A class of its own, so that nobody takes it for the failure
// of the file or folder in hand. Its description names what was done and the log's path.
class LogFailure : public RuntimeError {
  public:
    using RuntimeError::RuntimeError;
};

// The log of one run. What it is given must live longer.
class RunLog {
  public:
    RunLog(FileSystem& fileSystem, const Application& application, const RunState& state);

    // Decided at the first call and the same from then on.
    const std::wstring& Path();

    // Writes one entry as a line, before it the header when it is the first of the run. The file
    // stays open when `rbKeepOpen`; entries that it has stayed open for are flushed to the disk
    // with the last one. Throws LogFailure; the file is closed then, part of the text
    // may have been written, and the next call starts afresh.
    void WriteLog(const std::wstring& rsText, bool rbKeepOpen);

    // Deletes the log file when it exists, but not when it is read-only. Throws LogFailure; the
    // file is unchanged then.
    void DeleteLog();

  private:
    void WriteLines(const std::wstring& rsText);

    FileSystem& fileSystem_;
    const Application& application_;
    const RunState& state_;
    std::optional<std::wstring> path_;
    std::unique_ptr<TextStream> LogStream_;
    bool HeaderWritten_ = false;
};

}  // namespace ambrio
