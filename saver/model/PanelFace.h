#pragma once

#include <functional>

namespace ambrio {

// The name of the face that the panel is written in: that of the system's own dialogs, or else one
// that is as narrow. The first of them that is there; without any, the first of all, for which the
// system then takes what it has.
[[nodiscard]] const wchar_t* PanelFace(const std::function<bool(const wchar_t*)>& isThere);

}  // namespace ambrio
