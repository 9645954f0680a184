#include "tests/e2e/support/ModuleLoader.h"

#include <stdexcept>

#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

namespace {

// A text in another process. Not given back: the process is a test's and ends soon.
void* WriteInto(HANDLE process, const std::wstring& text) {
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    void* place = VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (place == nullptr || WriteProcessMemory(process, place, text.c_str(), size, nullptr) == 0) {
        ThrowWin32Error("telling the program which module to load");
    }
    return place;
}

}  // namespace

void LoadModuleInto(HANDLE process, const std::wstring& module) {
    // The system's own modules lie at the same place in every process of this kind.
    const auto load = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "LoadLibraryW")));
    const UniqueHandle thread(
        CreateRemoteThread(process, nullptr, 0, load, WriteInto(process, module), 0, nullptr));
    if (!thread) {
        ThrowWin32Error("starting a thread in the program");
    }
    DWORD loaded = 0;
    if (WaitForSingleObject(thread.get(), static_cast<DWORD>(kSoon.count())) != WAIT_OBJECT_0 ||
        GetExitCodeThread(thread.get(), &loaded) == 0 || loaded == 0) {
        throw std::runtime_error("the module cannot be loaded into the program");
    }
}

}  // namespace ambrio::e2e
