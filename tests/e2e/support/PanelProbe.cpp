#include "tests/e2e/support/PanelProbe.h"

#include <cwchar>

namespace ambrio::e2e {

namespace {

std::optional<WindowProbe> Find(const WindowProbe& form, PanelControl control) {
    return form.Control(static_cast<int>(control));
}

}  // namespace

std::wstring PanelProbe::Caption(PanelControl control) const {
    const std::optional<WindowProbe> window = Find(form_, control);
    return window ? window->Text() : std::wstring();
}

RECT PanelProbe::Rectangle(PanelControl control) const {
    const std::optional<WindowProbe> window = Find(form_, control);
    return window ? window->Rectangle() : RECT{};
}

POINT PanelProbe::Centre() const {
    const std::optional<WindowProbe> window = Find(form_, PanelControl::fraStatus);
    return window ? window->Centre() : POINT{};
}

bool PanelProbe::IsVisible(PanelControl control) const {
    const std::optional<WindowProbe> window = Find(form_, control);
    return window && window->IsVisible();
}

bool PanelProbe::ShowsTheEndOfTheRun() const {
    return Caption(PanelControl::lblSet).starts_with(kAllSetsProcessed);
}

int PanelProbe::Number(PanelControl control) const {
    const std::wstring caption = Caption(control);
    wchar_t* end = nullptr;
    const long number = std::wcstol(caption.c_str(), &end, 10);
    return caption.empty() || *end != L'\0' ? -1 : static_cast<int>(number);
}

}  // namespace ambrio::e2e
