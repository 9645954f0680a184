#include "platform/win32/files/CopyWithYield.h"

#include "platform/win32/system/WorkWithYield.h"

namespace ambrio {
namespace {

constexpr std::uint64_t kSmallFile = 1 << 20;  // bytes; copied before anybody would notice

DWORD CopyAtOnce(const std::wstring& source, const std::wstring& target) {
    return CopyFileExW(source.c_str(), target.c_str(), nullptr, nullptr, nullptr,
                       COPY_FILE_FAIL_IF_EXISTS) != 0
               ? ERROR_SUCCESS
               : GetLastError();
}

}  // namespace

DWORD CopyWithYield(const std::wstring& source, const std::wstring& target, std::uint64_t size,
                    const Yield& yield) {
    if (!yield || size < kSmallFile) {
        return CopyAtOnce(source, target);
    }
    // The copy's progress calls are no substitute for a thread: they stay away while a server or a
    // sleeping disk keeps the copy waiting, which is when the user most wants an answer.
    DWORD code = ERROR_SUCCESS;
    WorkWithYield([&] { code = CopyAtOnce(source, target); }, yield);
    return code;
}

}  // namespace ambrio
