#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

struct CloseRegistryKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};

// An open key, closed when it goes.
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseRegistryKey>;

}  // namespace ambrio
