#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/win32/windows/Window.h"
#include "saver/animation/Area.h"

namespace ambrio {

// Plain black windows on what the full-screen form does not reach: monitors left of the primary one
// or above it. They share its layer, never take the keys, and pass what the mouse does to it. The
// form does not own them in the system's sense: an owned window cannot leave the layer of the
// topmost windows by itself everywhere.
class BlackWindows {
  public:
    // The form is not owned.
    explicit BlackWindows(const Window& form) : form_(form) {}

    // Covers these places of the screen, in pixels, and no others. Seen while the form is.
    void Cover(std::span<const Area> places);

    // To be called when the form is shown or hidden, and when its layer changes.
    void Show(bool visible);
    void SetTopmost(bool topmost);
    // Puts them behind another window, as the form steps behind it.
    void StepBehind(HWND other);

    [[nodiscard]] std::size_t Count() const { return windows_.size(); }

  private:
    const Window& form_;
    std::vector<std::unique_ptr<Window>> windows_;
    bool isTopmost_ = false;
};

}  // namespace ambrio
