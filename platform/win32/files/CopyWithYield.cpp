#include "platform/win32/files/CopyWithYield.h"

#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

constexpr DWORD kYieldInterval = 50;           // ms
constexpr std::uint64_t kSmallFile = 1 << 20;  // bytes; copied before anybody would notice

DWORD CopyAtOnce(const std::wstring& source, const std::wstring& target) {
    return CopyFileExW(source.c_str(), target.c_str(), nullptr, nullptr, nullptr,
                       COPY_FILE_FAIL_IF_EXISTS) != 0
               ? ERROR_SUCCESS
               : GetLastError();
}

// A copy on a thread of its own. The copy's progress calls are no substitute: they stay away while
// a server or a sleeping disk keeps the copy waiting, which is when the user most wants an answer.
class CopyThread {
  public:
    CopyThread(const std::wstring& source, const std::wstring& target)
        : source_(source),
          target_(target),
          thread_(CreateThread(nullptr, 0, &CopyThread::Run, this, 0, nullptr)) {}
    ~CopyThread() { Finish(); }
    CopyThread(const CopyThread&) = delete;
    CopyThread& operator=(const CopyThread&) = delete;

    [[nodiscard]] bool HasStarted() const { return thread_ != nullptr; }
    // Waits until the copy has ended, input has come or the time, in ms, is over; true when the
    // copy has ended.
    [[nodiscard]] bool Wait(DWORD time) const {
        const HANDLE thread = thread_.get();
        return MsgWaitForMultipleObjects(1, &thread, FALSE, time, QS_ALLINPUT) == WAIT_OBJECT_0;
    }
    // Waits for the end and gives the error code.
    DWORD Finish() const {
        if (thread_) {
            WaitForSingleObject(thread_.get(), INFINITE);
        }
        return code_;
    }

  private:
    static DWORD WINAPI Run(LPVOID self) {
        auto& copy = *static_cast<CopyThread*>(self);
        copy.code_ = CopyAtOnce(copy.source_, copy.target_);
        return 0;
    }

    const std::wstring& source_;
    const std::wstring& target_;
    DWORD code_ = ERROR_SUCCESS;
    // The last member: the thread uses the others from its first moment on.
    UniqueHandle thread_;
};

}  // namespace

DWORD CopyWithYield(const std::wstring& source, const std::wstring& target, std::uint64_t size,
                    const Yield& yield) {
    if (!yield || size < kSmallFile) {
        return CopyAtOnce(source, target);
    }
    const CopyThread copy(source, target);
    if (!copy.HasStarted()) {
        return CopyAtOnce(source, target);
    }
    do {
        yield();
    } while (!copy.Wait(kYieldInterval));
    return copy.Finish();
}

}  // namespace ambrio
