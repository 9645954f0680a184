#pragma once

#include <functional>
#include <string>

namespace ambrio {

// What stands for the part of a text that there is no room for.
constexpr wchar_t kEllipsis = L'\x2026';

// Tells whether a text fits where it is to be shown.
using TextFits = std::function<bool(const std::wstring& text)>;

// The text, or, when it does not fit, as much of its two ends as does, with an ellipsis between
// them: a path keeps its drive and its last folder, a file what is being done with it. A text of
// any length costs a few calls of `fits`.
[[nodiscard]] std::wstring Shortened(const std::wstring& text, const TextFits& fits);

}  // namespace ambrio
