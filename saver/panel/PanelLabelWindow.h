#pragma once

#include <functional>
#include <string>

#include "platform/win32/windows/Window.h"

namespace ambrio {

// One label of the panel: a child window whose text can be read and set from outside. It lets the
// pointer through to the panel. It does not draw its text: the panel draws itself as a whole, and
// the label only repeats its part of that picture when the system asks for it.
class PanelLabelWindow : public Window {
  public:
    // What the label needs of the panel.
    struct Panel {
        std::function<void(int controlId)> TextChanged;        // draw the label anew, at once
        std::function<void(int controlId, HDC target)> Paint;  // the panel's picture of the label
    };

    // The panel is not owned; its functions are called on the window's thread. Place in pixels of
    // the parent.
    PanelLabelWindow(HWND parent, int controlId, const RECT& place, std::wstring text,
                     const Panel& panel);
    ~PanelLabelWindow() override;

    void SetText(const std::wstring& text);
    [[nodiscard]] const std::wstring& Text() const { return text_; }
    // Gives the text to the system, which is where other programs find it who do not ask the window
    // itself, and tells those who listen. Does nothing when that is done already.
    void Tell();

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT CopyText(WPARAM capacity, wchar_t* buffer) const;

    int controlId_;
    std::wstring text_;
    std::wstring told_;  // what the system has
    const Panel& panel_;
};

}  // namespace ambrio
