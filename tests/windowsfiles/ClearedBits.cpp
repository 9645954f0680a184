#include "tests/windowsfiles/ClearedBits.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <span>
#include <system_error>

namespace ambrio::windowsfiles {
namespace {

constexpr const wchar_t* kNameVariable = L"AMBRIO_TEST_CLEARED_BITS";
constexpr std::uint32_t kMostFiles = 4096;

std::uint64_t Join(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

// The name of the shared table without what tells table and mutex apart.
std::wstring SharedName() {
    std::array<wchar_t, 100> buffer{};
    const DWORD length = GetEnvironmentVariableW(kNameVariable, buffer.data(), buffer.size());
    if (length != 0) {
        return {buffer.data(), length};
    }
    const std::wstring name = L"AmbrioClearedBits" + std::to_wstring(GetCurrentProcessId());
    SetEnvironmentVariableW(kNameVariable, name.c_str());
    return name;
}

[[noreturn]] void ThrowLast(const char* doing) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), doing);
}

}  // namespace

struct ClearedBits::Entry {
    std::uint64_t Volume;
    std::uint64_t File;
    std::uint64_t WriteTime;
    std::uint64_t Size;
};

struct ClearedBits::Table {
    std::uint32_t Count;  // a new mapping is all zero, and so an empty table
    std::array<Entry, kMostFiles> Entries;
};

class ClearedBits::Lock {
  public:
    // A process that was killed inside leaves the mutex abandoned, and a table that is whole
    // enough: at worst the entry that it was at work on is lost.
    explicit Lock(HANDLE mutex) : mutex_(mutex) { WaitForSingleObject(mutex_, INFINITE); }
    ~Lock() { ReleaseMutex(mutex_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

  private:
    HANDLE mutex_;
};

ClearedBits::ClearedBits() {
    const std::wstring name = SharedName();
    mutex_.reset(CreateMutexW(nullptr, FALSE, (name + L"Mutex").c_str()));
    mapping_.reset(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                      sizeof(Table), (name + L"Table").c_str()));
    if (!mutex_ || !mapping_) {
        ThrowLast("sharing the archive bits");
    }
    view_.reset(MapViewOfFile(mapping_.get(), FILE_MAP_WRITE, 0, 0, sizeof(Table)));
    if (!view_) {
        ThrowLast("seeing the archive bits");
    }
    table_ = static_cast<Table*>(view_.get());
}

bool ClearedBits::IsEmpty() const {
    return std::atomic_ref(table_->Count).load() == 0;
}

ClearedBits::Entry* ClearedBits::Find(const BY_HANDLE_FILE_INFORMATION& file) const {
    const std::uint64_t number = Join(file.nFileIndexHigh, file.nFileIndexLow);
    const std::span entries(table_->Entries.data(), table_->Count);
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
        return entry.File == number && entry.Volume == file.dwVolumeSerialNumber;
    });
    return found == entries.end() ? nullptr : &*found;
}

bool ClearedBits::IsCleared(const BY_HANDLE_FILE_INFORMATION& file) const {
    const Lock lock(mutex_.get());
    const Entry* entry = Find(file);
    return entry != nullptr &&
           entry->WriteTime ==
               Join(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime) &&
           entry->Size == Join(file.nFileSizeHigh, file.nFileSizeLow);
}

bool ClearedBits::Clear(const BY_HANDLE_FILE_INFORMATION& file) {
    const Lock lock(mutex_.get());
    Entry* entry = Find(file);
    if (entry == nullptr) {
        if (table_->Count == kMostFiles) {
            return false;
        }
        entry = &table_->Entries.at(table_->Count++);
    }
    *entry = {file.dwVolumeSerialNumber, Join(file.nFileIndexHigh, file.nFileIndexLow),
              Join(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime),
              Join(file.nFileSizeHigh, file.nFileSizeLow)};
    return true;
}

void ClearedBits::Set(const BY_HANDLE_FILE_INFORMATION& file) {
    const Lock lock(mutex_.get());
    if (Entry* entry = Find(file)) {
        *entry = table_->Entries.at(--table_->Count);
    }
}

}  // namespace ambrio::windowsfiles
