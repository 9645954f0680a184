#pragma once

#include <string>

#include "platform/FileAttributes.h"

namespace ambrio {

// Which attributes of a source file a copy type looks at and what they must be.
struct CopyRule {
    FileAttributes Mask = 0;
    FileAttributes Required = 0;

    // Whether the file may have a copy at all.
    [[nodiscard]] bool Qualifies(FileAttributes source) const {
        return (source & Mask) == Required;
    }
};

// The rule of a copy type, compared exactly. Every text that is no copy type behaves as
// "Date/Time": every file qualifies and its time decides.
[[nodiscard]] CopyRule CopyRuleOf(const std::wstring& rsCopyType);

}  // namespace ambrio
