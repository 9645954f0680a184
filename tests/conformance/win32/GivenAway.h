#pragma once

#include <string>

namespace ambrio {

// Makes everyone the owner of a file, a folder or a link itself, given by its extended path; nobody
// can tell it then from another user's. False when this user lacks the privilege.
[[nodiscard]] bool GiveToEveryone(const std::wstring& extended);

}  // namespace ambrio
