#pragma once

#include <string>

#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {

// A folder of a test's own with a copy of the program and of the clip that belongs beside it. The
// program is taken from beside this test program: Ambrio.scr, or what the environment variable
// AMBRIO_PROGRAM names, which may be a path as well. The folder and all that was made in it are
// removed by the destructor; a folder that cannot be removed fails the test that is running.
class ProgramFolder {
  public:
    // `programName` is the name that the copy gets, `parent` the folder in which this one is made.
    // Throws std::system_error when there is no program to copy.
    explicit ProgramFolder(const std::wstring& programName = L"Ambrio.scr",
                           const std::wstring& parent = TemporaryFolder());
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    // No separator at the end of any of these.
    [[nodiscard]] const std::wstring& Path() const { return path_; }
    [[nodiscard]] const std::wstring& Program() const { return program_; }
    [[nodiscard]] std::wstring LogFile() const { return path_ + L"\\Ambrio.log"; }
    // A path below the folder; nothing is made.
    [[nodiscard]] std::wstring Below(const std::wstring& relative) const {
        return path_ + L"\\" + relative;
    }

  private:
    std::wstring path_;
    std::wstring program_;
};

}  // namespace ambrio::e2e
