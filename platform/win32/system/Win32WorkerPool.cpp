#include "platform/win32/system/Win32WorkerPool.h"

#include <utility>

namespace ambrio {
namespace {

// Bytes; the program's own stack is for the depth of folders.
constexpr SIZE_T kStack = 256 << 10;

}  // namespace

// What the threads of one beginning share; it goes with the last of them.
struct Win32WorkerPool::Crew {
    SRWLOCK Lock = SRWLOCK_INIT;
    CONDITION_VARIABLE Work = CONDITION_VARIABLE_INIT;
    unsigned Wakes = 0;  // how often there was work
    bool IsEnding = false;
    Step Do;
};

Win32WorkerPool::Win32WorkerPool() = default;

Win32WorkerPool::~Win32WorkerPool() {
    constexpr std::chrono::milliseconds kLast(1000);
    End(kLast);
}

void Win32WorkerPool::Begin(std::size_t threads, const Step& step) {
    if (crew_) {
        return;
    }
    crew_ = std::make_shared<Crew>();
    crew_->Do = step;
    for (std::size_t i = 0; i < threads; ++i) {
        auto crew = std::make_unique<std::shared_ptr<Crew>>(crew_);
        UniqueHandle thread(CreateThread(nullptr, kStack, &Run, crew.get(),
                                         STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
        if (!thread) {
            break;
        }
        static_cast<void>(crew.release());  // the thread's
        threads_.push_back(std::move(thread));
    }
}

DWORD WINAPI Win32WorkerPool::Run(LPVOID given) {
    const std::unique_ptr<std::shared_ptr<Crew>> owner(static_cast<std::shared_ptr<Crew>*>(given));
    Crew& crew = **owner;
    AcquireSRWLockExclusive(&crew.Lock);
    while (!crew.IsEnding) {
        const unsigned wakes = crew.Wakes;
        ReleaseSRWLockExclusive(&crew.Lock);
        const bool hasWorked = crew.Do();
        AcquireSRWLockExclusive(&crew.Lock);
        while (!hasWorked && !crew.IsEnding && wakes == crew.Wakes) {
            SleepConditionVariableSRW(&crew.Work, &crew.Lock, INFINITE, 0);
        }
    }
    ReleaseSRWLockExclusive(&crew.Lock);
    return 0;
}

void Win32WorkerPool::Wake() {
    if (crew_) {
        AcquireSRWLockExclusive(&crew_->Lock);
        ++crew_->Wakes;
        ReleaseSRWLockExclusive(&crew_->Lock);
        WakeAllConditionVariable(&crew_->Work);
    }
}

bool Win32WorkerPool::End(std::chrono::milliseconds limit) {
    if (!crew_) {
        return true;
    }
    AcquireSRWLockExclusive(&crew_->Lock);
    crew_->IsEnding = true;
    ReleaseSRWLockExclusive(&crew_->Lock);
    WakeAllConditionVariable(&crew_->Work);
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(limit.count());
    bool haveAllEnded = true;
    for (const UniqueHandle& thread : threads_) {
        const ULONGLONG now = GetTickCount64();
        const auto left = static_cast<DWORD>(now < end ? end - now : 0);
        if (WaitForSingleObject(thread.get(), left) != WAIT_OBJECT_0) {
            CancelSynchronousIo(thread.get());
            haveAllEnded = haveAllEnded && WaitForSingleObject(thread.get(), 10) == WAIT_OBJECT_0;
        }
    }
    threads_.clear();
    crew_.reset();
    return haveAllEnded;
}

void Win32WorkerPool::lock() {
    AcquireSRWLockExclusive(&lock_);
}

void Win32WorkerPool::unlock() {
    ReleaseSRWLockExclusive(&lock_);
}

void Win32WorkerPool::WaitForNews(std::chrono::milliseconds limit) {
    SleepConditionVariableSRW(&news_, &lock_, static_cast<DWORD>(limit.count()), 0);
}

void Win32WorkerPool::TellNews() {
    WakeAllConditionVariable(&news_);
}

}  // namespace ambrio
