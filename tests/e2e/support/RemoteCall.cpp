#include "tests/e2e/support/RemoteCall.h"

#include <stdexcept>

#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

DWORD CallIn(HANDLE process, const char* function, void* argument) {
    // The system's own modules lie at the same place in every process of this kind.
    const auto start = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), function)));
    if (start == nullptr) {
        throw std::runtime_error(std::string("this system has no ") + function);
    }
    const UniqueHandle thread(CreateRemoteThread(process, nullptr, 0, start, argument, 0, nullptr));
    if (!thread) {
        ThrowWin32Error("starting a thread in the program");
    }
    DWORD result = 0;
    if (WaitForSingleObject(thread.get(), static_cast<DWORD>(kSoon.count())) != WAIT_OBJECT_0 ||
        GetExitCodeThread(thread.get(), &result) == 0) {
        throw std::runtime_error("the program does not answer a call");
    }
    return result;
}

void* WriteInto(HANDLE process, const std::wstring& text) {
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    void* place = VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (place == nullptr || WriteProcessMemory(process, place, text.c_str(), size, nullptr) == 0) {
        ThrowWin32Error("writing a text into the program");
    }
    return place;
}

}  // namespace ambrio::e2e
