#include "platform/win32/windows/MessageLoop.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {
namespace {

constexpr std::chrono::milliseconds kLongest{20};

// To ask for the state of the queue costs the least, but says nothing of kinds of input that came
// later than this program, and does not tell the system that the program is alive.
constexpr std::chrono::milliseconds kBetweenLooks{50};
thread_local std::chrono::steady_clock::time_point lastLook{};

// Set by this program. A WM_QUIT alone says nothing, as other programs can post one.
thread_local bool isToEnd = false;

void Dispatch(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

bool TakeInputFirst(MSG& message) {
    return PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT) != FALSE ||
           PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;
}

// The timers that have ticked. One whose handler takes longer than its interval always has another
// tick waiting, on a slow machine any does; that must not keep others from their turn.
class TickedTimers {
  public:
    // True once for each timer, and for whatever is no tick.
    bool IsTurnOf(const MSG& message) {
        if (message.message != WM_TIMER) {
            return true;
        }
        const std::pair timer(message.hwnd, message.wParam);
        if (std::find(ticked_.begin(), ticked_.end(), timer) != ticked_.end()) {
            return false;
        }
        ticked_.push_back(timer);
        return true;
    }

  private:
    std::vector<std::pair<HWND, WPARAM>> ticked_;
};

}  // namespace

void HandleWaitingMessages() {
    MSG message;
    // Nothing waits after nearly every file.
    const auto now = std::chrono::steady_clock::now();
    const bool isLookDue = now - lastLook >= kBetweenLooks;
    if (!isLookDue && HIWORD(GetQueueStatus(QS_ALLINPUT)) == 0) {
        return;
    }
    lastLook = now;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == FALSE) {
        return;
    }
    const auto end = std::chrono::steady_clock::now() + kLongest;
    TickedTimers timers;
    while (TakeInputFirst(message)) {
        if (message.message == WM_QUIT && isToEnd) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (timers.IsTurnOf(message)) {
            Dispatch(message);
        }
        if (std::chrono::steady_clock::now() >= end) {
            return;
        }
    }
}

void RunMessageLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0 || !isToEnd) {
        Dispatch(message);
    }
    isToEnd = false;
}

void EndMessageLoop() {
    isToEnd = true;
    PostQuitMessage(0);
}

}  // namespace ambrio
