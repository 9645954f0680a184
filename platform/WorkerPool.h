#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

namespace ambrio {

// A few threads that work beside the one that asks, and the lock that keeps what they share. It is
// a BasicLockable (std::lock_guard, std::unique_lock); nothing else in it may be called with the
// lock held but what says so.
class WorkerPool {
  public:
    // Does one piece of work; false when there is none. Is called on the pool's threads, without
    // the lock, must not throw, and may be called until End has returned true.
    using Step = std::function<bool()>;

    virtual ~WorkerPool() = default;

    // Starts so many threads, or as many as the system lets it; does nothing while there are some.
    virtual void Begin(std::size_t threads, const Step& step) = 0;
    // There is work (again).
    virtual void Wake() = 0;
    // Has the threads end after the step that each is at, and waits so long for that at most; false
    // when one has not ended. Those are left alone and call nothing any more.
    virtual bool End(std::chrono::milliseconds limit) = 0;

    virtual void lock() = 0;
    virtual void unlock() = 0;
    // With the lock held, which is released meanwhile: waits until something is told, or so long at
    // most.
    virtual void WaitForNews(std::chrono::milliseconds limit) = 0;
    // With or without the lock held: has who waits look again.
    virtual void TellNews() = 0;
};

}  // namespace ambrio
