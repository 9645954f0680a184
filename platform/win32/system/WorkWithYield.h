#pragma once

#include <functional>

#include "platform/FileSystem.h"

namespace ambrio {

// Does `work` on a thread of its own and returns when it is done. Meanwhile calls `yield` on this
// thread, at the start and then when input comes and at least about every 50 ms. Without `yield`,
// or where the system refuses a thread, works on this one. `work` must not throw, nor use what
// `yield` uses.
void WorkWithYield(const std::function<void()>& work, const Yield& yield);

}  // namespace ambrio
