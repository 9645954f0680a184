#pragma once

#include <string>

#include "saver/panel/PanelControls.h"
#include "tests/e2e/support/WindowProbe.h"

namespace ambrio::e2e {

inline constexpr const wchar_t* kAllSetsProcessed = L"<All sets processed>";

// Looks at the panel in the saver's window.
class PanelProbe {
  public:
    explicit PanelProbe(WindowProbe form) : form_(form) {}

    // What a label shows; empty when there is no such control.
    [[nodiscard]] std::wstring Caption(PanelControl control) const;
    // The caption of the frame around it all.
    [[nodiscard]] std::wstring Title() const { return Caption(PanelControl::fraStatus); }
    // Screen pixels.
    [[nodiscard]] RECT Rectangle(PanelControl control = PanelControl::fraStatus) const;
    [[nodiscard]] POINT Centre() const;
    [[nodiscard]] bool IsVisible(PanelControl control) const;
    // True when it says that all Sets are processed, with or without errors.
    [[nodiscard]] bool ShowsTheEndOfTheRun() const;
    // The number that a label shows; -1 when it is none.
    [[nodiscard]] int Number(PanelControl control) const;

  private:
    WindowProbe form_;
};

}  // namespace ambrio::e2e
