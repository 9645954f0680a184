#pragma once

#include <optional>

#include "platform/RuntimeError.h"

namespace ambrio {

// The number of the RuntimeError that the operation throws, or nothing when it throws none.
template <typename Operation>
[[nodiscard]] std::optional<ErrorNumber> RuntimeErrorOf(Operation&& operation) {
    try {
        operation();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return std::nullopt;
}

}  // namespace ambrio
