#pragma once

#include <string>

namespace ambrio {

// True for a name that can only mean an entry of its own folder: it is not empty, is not "." or
// "..", and holds neither a separator nor a control character. What a server or a damaged disk
// lists need not be so, and a path made of anything else might lead out of the folder.
[[nodiscard]] bool IsPlainName(const std::wstring& name);

}  // namespace ambrio
