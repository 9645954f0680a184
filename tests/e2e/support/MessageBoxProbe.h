#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/e2e/support/WindowProbe.h"

namespace ambrio::e2e {

enum class BoxIcon { None, CriticalStop, Question, Exclamation, Information };

// One of the system's message boxes, shown by another process.
class MessageBoxProbe {
  public:
    // Waits until the process shows one.
    [[nodiscard]] static std::optional<MessageBoxProbe> Wait(DWORD processId,
                                                             Milliseconds limit = kSoon);
    // The one that it shows now, if any.
    [[nodiscard]] static std::optional<MessageBoxProbe> Find(DWORD processId);

    [[nodiscard]] const WindowProbe& Window() const { return window_; }
    [[nodiscard]] std::wstring Title() const { return window_.Text(); }
    [[nodiscard]] std::wstring Text() const;
    // Told by what is seen on the screen, so the box must not be covered.
    [[nodiscard]] BoxIcon Icon() const;
    // Without the ampersands.
    [[nodiscard]] std::vector<std::wstring> ButtonTexts() const;
    // Presses a button, counted from 0 as they stand, and waits until the box has gone; false when
    // it stays.
    [[nodiscard]] bool Press(std::size_t button = 0) const;

  private:
    explicit MessageBoxProbe(WindowProbe window) : window_(window) {}

    WindowProbe window_;
};

}  // namespace ambrio::e2e
