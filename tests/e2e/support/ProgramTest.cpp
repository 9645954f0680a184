#include "tests/e2e/support/ProgramTest.h"

#include <stdexcept>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/TestTree.h"
#include "tests/e2e/support/Text.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {

ProgramTest::ProgramTest() : userTemporaryFolder_(TemporaryFolder()) {
    // The program's temporary files come here, where whatever stays behind is seen.
    SetTemporaryFolder(Folder.Below(L"Temp"));
    MakeFolders(Folder.Below(L"Temp"));
}

ProgramTest::~ProgramTest() {
    SetTemporaryFolder(userTemporaryFolder_);
}

void ProgramTest::TearDown() {
    ExpectNothingLeft();
}

RunningProgram& ProgramTest::Start(const std::wstring& arguments, const ProgramFolder& folder) {
    return StartFile(folder.Program(), arguments);
}

RunningProgram& ProgramTest::StartFile(const std::wstring& path, const std::wstring& arguments) {
    if (program_) {
        ExpectNothingLeft();
    }
    program_ = std::make_unique<RunningProgram>(path, arguments, module_);
    return *program_;
}

RunningProgram& ProgramTest::Program() {
    if (!program_) {
        throw std::logic_error("the test has not started the program");
    }
    return *program_;
}

void ProgramTest::SeeFilesAsOnWindows() {
    module_ = LoadWindowsFiles();
}

WindowProbe ProgramTest::WindowTitled(const std::wstring& title) {
    const std::optional<WindowProbe> window = WaitForWindow(Program().ProcessId(), title);
    if (!window) {
        throw std::runtime_error("no window has the title " + Utf8(title));
    }
    return *window;
}

MessageBoxProbe ProgramTest::WaitForBox() {
    const std::optional<MessageBoxProbe> box = MessageBoxProbe::Wait(Program().ProcessId());
    if (!box) {
        throw std::runtime_error("no message box is shown");
    }
    return *box;
}

void ProgramTest::SetTemporaryFolder(const std::wstring& path) {
    SetEnvironmentVariableW(L"TEMP", path.c_str());
    SetEnvironmentVariableW(L"TMP", path.c_str());
}

void ProgramTest::ExpectNothingLeft() {
    if (!program_) {
        return;
    }
    // A test that has failed already does not wait for what will not come.
    const Milliseconds limit = HasFailure() ? Milliseconds(0) : kSoon;
    EXPECT_TRUE(program_->WaitForEnd(limit)) << "the program still runs";
    EXPECT_TRUE(WaitUntil([this] { return program_->ProcessCount() == 0; }, limit))
        << "something that the program has started still runs";
    program_->Kill();
    EXPECT_TRUE(TopLevelWindows(program_->ProcessId()).empty()) << "a window is left";
    EXPECT_TRUE(SameTree({}, ReadTree(Folder.Below(L"Temp")))) << "temporary files are left";
}

}  // namespace ambrio::e2e
