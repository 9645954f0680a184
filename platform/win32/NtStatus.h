#pragma once

#include "platform/win32/NativeHeaders.h"

namespace ambrio {

// Answers of the calls below the system's own interface, as the system documents them; not every
// header names them.
inline constexpr auto kStatusNotImplemented = static_cast<NTSTATUS>(0xC0000002);
inline constexpr auto kStatusInvalidParameter = static_cast<NTSTATUS>(0xC000000D);
inline constexpr auto kStatusNoSuchFile = static_cast<NTSTATUS>(0xC000000F);
inline constexpr auto kStatusInvalidDeviceRequest = static_cast<NTSTATUS>(0xC0000010);
inline constexpr auto kStatusNotSupported = static_cast<NTSTATUS>(0xC00000BB);
inline constexpr auto kStatusNoMoreFiles = static_cast<NTSTATUS>(0x80000006);

}  // namespace ambrio
