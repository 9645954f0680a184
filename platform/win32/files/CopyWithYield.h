#pragma once

#include <cstdint>
#include <string>

#include "platform/CopyWatch.h"
#include "platform/FileSystem.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// A file below so many bytes is copied before anybody would notice.
inline constexpr std::uint64_t kSmallFile = 1 << 20;

// The platform's own copy of one file to a name that is free, calling `yield` at the start of a big
// one and then, until it is done, when input comes and at least about every 50 ms. `size` is that
// of the source, in bytes. A big copy is noted in `watch` and broken off where that says so, with
// ERROR_REQUEST_ABORTED. Gives the Win32 error code, 0 for success; part of the new file may be
// left after a failure.
[[nodiscard]] DWORD CopyWithYield(const std::wstring& source, const std::wstring& target,
                                  std::uint64_t size, CopyWatch& watch, const Yield& yield);

}  // namespace ambrio
