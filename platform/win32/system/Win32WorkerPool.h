#pragma once

#include <memory>
#include <vector>

#include "platform/WorkerPool.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {

// Threads of the system with small stacks. One that does not end in time has what it waits for
// called off, where the system can, and is then left to itself.
class Win32WorkerPool : public WorkerPool {
  public:
    Win32WorkerPool();
    ~Win32WorkerPool() override;
    Win32WorkerPool(const Win32WorkerPool&) = delete;
    Win32WorkerPool& operator=(const Win32WorkerPool&) = delete;

    void Begin(std::size_t threads, const Step& step) override;
    void Wake() override;
    bool End(std::chrono::milliseconds limit) override;
    void lock() override;
    void unlock() override;
    void WaitForNews(std::chrono::milliseconds limit) override;
    void TellNews() override;

  private:
    struct Crew;

    static DWORD WINAPI Run(LPVOID crew);

    SRWLOCK lock_ = SRWLOCK_INIT;
    CONDITION_VARIABLE news_ = CONDITION_VARIABLE_INIT;
    std::shared_ptr<Crew> crew_;  // the threads have it too
    std::vector<UniqueHandle> threads_;
};

}  // namespace ambrio
