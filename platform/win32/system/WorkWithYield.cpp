#include "platform/win32/system/WorkWithYield.h"

#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

constexpr DWORD kYieldInterval = 50;  // ms

class WorkThread {
  public:
    explicit WorkThread(const std::function<void()>& work)
        : work_(work), thread_(CreateThread(nullptr, 0, &WorkThread::Run, this, 0, nullptr)) {}
    ~WorkThread() {
        if (thread_) {
            WaitForSingleObject(thread_.get(), INFINITE);
        }
    }
    WorkThread(const WorkThread&) = delete;
    WorkThread& operator=(const WorkThread&) = delete;

    [[nodiscard]] bool HasStarted() const { return thread_ != nullptr; }
    // Waits until the work is done, input has come or the time, in ms, is over; true when the work
    // is done.
    [[nodiscard]] bool Wait(DWORD time) const {
        const HANDLE thread = thread_.get();
        return MsgWaitForMultipleObjects(1, &thread, FALSE, time, QS_ALLINPUT) == WAIT_OBJECT_0;
    }

  private:
    static DWORD WINAPI Run(LPVOID self) {
        static_cast<WorkThread*>(self)->work_();
        return 0;
    }

    const std::function<void()>& work_;
    // The last member: the thread uses the others from its first moment on.
    UniqueHandle thread_;
};

}  // namespace

void WorkWithYield(const std::function<void()>& work, const Yield& yield) {
    if (!yield) {
        work();
        return;
    }
    const WorkThread thread(work);
    if (!thread.HasStarted()) {
        work();
        return;
    }
    do {
        yield();
    } while (!thread.Wait(kYieldInterval));
}

}  // namespace ambrio
