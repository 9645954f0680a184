// Two users of one machine, or two sessions of one user: each has a desktop of its own, so neither
// saver sees the other's window, and both run.

#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <memory>
#include <thread>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

struct DesktopCloser {
    void operator()(HDESK desktop) const { CloseDesktop(desktop); }
};

class TwoProgramsTest : public SaverTest {
  protected:
    TwoProgramsTest()
        : desktop_(
              CreateDesktopW(OtherDesktop.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr)) {}

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

    // Waits until the panel of a program shows it, which only a thread of its desktop can see.
    static bool Shows(const RunningProgram& program,
                      const std::function<bool(const PanelProbe&)>& what) {
        const auto saver = WaitForWindow(program.ProcessId(), kSaverTitle, kWholeRun);
        return saver && WaitUntil([&] { return what(PanelProbe(*saver)); }, kWholeRun);
    }
    [[nodiscard]] bool HasOtherDesktop() const { return desktop_ != nullptr; }
    // Does it on a thread of the other desktop; once, as the system may close the desktop with it.
    void OnOtherDesktop(const std::function<void()>& work) const {
        std::thread([&] {
            EXPECT_NE(SetThreadDesktop(desktop_.get()), 0);
            try {
                work();
            } catch (const std::exception& failure) {
                ADD_FAILURE() << failure.what();
            }
        }).join();
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

    // One of that name may be on its way out.
    const std::wstring OtherDesktop = L"AmbrioDesktop" + std::to_wstring(GetTickCount64());

  private:
    std::unique_ptr<HDESK__, DesktopCloser> desktop_;
};

// The first stands still in a file until the second has begun, so that they meet in those that
// follow.
TEST_F(TwoProgramsTest, RunTheSameSetAtOnceAndLeaveWholeFilesOnly) {
    ASSERT_TRUE(HasOtherDesktop());
    Source.AddManyFiles(L"before", 40);
    Source.AddFile(L"before\\then\\held.bin", std::string(std::size_t{2} << 20U, 'h'));
    Source.AddManyFiles(L"before\\then\\after", 200);
    for (int i = 0; i < 5; ++i) {
        Source.AddFile(L"before\\then\\after\\large" + std::to_wstring(i),
                       std::string(std::size_t{3} << 20U, static_cast<char>('a' + i)));
    }
    WriteOneSet();
    // The first runs of a day would clear the log, each what the other has written.
    Settings.Write(L"General", L"LastRun", PresentTime());
    const auto hasEnded = [](const PanelProbe& panel) { return panel.ShowsTheEndOfTheRun(); };
    const HeldFiles files;
    LoadIntoPrograms(HeldFiles::Module());
    Start(L"/S");
    EXPECT_TRUE(files.WaitUntilHeld());
    OnOtherDesktop([&] {
        // Under Wine another program makes the desktop, which takes long on a busy machine.
        EXPECT_TRUE(WaitUntil([] { return IsWindowVisible(GetDesktopWindow()) != 0; }, kWholeRun));
        const RunningProgram second(Folder.Program(), L"/S", {}, OtherDesktop);
        EXPECT_TRUE(Shows(second,
                          [](const PanelProbe& panel) {
                              return !panel.Title().empty() && panel.Title() != kPanelDesignTitle;
                          }))
            << "the second run does not begin: " << LogForPeople();
        files.GoOn();
        EXPECT_TRUE(Shows(second, hasEnded)) << "the second run does not end: " << LogForPeople();
        EXPECT_TRUE(second.IsRunning());
        EndByKeyWithOrWithoutBox(second);
    });
    EXPECT_TRUE(Shows(Program(), hasEnded)) << "the first run does not end: " << LogForPeople();
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    EndByKeyWithOrWithoutBox(Program());
}

}  // namespace
}  // namespace ambrio::e2e
