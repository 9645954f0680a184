#include "tests/e2e/support/Holdings.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {

namespace {

// The system's list of all handles of all processes, as its native interface gives it.
struct ListedHandle {
    void* Object;
    ULONG_PTR ProcessId;
    ULONG_PTR Value;
    ULONG Access;
    USHORT CreatorBackTraceIndex;
    USHORT ObjectTypeIndex;
    ULONG Attributes;
    ULONG Reserved;
};
struct HandleListHead {
    ULONG_PTR Count;
    ULONG_PTR Reserved;
};
constexpr ULONG kHandleList = 64;
constexpr LONG kListIsLonger = static_cast<LONG>(0xC0000004);

using QuerySystem = LONG(NTAPI*)(ULONG what, void* buffer, ULONG size, ULONG* needed);

// For a system that does not count the handles of another process.
DWORD HandlesListedFor(DWORD processId) {
    const auto query = reinterpret_cast<QuerySystem>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<char> buffer(std::size_t{1} << 16U);
    LONG status = kListIsLonger;
    while ((status = query(kHandleList, buffer.data(), static_cast<ULONG>(buffer.size()),
                           nullptr)) == kListIsLonger) {
        buffer.resize(buffer.size() * 2);
    }
    if (status != 0) {
        ThrowWin32Error("listing handles", ERROR_NOT_SUPPORTED);
    }
    HandleListHead head{};
    std::memcpy(&head, buffer.data(), sizeof head);
    std::vector<ListedHandle> handles(head.Count);
    std::memcpy(handles.data(), buffer.data() + sizeof head, head.Count * sizeof(ListedHandle));
    return static_cast<DWORD>(std::count_if(
        handles.begin(), handles.end(),
        [processId](const ListedHandle& handle) { return handle.ProcessId == processId; }));
}

}  // namespace

Holdings HoldingsOf(HANDLE process) {
    Holdings holdings;
    holdings.GdiHandles = GetGuiResources(process, GR_GDIOBJECTS);
    holdings.UserHandles = GetGuiResources(process, GR_USEROBJECTS);
    if (GetProcessHandleCount(process, &holdings.Handles) == 0 || holdings.Handles == 0) {
        holdings.Handles = HandlesListedFor(GetProcessId(process));
    }
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof memory;
    if (GetProcessMemoryInfo(process, &memory, memory.cb) == 0) {
        ThrowWin32Error("reading a process's memory counters");
    }
    holdings.PrivateBytes = memory.PagefileUsage;
    holdings.WorkingSet = memory.WorkingSetSize;
    return holdings;
}

Holdings HoldingsOf(DWORD processId) {
    const UniqueHandle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId));
    if (!process) {
        ThrowWin32Error("opening a process");
    }
    return HoldingsOf(process.get());
}

}  // namespace ambrio::e2e
