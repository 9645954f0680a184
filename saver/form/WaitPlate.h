#pragma once

#include <string>

#include "platform/win32/windows/GdiHandles.h"
#include "platform/win32/windows/Window.h"

namespace ambrio {

// A plate in the middle of the form, over everything else on it, that asks for patience. It is not
// there while there is nothing to say. Input goes through it to what lies below. Its text is the
// window's text, so that other programs can read it out.
class WaitPlate : public Window {
  public:
    // The form is not owned; it needs WS_CLIPCHILDREN.
    explicit WaitPlate(HWND form);
    ~WaitPlate() override;

    // Writes in letters for this resolution. Those of the system's messages are made for the
    // resolution of the primary monitor.
    void SetResolution(int dotsPerInch);

    // Shows the lines of the text, or nothing when it is empty.
    void Say(const std::wstring& text);

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Place();
    void Draw(HDC target) const;

    HWND form_;
    std::wstring text_;
    UniqueFont font_;
};

}  // namespace ambrio
