#pragma once

#include <functional>

#include "platform/FileSystem.h"

namespace ambrio {

// Does what may take long while the thread that asks for it answers input.
class Worker {
  public:
    virtual ~Worker() = default;

    // Does `work` and returns when it is done, calling `yield`, which may be empty, meanwhile. What
    // `work` throws is thrown here; what `yield` throws, too, once the work is done.
    virtual void Do(const std::function<void()>& work, const Yield& yield) = 0;
};

}  // namespace ambrio
