#pragma once

#include <string>
#include <vector>

#include "tests/e2e/support/Handles.h"
#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

// A started program and everything that it starts in turn; nothing of it survives this object.
class RunningProgram {
  public:
    // Starts `program` with the command line that is its quoted path, a blank and `arguments`
    // exactly as they stand. A `module` is loaded into it before its first instruction; without
    // a `desktop` it is on this process's own. Throws std::system_error when it cannot be started.
    RunningProgram(const std::wstring& program, const std::wstring& arguments,
                   const std::wstring& module = {}, std::wstring desktop = {});
    // Ends whatever still runs.
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    [[nodiscard]] DWORD ProcessId() const { return processId_; }
    [[nodiscard]] bool IsRunning() const { return !WaitForEnd(Milliseconds(0)); }

    // True once the program itself has ended; false when it still runs after the limit.
    [[nodiscard]] bool WaitForEnd(Milliseconds limit = kSoon) const;
    // True when the program has no input to work on and waits for more.
    [[nodiscard]] bool WaitForInputIdle(Milliseconds limit = kSoon) const;
    // To be asked after the end.
    [[nodiscard]] DWORD ExitCode() const;

    // How many processes of it still run: the program and what it started.
    [[nodiscard]] DWORD ProcessCount() const;
    // The processes of what the program started, without itself.
    [[nodiscard]] std::vector<DWORD> StartedProcessIds() const;
    // Ends the program and what it started at once, as a crash or a power failure would.
    void Kill();

  private:
    UniqueHandle job_;
    UniqueHandle process_;
    DWORD processId_ = 0;
};

}  // namespace ambrio::e2e
