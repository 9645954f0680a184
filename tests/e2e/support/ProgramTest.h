#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/e2e/support/Input.h"
#include "tests/e2e/support/LogText.h"
#include "tests/e2e/support/MessageBoxProbe.h"
#include "tests/e2e/support/ProgramFolder.h"
#include "tests/e2e/support/RunningProgram.h"
#include "tests/e2e/support/SettingsFixture.h"
#include "tests/e2e/support/WindowProbe.h"

namespace ambrio::e2e {

// A test of the real program: a folder of its own, empty settings, and the check afterwards that
// the program has ended and left no process, no window and no temporary file. What a helper waits
// for in vain is thrown as std::runtime_error, which fails the test.
class ProgramTest : public testing::Test {
  protected:
    ProgramTest();
    ~ProgramTest() override;
    void TearDown() override;

    // Starts the program with these arguments. Only one at a time is looked after; what was
    // started before must have ended.
    RunningProgram& Start(const std::wstring& arguments) { return Start(arguments, Folder); }
    // The same with a program that lies elsewhere.
    RunningProgram& Start(const std::wstring& arguments, const ProgramFolder& folder);
    // The same with a program of any path.
    RunningProgram& StartFile(const std::wstring& path, const std::wstring& arguments);
    [[nodiscard]] RunningProgram& Program();

    // Waits for a visible top-level window of the program.
    [[nodiscard]] WindowProbe WindowTitled(const std::wstring& title);
    // Waits for a message box of the program.
    [[nodiscard]] MessageBoxProbe WaitForBox();
    // From now on this test and the programs that it starts see files as Windows shows them, also
    // under Wine: the archive bit can be cleared, read-only files are not replaced.
    void SeeFilesAsOnWindows();
    // From now on the programs that this test starts have this module in them.
    void LoadIntoPrograms(const std::wstring& module) { module_ = module; }
    // True when the program ends soon.
    [[nodiscard]] bool Ends() { return Program().WaitForEnd(); }
    // True when the program goes on running for a while.
    [[nodiscard]] bool GoesOn() { return !Program().WaitForEnd(kWhile); }

    [[nodiscard]] LogText Log() const { return LogText(Folder.LogFile()); }

    ProgramFolder Folder;
    SettingsFixture Settings;

  private:
    void SetTemporaryFolder(const std::wstring& path);
    void ExpectNothingLeft();

    PointerGuard pointer_;
    std::wstring userTemporaryFolder_;
    std::wstring module_;  // loaded into the programs that are started, unless empty
    std::unique_ptr<RunningProgram> program_;
};

}  // namespace ambrio::e2e
