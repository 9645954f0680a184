#include "tests/e2e/support/Registry.h"

#include <algorithm>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {

namespace {

struct KeyPlace {
    HKEY Root;
    const wchar_t* Below;
};

KeyPlace PlaceOf(const std::wstring& path) {
    const std::wstring machine = kMachine;
    return path.starts_with(machine) ? KeyPlace{HKEY_LOCAL_MACHINE, path.c_str() + machine.size()}
                                     : KeyPlace{HKEY_CURRENT_USER, path.c_str()};
}

UniqueKey OpenKey(const std::wstring& path, REGSAM access) {
    const KeyPlace place = PlaceOf(path);
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(place.Root, place.Below, 0, access, &key);
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
        ThrowWin32Error("opening a registry key", static_cast<DWORD>(status));
    }
    return UniqueKey(key);
}

UniqueKey MakeKey(const std::wstring& path) {
    const KeyPlace place = PlaceOf(path);
    HKEY key = nullptr;
    const LSTATUS status =
        RegCreateKeyExW(place.Root, place.Below, 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS) {
        ThrowWin32Error("making a registry key", static_cast<DWORD>(status));
    }
    return UniqueKey(key);
}

struct RegistryValue {
    DWORD Type = REG_NONE;
    std::vector<BYTE> Data;
};

std::optional<RegistryValue> ReadValue(const std::wstring& path, const std::wstring& name) {
    const UniqueKey key = OpenKey(path, KEY_READ);
    RegistryValue value;
    DWORD size = 0;
    if (!key || RegQueryValueExW(key.get(), name.c_str(), nullptr, &value.Type, nullptr, &size) !=
                    ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.Data.resize(size);
    RegQueryValueExW(key.get(), name.c_str(), nullptr, nullptr, value.Data.data(), &size);
    return value;
}

void WriteValue(const std::wstring& path, const std::wstring& name, DWORD type, const void* data,
                std::size_t size) {
    const UniqueKey key = MakeKey(path);
    const LSTATUS status = RegSetValueExW(key.get(), name.c_str(), 0, type,
                                          static_cast<const BYTE*>(data), static_cast<DWORD>(size));
    if (status != ERROR_SUCCESS) {
        ThrowWin32Error("writing a registry value", static_cast<DWORD>(status));
    }
}

void CopyKeyTree(const std::wstring& from, const std::wstring& to) {
    const UniqueKey source = OpenKey(from, KEY_READ);
    const UniqueKey destination = MakeKey(to);
    const LSTATUS status = RegCopyTreeW(source.get(), nullptr, destination.get());
    if (status != ERROR_SUCCESS) {
        ThrowWin32Error("copying a registry key", static_cast<DWORD>(status));
    }
}

void RemoveKey(const std::wstring& path) {
    const KeyPlace place = PlaceOf(path);
    RegDeleteKeyW(place.Root, place.Below);
}

void RemoveKeyIfEmpty(const std::wstring& path) {
    if (SubkeyNames(path).empty() && ValueNames(path).empty()) {
        RemoveKey(path);
    }
}

std::wstring SavedPathOf(std::wstring path) {
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return std::wstring(kTestKey) + L"\\Saved\\" + path;
}

}  // namespace

std::optional<std::wstring> ReadText(const std::wstring& path, const std::wstring& name) {
    const std::optional<RegistryValue> value = ReadValue(path, name);
    if (!value || value->Type != REG_SZ) {
        return std::nullopt;
    }
    std::wstring text(reinterpret_cast<const wchar_t*>(value->Data.data()),
                      value->Data.size() / sizeof(wchar_t));
    while (text.ends_with(L'\0')) {
        text.pop_back();
    }
    return text;
}

std::optional<DWORD> ReadNumber(const std::wstring& path, const std::wstring& name) {
    const std::optional<RegistryValue> value = ReadValue(path, name);
    if (!value || value->Type != REG_DWORD || value->Data.size() != sizeof(DWORD)) {
        return std::nullopt;
    }
    DWORD number = 0;
    std::copy(value->Data.begin(), value->Data.end(), reinterpret_cast<BYTE*>(&number));
    return number;
}

void WriteText(const std::wstring& path, const std::wstring& name, const std::wstring& text) {
    WriteValue(path, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

void WriteNumber(const std::wstring& path, const std::wstring& name, DWORD number) {
    WriteValue(path, name, REG_DWORD, &number, sizeof number);
}

void RemoveValue(const std::wstring& path, const std::wstring& name) {
    if (const UniqueKey key = OpenKey(path, KEY_SET_VALUE)) {
        RegDeleteValueW(key.get(), name.c_str());
    }
}

void RemoveKeyTree(const std::wstring& path) {
    if (const UniqueKey key = OpenKey(path, KEY_ALL_ACCESS)) {
        RegDeleteTreeW(key.get(), nullptr);
        RemoveKey(path);
    }
}

bool KeyExists(const std::wstring& path) {
    return OpenKey(path, KEY_READ) != nullptr;
}

bool MayChangeKey(const std::wstring& path) {
    const KeyPlace place = PlaceOf(path);
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(place.Root, place.Below, 0, KEY_ALL_ACCESS, &key);
    const UniqueKey owner(key);
    if (status != ERROR_FILE_NOT_FOUND) {
        return status == ERROR_SUCCESS;
    }
    // Whether it could be made is the nearest key's business that there is.
    const auto parent = path.find_last_of(L'\\');
    return parent != std::wstring::npos && MayChangeKey(path.substr(0, parent));
}

std::vector<std::wstring> SubkeyNames(const std::wstring& path) {
    std::vector<std::wstring> names;
    wchar_t name[256];
    for (const UniqueKey key = OpenKey(path, KEY_READ); key;) {
        DWORD length = 256;
        if (RegEnumKeyExW(key.get(), static_cast<DWORD>(names.size()), name, &length, nullptr,
                          nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            break;
        }
        names.emplace_back(name, length);
    }
    return names;
}

std::vector<std::wstring> ValueNames(const std::wstring& path) {
    std::vector<std::wstring> names;
    wchar_t name[1024];
    for (const UniqueKey key = OpenKey(path, KEY_READ); key;) {
        DWORD length = 1024;
        if (RegEnumValueW(key.get(), static_cast<DWORD>(names.size()), name, &length, nullptr,
                          nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            break;
        }
        names.emplace_back(name, length);
    }
    return names;
}

RegistryTreeGuard::RegistryTreeGuard(std::wstring path)
    : path_(std::move(path)), saved_(SavedPathOf(path_)) {
    // Something saved already is what was there before a test that was killed.
    if (!KeyExists(saved_)) {
        const bool exists = KeyExists(path_);
        MakeKey(saved_);
        if (exists) {
            CopyKeyTree(path_, saved_ + L"\\Tree");
        }
    }
    RemoveKeyTree(path_);
}

RegistryTreeGuard::~RegistryTreeGuard() {
    if (!KeyExists(saved_)) {
        return;  // put back by a later guard already
    }
    RemoveKeyTree(path_);
    if (KeyExists(saved_ + L"\\Tree")) {
        CopyKeyTree(saved_ + L"\\Tree", path_);
    }
    RemoveKeyTree(saved_);
    RemoveKeyIfEmpty(std::wstring(kTestKey) + L"\\Saved");
    RemoveKeyIfEmpty(kTestKey);
}

RegistryValueGuard::RegistryValueGuard(std::wstring path, std::wstring name)
    : path_(std::move(path)), name_(std::move(name)) {
    if (std::optional<RegistryValue> value = ReadValue(path_, name_)) {
        type_ = value->Type;
        data_ = std::move(value->Data);
    }
}

RegistryValueGuard::~RegistryValueGuard() {
    if (data_) {
        WriteValue(path_, name_, type_, data_->data(), data_->size());
    } else {
        RemoveValue(path_, name_);
    }
}

}  // namespace ambrio::e2e
