#pragma once

#include "platform/win32/system/Handle.h"

namespace ambrio {

// Keeps the end of the session waiting while it lives. The system ends a program as soon as all its
// windows have answered that the session ends; one whose thread is at work and lets messages in now
// and then answers long before its work is brought to an order. So this object has a window of its
// own, never seen, on a thread of its own: it passes the news on to `window` and answers when the
// object goes.
//
// Where the system refuses thread or window, nothing is held up.
class SessionEndHold {
  public:
    // `window` is not owned; it may be on any thread.
    explicit SessionEndHold(HWND window);
    ~SessionEndHold();
    SessionEndHold(const SessionEndHold&) = delete;
    SessionEndHold& operator=(const SessionEndHold&) = delete;

  private:
    static DWORD WINAPI Run(LPVOID self);
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
    void WaitUntilReleased() const;

    HWND window_;
    UniqueHandle isReady_;  // the window is there, or will never be
    UniqueHandle released_;
    // The last member: the thread uses the others from its first moment on.
    UniqueHandle thread_;
};

}  // namespace ambrio
