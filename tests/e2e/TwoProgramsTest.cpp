// Two users of one machine, or two sessions of one user: each has a desktop of its own, so neither
// saver sees the other's window, and both run.

#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

struct DesktopCloser {
    void operator()(HDESK desktop) const { CloseDesktop(desktop); }
};

constexpr const wchar_t* kOtherDesktop = L"AmbrioOtherDesktop";

class TwoProgramsTest : public SaverTest {
  protected:
    TwoProgramsTest()
        : desktop_(CreateDesktopW(kOtherDesktop, nullptr, nullptr, 0, GENERIC_ALL, nullptr)) {}

    // Ends a saver as a key does. A box of failures may come up: its run may have met a file that
    // the other one was just about to rename.
    static void EndByKeyWithOrWithoutBox(const RunningProgram& program) {
        const std::vector<WindowProbe> windows = TopLevelWindows(program.ProcessId());
        for (const WindowProbe& window : windows) {
            window.Post(WM_KEYDOWN, VK_SPACE);
        }
        EXPECT_TRUE(WaitUntil([&] {
            const auto box = MessageBoxProbe::Find(program.ProcessId());
            return !program.IsRunning() || (box && box->Press());
        }));
        EXPECT_TRUE(program.WaitForEnd());
    }

    // The same on the other desktop, which only a thread of that desktop can speak to.
    void EndOnOtherDesktop(const RunningProgram& program) {
        std::thread([&] {
            EXPECT_NE(SetThreadDesktop(desktop_.get()), 0);
            EndByKeyWithOrWithoutBox(program);
        }).join();
    }

    // How many runs the log says have come to their end.
    [[nodiscard]] int EndedRuns() const {
        int ended = 0;
        const LogText log = Log();
        for (const std::wstring& line : log.AllLines()) {
            ended += line.starts_with(L"Ambrio completed ") || line.starts_with(L"Ambrio ended ");
        }
        return ended;
    }

    // What the log says, plain characters alone.
    [[nodiscard]] std::string LogForPeople() const {
        std::string text;
        const LogText log = Log();
        for (const std::wstring& line : log.AllLines()) {
            for (const wchar_t character : line) {
                text += character < 127 ? static_cast<char>(character) : '?';
            }
            text += '\n';
        }
        return text;
    }

    std::unique_ptr<HDESK__, DesktopCloser> desktop_;
};

TEST_F(TwoProgramsTest, RunTheSameSetAtOnceAndLeaveWholeFilesOnly) {
    ASSERT_NE(desktop_, nullptr);
    Source.AddManyFiles(L"small", 200);
    for (int i = 0; i < 5; ++i) {
        Source.AddFile(L"large" + std::to_wstring(i), std::string(std::size_t{3} << 20U, 'a'));
    }
    WriteOneSet();
    Start(L"/S");
    const RunningProgram second(Folder.Program(), L"/S", {}, kOtherDesktop);
    WaitForTheEndOfTheRun();
    EXPECT_TRUE(WaitUntil([this] { return EndedRuns() == 2; }))
        << "the second run does not end: " << LogForPeople();
    EXPECT_TRUE(second.IsRunning());
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    EndOnOtherDesktop(second);
    EndByKeyWithOrWithoutBox(Program());
}

}  // namespace
}  // namespace ambrio::e2e
