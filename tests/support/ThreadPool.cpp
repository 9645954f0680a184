#include "tests/support/ThreadPool.h"

namespace ambrio {

ThreadPool::~ThreadPool() {
    End({});
}

void ThreadPool::Begin(std::size_t threads, const Step& step) {
    if (!threads_.empty()) {
        return;
    }
    step_ = step;
    isEnding_ = false;
    for (std::size_t i = 0; i < threads; ++i) {
        threads_.emplace_back([this] { Run(); });
    }
}

void ThreadPool::Run() {
    std::unique_lock lock(own_);
    while (!isEnding_) {
        const unsigned wakes = wakes_;
        lock.unlock();
        const bool hasWorked = step_();
        lock.lock();
        work_.wait(lock, [&] { return hasWorked || isEnding_ || wakes != wakes_; });
    }
}

void ThreadPool::Wake() {
    {
        const std::lock_guard lock(own_);
        ++wakes_;
    }
    work_.notify_all();
}

bool ThreadPool::End(std::chrono::milliseconds) {
    {
        const std::lock_guard lock(own_);
        isEnding_ = true;
    }
    work_.notify_all();
    for (std::thread& thread : threads_) {
        thread.join();
    }
    threads_.clear();
    return true;
}

}  // namespace ambrio
