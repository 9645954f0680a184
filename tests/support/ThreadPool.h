#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/WorkerPool.h"

namespace ambrio {

// The threads of the standard library. Its end waits for each, however long that takes.
class ThreadPool : public WorkerPool {
  public:
    ThreadPool() = default;
    ~ThreadPool() override;
    ThreadPool(const ThreadPool&) = delete;
    ThreadPool& operator=(const ThreadPool&) = delete;

    void Begin(std::size_t threads, const Step& step) override;
    void Wake() override;
    bool End(std::chrono::milliseconds limit) override;
    void lock() override { shared_.lock(); }
    void unlock() override { shared_.unlock(); }
    void WaitForNews(std::chrono::milliseconds limit) override { news_.wait_for(shared_, limit); }
    void TellNews() override { news_.notify_all(); }

  private:
    void Run();

    std::mutex shared_;
    std::condition_variable_any news_;
    std::mutex own_;  // of what follows
    std::condition_variable work_;
    unsigned wakes_ = 0;
    bool isEnding_ = false;
    Step step_;
    std::vector<std::thread> threads_;
};

}  // namespace ambrio
