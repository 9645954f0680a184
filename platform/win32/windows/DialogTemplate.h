#pragma once

#include <cstdint>
#include <vector>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// A dialog's layout as a resource holds it, with the font that the user has chosen for messages in
// place of its own. Positions in a layout are units of its font, so the whole dialog grows with it.
// Throws RuntimeError OutOfMemory when there is no such layout, or one that is not of the extended
// kind.
[[nodiscard]] std::vector<std::uint8_t> DialogTemplateInMessageFont(HINSTANCE instance, int id);

}  // namespace ambrio
