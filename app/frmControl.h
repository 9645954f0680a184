#pragma once

#include <functional>
#include <memory>

#include "platform/Application.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The mini form of the display settings' preview. It never shows itself; it gives its picture to
// the window Application::ParentWindow and animates it until that window goes away or closes the
// picture. Then it unloads itself and says so. The message loop is the caller's.
class frmControl {
  public:
    // `unloaded` is called once, on this thread, from inside the last timer tick; the object must
    // outlive that call.
    frmControl(const Application& application, HINSTANCE instance, std::function<void()> unloaded);
    ~frmControl();
    frmControl(const frmControl&) = delete;
    frmControl& operator=(const frmControl&) = delete;

    // Makes the form and its controls and starts the timer. A preview handle that is no window is
    // noticed by the first tick.
    void Load();

  private:
    class Implementation;

    std::unique_ptr<Implementation> implementation_;
};

}  // namespace ambrio
