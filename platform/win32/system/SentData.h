#pragma once

#include <optional>
#include <type_traits>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// A copy of what a message points to. Nothing where that cannot be read: another program can send
// the same message with an address at which nothing lies.
template <typename Data>
[[nodiscard]] std::optional<Data> ReadSentData(LPARAM address) {
    static_assert(std::is_trivially_copyable_v<Data>);
    Data data{};
    if (ReadProcessMemory(GetCurrentProcess(), reinterpret_cast<const void*>(address), &data,
                          sizeof data, nullptr) == 0) {
        return std::nullopt;
    }
    return data;
}

}  // namespace ambrio
