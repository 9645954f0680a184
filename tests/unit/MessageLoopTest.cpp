#include "platform/win32/windows/MessageLoop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>

#include "platform/win32/windows/FormTimer.h"
#include "platform/win32/windows/Window.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

constexpr UINT_PTR kTimer = 7;
constexpr int kEndOfTheProgram = 9;

// A small window that writes down what it receives: numbers posted to it, of which one ends the
// program, "t" for a tick, "k" for a key.
class EventWindow : public Window {
  public:
    EventWindow() {
        WindowDesign design;
        design.ClassName = L"AmbrioEventWindow";
        design.Style = WS_POPUP;
        design.ExtendedStyle = WS_EX_TOPMOST;
        design.Width = 10;
        design.Height = 10;
        Create(design);
    }
    ~EventWindow() override { Destroy(); }

    void Post(int number) const { PostMessageW(Handle(), WM_APP, static_cast<WPARAM>(number), 0); }

    std::string Received;
    std::chrono::milliseconds Time{0};  // how long it takes to handle one of these

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_APP:
                Received += std::to_string(wParam);
                if (wParam == kEndOfTheProgram) {
                    EndMessageLoop();
                }
                break;
            case WM_TIMER:
                Received += 't';
                if (Received.size() > 20) {
                    KillTimer(Handle(), wParam);  // a loop that goes on for ever is told, too
                }
                break;
            case WM_KEYDOWN:
                Received += 'k';
                break;
            default:
                return Window::Receive(message, wParam, lParam);
        }
        const auto end = SteadyClock::now() + Time;
        while (SteadyClock::now() < end) {
        }
        return 0;
    }
};

bool Waits(DWORD kind) {
    return (HIWORD(GetQueueStatus(kind)) & kind) != 0;
}

// True once something of that kind is in the queue.
bool Comes(DWORD kind) {
    return Waits(kind) || MsgWaitForMultipleObjects(0, nullptr, FALSE, 5000, kind) == WAIT_OBJECT_0;
}

TEST(MessageLoop, LetsEverythingThatWaitsRun) {
    EventWindow window;
    window.Post(1);
    window.Post(2);
    const auto start = SteadyClock::now();
    HandleWaitingMessages();
    // Unless this machine has had no time for it.
    EXPECT_TRUE(window.Received == "12" || SteadyClock::now() - start >= 20ms) << window.Received;
    HandleWaitingMessages();
    EXPECT_EQ("12", window.Received);
}

TEST(MessageLoop, LeavesWhatWaitsAfterTwentyMillisecondsForTheNextTime) {
    EventWindow window;
    window.Time = 8ms;
    for (int i = 1; i <= 5; ++i) {
        window.Post(i);
    }
    HandleWaitingMessages();
    EXPECT_LE(window.Received.size(), 3U);
    EXPECT_GE(window.Received.size(), 1U);
    for (int i = 0; i < 4; ++i) {
        HandleWaitingMessages();
    }
    EXPECT_EQ("12345", window.Received);
}

TEST(MessageLoop, LetsATimerTickOnlyOnceHoweverLongATickTakes) {
    EventWindow window;
    FormTimer timer(kTimer, 10ms);
    timer.AttachTo(window.Handle());
    timer.SetEnabled(true);
    for (const auto time : {12ms, 30ms}) {
        window.Received.clear();
        window.Time = time;
        ASSERT_TRUE(Comes(QS_TIMER));
        HandleWaitingMessages();
        EXPECT_EQ("t", window.Received);
    }
}

TEST(MessageLoop, TakesWhatTheUserDidBeforeAllElse) {
    EventWindow window;
    ShowWindow(window.Handle(), SW_SHOW);
    SetForegroundWindow(window.Handle());
    SetFocus(window.Handle());
    HandleWaitingMessages();
    if (GetForegroundWindow() != window.Handle()) {
        GTEST_SKIP() << "another program has the keyboard";
    }
    window.Received.clear();
    window.Time = 25ms;
    window.Post(1);
    INPUT press{};
    press.type = INPUT_KEYBOARD;
    press.ki.wVk = VK_F5;
    SendInput(1, &press, sizeof press);
    ASSERT_TRUE(Comes(QS_KEY));
    HandleWaitingMessages();
    EXPECT_EQ("k", window.Received);
    HandleWaitingMessages();
    EXPECT_EQ("k1", window.Received);
    press.ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(1, &press, sizeof press);
}

TEST(MessageLoop, EndsWhenThatWasSaidWhileEventsRan) {
    EventWindow window;
    window.Post(kEndOfTheProgram);
    HandleWaitingMessages();
    HandleWaitingMessages();
    EXPECT_EQ("9", window.Received);
    window.Post(1);
    RunMessageLoop();
    EXPECT_EQ("91", window.Received);
    window.Post(2);
    HandleWaitingMessages();
    EXPECT_EQ("912", window.Received);
}

TEST(MessageLoop, GoesOnForAQuitThatAnotherProgramPosts) {
    EventWindow window;
    PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 0, 0);
    PostMessageW(window.Handle(), WM_QUIT, 0, 0);
    window.Post(1);
    for (int i = 0; i < 3; ++i) {
        HandleWaitingMessages();
    }
    EXPECT_EQ("1", window.Received);
    PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 0, 0);
    PostMessageW(window.Handle(), WM_QUIT, 0, 0);
    window.Post(2);
    window.Post(kEndOfTheProgram);
    RunMessageLoop();
    EXPECT_EQ("129", window.Received);
}

int queueLooks = 0;

BOOL WINAPI CountedPeek(LPMSG message, HWND window, UINT first, UINT last, UINT options) {
    using Peek = decltype(PeekMessageW);
    static const auto system = reinterpret_cast<Peek*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "PeekMessageW")));
    ++queueLooks;
    return system(message, window, first, last, options);
}

// A look into the queue costs twice what the question after its state does; so it is taken often
// enough to show that the program is alive, and no more often.
TEST(MessageLoop, LooksIntoTheQueueOnlyNowAndThenWhileNothingWaits) {
    const EventWindow window;
    HandleWaitingMessages();
    HandleWaitingMessages();
    queueLooks = 0;
    const ReplacedImport peek(L"user32.dll", "PeekMessageW", reinterpret_cast<void*>(&CountedPeek));
    const auto start = SteadyClock::now();
    int questions = 0;
    while (SteadyClock::now() - start < 120ms) {
        HandleWaitingMessages();
        ++questions;
    }
    const auto lasted = SteadyClock::now() - start;
    EXPECT_GE(queueLooks, questions > 2 ? 1 : 0);
    EXPECT_LE(queueLooks, lasted / 50ms + 1);
    queueLooks = 0;
    window.Post(1);
    HandleWaitingMessages();
    EXPECT_GE(queueLooks, 1) << "what waits is taken at once";
}

}  // namespace
}  // namespace ambrio
