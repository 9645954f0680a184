#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/Twips.h"
#include "saver/panel/StatusPanelView.h"

namespace ambrio {

// A hidden form with a panel on it.
class Panel {
  public:
    explicit Panel(int dotsPerInch = 96)
        : form_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1600, 1200, nullptr, nullptr,
                                nullptr, nullptr)),
          View(std::make_unique<StatusPanelView>(form_, TwipsPerPixel(dotsPerInch),
                                                 TwipsPerPixel(dotsPerInch), L"A slogan.",
                                                 [this] { ++MouseDowns; })) {}
    ~Panel() {
        View.reset();
        CloseForm();
    }
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    // In front of everything else.
    void ShowForm() const {
        SetWindowPos(form_, HWND_TOPMOST, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
    void CloseForm() { DestroyWindow(std::exchange(form_, nullptr)); }

    [[nodiscard]] HWND Control(PanelControl control) const {
        if (control == PanelControl::fraStatus) {
            return View->Handle();
        }
        const HWND parent =
            control == PanelControl::Animation1 ? Control(PanelControl::fraAni) : View->Handle();
        return GetDlgItem(parent, static_cast<int>(control));
    }

    // As another program reads it.
    [[nodiscard]] std::wstring Text(PanelControl control) const {
        const auto length = SendMessageW(Control(control), WM_GETTEXTLENGTH, 0, 0);
        std::wstring text(static_cast<std::size_t>(length) + 1, L'#');
        text.resize(static_cast<std::size_t>(SendMessageW(Control(control), WM_GETTEXT, text.size(),
                                                          reinterpret_cast<LPARAM>(text.data()))));
        return text;
    }

    // In pixels of the parent.
    [[nodiscard]] RECT Place(PanelControl control) const {
        RECT place;
        GetWindowRect(Control(control), &place);
        MapWindowPoints(nullptr, GetParent(Control(control)), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }

    // What the panel looks like at this moment.
    [[nodiscard]] BackBuffer Picture() const {
        RECT area;
        GetClientRect(View->Handle(), &area);
        BackBuffer picture(area.right, area.bottom);
        SendMessageW(View->Handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.DC()),
                     PRF_CLIENT);
        return picture;
    }

  private:
    HWND form_;

  public:
    int MouseDowns = 0;
    std::unique_ptr<StatusPanelView> View;
};

}  // namespace ambrio
