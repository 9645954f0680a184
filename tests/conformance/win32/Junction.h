#pragma once

#include <string>

namespace ambrio {

// Makes a folder that is a mount point for another one, given by a full path. False when the system
// refuses.
[[nodiscard]] bool MakeJunction(const std::wstring& path, const std::wstring& target);

}  // namespace ambrio
