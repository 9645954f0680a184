#include "tests/windowsfiles/FileFacts.h"

namespace ambrio::windowsfiles {

BOOL Refuse() {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

bool IsFile(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && !HasAny(attributes, FILE_ATTRIBUTE_DIRECTORY);
}

DWORD AttributesOf(const wchar_t* path) {
    const KeepLastError keep;
    return GetFileAttributesW(path);
}

std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const wchar_t* path) {
    const KeepLastError keep;
    const auto file = MakeHandle<UniqueHandle>(CreateFileW(
        path, FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    return file ? InformationOf(file.get()) : std::nullopt;
}

std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(HANDLE file) {
    const KeepLastError keep;
    BY_HANDLE_FILE_INFORMATION information;
    if (GetFileInformationByHandle(file, &information) == 0) {
        return std::nullopt;
    }
    return information;
}

void SetArchiveBit(const std::optional<BY_HANDLE_FILE_INFORMATION>& file) {
    const KeepLastError keep;
    if (file) {
        Bits().Set(*file);
    }
}

void Correct(DWORD& attributes, const wchar_t* path) {
    if (!IsFile(attributes) || Bits().IsEmpty()) {
        return;
    }
    if (const auto file = InformationOf(path)) {
        Correct(attributes, *file);
    }
}

void Correct(DWORD& attributes, const BY_HANDLE_FILE_INFORMATION& file) {
    const KeepLastError keep;
    if (IsFile(attributes) && Bits().IsCleared(file)) {
        attributes &= ~static_cast<DWORD>(FILE_ATTRIBUTE_ARCHIVE);
        if (attributes == 0) {
            attributes = FILE_ATTRIBUTE_NORMAL;
        }
    }
}

}  // namespace ambrio::windowsfiles
