#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "app/preview/PreviewFrame.h"
#include "app/preview/PreviewPicture.h"
#include "app/preview/model/PreviewCaption.h"
#include "platform/Application.h"
#include "platform/win32/system/RandomNumber.h"
#include "platform/win32/windows/FormTimer.h"
#include "platform/win32/windows/Window.h"
#include "saver/animation/FrameAnimation.h"

namespace ambrio {

// The mini form of the display settings' preview. It never shows itself; it gives its picture to
// the window Application::ParentWindow and animates it until that window goes away or closes the
// picture. Then it unloads itself and says so.
class frmControl : public Window {
  public:
    // The application must live longer than the form. `unloaded` is called once, on this thread,
    // from inside a message; the form must outlive that call.
    frmControl(const Application& application, std::function<void()> unloaded);
    ~frmControl() override;

    // Makes the form and its controls and starts the timer. A preview handle that is no window is
    // noticed by the first tick.
    void Load();

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Form_Load();
    void Timer1_Timer();
    void Unload();
    void Form_Unload();
    [[nodiscard]] HWND ParentWindow() const;

    const Application& application_;
    std::function<void()> unloaded_;
    FormTimer Timer1_;
    std::unique_ptr<PreviewPicture> Picture1_;
    std::unique_ptr<PreviewFrame> fraStatus_;
    FrameAnimation animation_{static_cast<std::uint32_t>(RandomNumber())};
    PreviewCaption caption_;
    bool isUnloaded_ = false;
};

}  // namespace ambrio
