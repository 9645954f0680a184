#include "platform/win32/files/Win32TextStream.h"

#include <limits>

#include "platform/RuntimeError.h"
#include "platform/win32/files/FlushToDisk.h"
#include "platform/win32/files/Win32Error.h"

namespace ambrio {
namespace {

std::string CodePageBytes(const std::wstring& text) {
    if (text.empty()) {
        return {};
    }
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max() / 4)) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    const auto units = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    if (WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(), needed, nullptr,
                            nullptr) == 0) {
        ThrowLastError();
    }
    return bytes;
}

}  // namespace

Win32TextStream::Win32TextStream(const std::wstring& extendedPath, bool isToBeFlushed)
    : file_(MakeHandle<UniqueHandle>(CreateFileW(
          extendedPath.c_str(), FILE_APPEND_DATA | SYNCHRONIZE, FILE_SHARE_READ | FILE_SHARE_WRITE,
          nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))),
      isToBeFlushed_(isToBeFlushed) {
    if (!file_) {
        ThrowForPath(GetLastError(), extendedPath);
    }
}

void Win32TextStream::WriteLine(const std::wstring& text) {
    const std::string bytes = CodePageBytes(text) + "\r\n";
    DWORD written = 0;
    if (WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ==
        0) {
        ThrowLastError();
    }
    if (written < bytes.size()) {
        throw RuntimeError(ErrorNumber::DiskFull);
    }
}

void Win32TextStream::Flush() {
    if (!isToBeFlushed_) {
        return;
    }
    if (const DWORD code = FlushToDisk(file_.get()); code != ERROR_SUCCESS) {
        ThrowWin32(code);
    }
}

}  // namespace ambrio
