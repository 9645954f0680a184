#include "platform/win32/system/WorkerThread.h"

#include <utility>

namespace ambrio {
namespace {

constexpr DWORD kAnswerInterval = 50;  // ms

}  // namespace

WorkerThread::~WorkerThread() {
    if (thread_) {
        work_ = nullptr;
        SetEvent(toDo_.get());
        WaitForSingleObject(thread_.get(), INFINITE);
    }
}

bool WorkerThread::Start() {
    if (!thread_) {
        toDo_.reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        done_.reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        if (toDo_ && done_) {
            thread_.reset(CreateThread(nullptr, 0, &WorkerThread::Run, this, 0, nullptr));
        }
    }
    return thread_ != nullptr;
}

void WorkerThread::Do(const std::function<void()>& work, const Yield& yield) {
    if (isAtWork_ || !Start()) {
        work();
        return;
    }
    isAtWork_ = true;
    work_ = &work;
    SetEvent(toDo_.get());
    try {
        WaitUntilDone(yield);
    } catch (...) {
        // What the work uses is its caller's, who is about to be left.
        WaitUntilDone({});
        isAtWork_ = false;
        failure_ = nullptr;
        throw;
    }
    isAtWork_ = false;
    if (failure_) {
        std::rethrow_exception(std::exchange(failure_, nullptr));
    }
}

void WorkerThread::WaitUntilDone(const Yield& yield) const {
    const HANDLE done = done_.get();
    if (!yield) {
        WaitForSingleObject(done, INFINITE);
        return;
    }
    // Input that has come before counts too: nobody may have looked at it yet.
    while (MsgWaitForMultipleObjectsEx(1, &done, kAnswerInterval, QS_ALLINPUT,
                                       MWMO_INPUTAVAILABLE) != WAIT_OBJECT_0) {
        yield();
    }
}

DWORD WINAPI WorkerThread::Run(LPVOID self) {
    static_cast<WorkerThread*>(self)->WorkUntilEnd();
    return 0;
}

void WorkerThread::WorkUntilEnd() {
    for (;;) {
        WaitForSingleObject(toDo_.get(), INFINITE);
        if (work_ == nullptr) {
            return;
        }
        try {
            (*work_)();
        } catch (...) {
            failure_ = std::current_exception();
        }
        SetEvent(done_.get());
    }
}

}  // namespace ambrio
