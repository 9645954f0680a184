#pragma once

#include <exception>

#include "platform/Worker.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {

// A thread that does one thing after the other. It is made when there is something to do for the
// first time. Meanwhile the thread that asks has `yield` called when input comes and at least about
// every 50 ms, but not for what is done sooner. Where the system refuses a thread, and for what is
// asked from within `yield`, the work is done on the asking thread.
class WorkerThread : public Worker {
  public:
    WorkerThread() = default;
    ~WorkerThread() override;
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    void Do(const std::function<void()>& work, const Yield& yield) override;

  private:
    [[nodiscard]] bool Start();
    static DWORD WINAPI Run(LPVOID self);
    void WorkUntilEnd();
    void WaitUntilDone(const Yield& yield) const;

    UniqueHandle toDo_;  // both reset themselves
    UniqueHandle done_;
    UniqueHandle thread_;
    // Handed over by these two events.
    const std::function<void()>* work_ = nullptr;  // null: the thread is to end
    std::exception_ptr failure_;
    bool isAtWork_ = false;
};

}  // namespace ambrio
