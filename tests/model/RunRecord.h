#pragma once

#include <string>

#include "tests/model/ReferenceRun.h"

namespace ambrio {

// "Error ", number, " - ", description.
[[nodiscard]] std::wstring ErrorText(ErrorNumber number);
// The lines that follow it.
[[nodiscard]] std::wstring PathText(const std::wstring& path);
[[nodiscard]] std::wstring BothPathsText(const std::wstring& source, const std::wstring& copy);

// A failure that ends the Sets.
struct ModelFailure {
    ErrorNumber Number;
};
// The same, of the log.
struct LogTrouble {
    std::wstring Text;
    bool IsRefusal = false;  // perhaps for a reason that the user can do away with
};

// The run of the reference model as it goes on: the disk, the log, the panel, the counters.
class RunRecord {
  public:
    RunRecord(const ModelWorld& world, const FaultPlan& fails);

    // Whether this call of a stage fails, and how. To be asked once for each call.
    [[nodiscard]] ModelDisk::Result Fails(Stage stage, const std::wstring& path) const {
        return fails_(stage, path);
    }
    [[nodiscard]] std::wstring Setting(const std::wstring& section, const std::wstring& key,
                                       const std::wstring& fallback) const;

    void Show(const std::wstring& label, const std::wstring& caption);
    void Show(const std::wstring& label, int number) { Show(label, std::to_wstring(number)); }
    void ChangeDisplay(const std::wstring& change) { Out.Display.push_back(change); }

    // The path of the log, decided when it is first asked for.
    const std::wstring& LogFile();
    // Throw LogTrouble.
    void Log(const std::wstring& text, bool keepOpen = false);
    void DeleteLog();

    // Keeps what the box at the end is to say; each text once.
    void AddFatalError(const std::wstring& text);

    const ModelWorld& World;
    ModelDisk Disk;
    RunOutcome Out;
    bool LogsOnlyErrors = false;

  private:
    [[nodiscard]] bool MayBeWritten(const std::wstring& log) const;
    void WriteLine(const std::wstring& text);

    const FaultPlan& fails_;
    std::wstring logFile_;
    bool isLogOpen_ = false;
    bool hasHeader_ = false;
};

}  // namespace ambrio
