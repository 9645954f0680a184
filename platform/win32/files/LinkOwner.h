#pragma once

#include <string>

namespace ambrio {

// True for a link (a symbolic link or a mount point) whose owner is neither the current user nor
// the Administrators nor the system, or cannot be told. False for everything else, files that only
// carry notes of the system (compressed, in the cloud) included.
[[nodiscard]] bool IsLinkOfAnotherUser(const std::wstring& extended);

}  // namespace ambrio
