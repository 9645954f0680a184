#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// A library of the system that not every system has, loaded for as long as the object lives.
class SystemLibrary {
  public:
    // By the full path in the system folder, so that no other file of that name is ever loaded.
    explicit SystemLibrary(const std::wstring& fileName);

    // Null when the library or the function does not exist.
    template <typename FunctionPointer>
    [[nodiscard]] FunctionPointer Function(const char* name) const {
        return reinterpret_cast<FunctionPointer>(Address(name));
    }

  private:
    struct Deleter {
        void operator()(HMODULE library) const { FreeLibrary(library); }
    };

    [[nodiscard]] void* Address(const char* name) const;

    std::unique_ptr<std::remove_pointer_t<HMODULE>, Deleter> library_;
};

}  // namespace ambrio
