#include "platform/win32/windows/FormTimer.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace ambrio {
namespace {

using namespace std::chrono_literals;

struct WindowDeleter {
    void operator()(HWND window) const { DestroyWindow(window); }
};
using UniqueWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDeleter>;

UniqueWindow MakeHiddenWindow() {
    return UniqueWindow(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        nullptr, nullptr));
}

// Waits for the next tick of any timer of the window and gives the timer's id.
UINT_PTR NextTick(const UniqueWindow& window) {
    MSG message;
    GetMessageW(&message, window.get(), WM_TIMER, WM_TIMER);
    return message.wParam;
}

TEST(FormTimer, TicksAtItsIntervalOnceEnabled) {
    const UniqueWindow window = MakeHiddenWindow();
    FormTimer timer(7, 60ms);
    timer.AttachTo(window.get());
    EXPECT_FALSE(timer.IsEnabled());
    const auto start = std::chrono::steady_clock::now();
    timer.SetEnabled(true);
    EXPECT_TRUE(timer.IsEnabled());
    EXPECT_EQ(7U, NextTick(window));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 45ms);  // the system's clock is coarse
}

TEST(FormTimer, TicksNoMoreOnceDisabled) {
    const UniqueWindow window = MakeHiddenWindow();
    FormTimer disabled(7, 10ms);
    FormTimer other(8, 60ms);
    disabled.AttachTo(window.get());
    other.AttachTo(window.get());
    disabled.SetEnabled(true);
    disabled.SetEnabled(false);
    other.SetEnabled(true);
    EXPECT_EQ(8U, NextTick(window));
}

TEST(FormTimer, TakesNothingForATickOfItsOwnWhileItIsDisabled) {
    const UniqueWindow window = MakeHiddenWindow();
    FormTimer timer(7, 60ms);
    timer.AttachTo(window.get());
    EXPECT_FALSE(timer.IsTick(7));
    timer.SetEnabled(true);
    EXPECT_TRUE(timer.IsTick(7));
    EXPECT_FALSE(timer.IsTick(8));
    timer.SetEnabled(false);
    EXPECT_FALSE(timer.IsTick(7));
}

TEST(FormTimer, CannotBeEnabledWithoutAWindow) {
    FormTimer timer(7, 10ms);
    timer.SetEnabled(true);
    EXPECT_FALSE(timer.IsEnabled());
}

}  // namespace
}  // namespace ambrio
