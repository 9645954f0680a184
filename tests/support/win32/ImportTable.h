#pragma once

#include <span>

namespace ambrio {

// A function of the system and what is to be called in its place.
struct Replacement {
    const char* Name;
    void* Function;
};

// Calls of the process's own program (not those of the system's modules among themselves) go to the
// replacements from now on. False, and nothing is changed, when the program imports one of
// `unknown`: it would then get half of the answers from here and half from the system.
[[nodiscard]] bool ReplaceImports(std::span<const Replacement> replacements,
                                  std::span<const char* const> unknown);

// Where the calls of that function go now; null when the program does not import it.
[[nodiscard]] void* ImportedFunction(const char* name);

}  // namespace ambrio
