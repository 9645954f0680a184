#include "platform/win32/registry/RegistrySettingsStore.h"

#include <optional>

#include "platform/RuntimeError.h"
#include "platform/win32/registry/RegistryKey.h"

namespace ambrio {
namespace {

constexpr const wchar_t* kAllApplications = L"Software\\VB and VBA Program Settings\\";

void Check(LSTATUS status) {
    if (status != ERROR_SUCCESS) {
        throw RuntimeError(NumberOfWin32Code(static_cast<std::uint32_t>(status)));
    }
}

RegistryKey Created(HKEY parent, const std::wstring& name) {
    HKEY key = nullptr;
    Check(RegCreateKeyExW(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_SET_VALUE | KEY_CREATE_SUB_KEY, nullptr, &key, nullptr));
    return RegistryKey(key);
}

// The text of a value, or nothing when there is none.
std::optional<std::wstring> TextOf(HKEY key, const std::wstring& name) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        DWORD type = REG_NONE;
        auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &type,
                                                reinterpret_cast<BYTE*>(text.data()), &bytes);
        if (status == ERROR_MORE_DATA) {
            // It can grow again between the two calls, so it is asked anew until it fits.
            text.resize(bytes / sizeof(wchar_t) + 1);
            continue;
        }
        if (status != ERROR_SUCCESS || type != REG_SZ) {
            return std::nullopt;
        }
        // Nothing obliges whoever wrote it to have ended it with a NUL.
        text.resize(bytes / sizeof(wchar_t));
        return text.substr(0, text.find(L'\0'));
    }
}

}  // namespace

RegistrySettingsStore::RegistrySettingsStore(const std::wstring& title)
    : root_(kAllApplications + title) {}

std::wstring RegistrySettingsStore::GetSetting(const std::wstring& section, const std::wstring& key,
                                               const std::wstring& fallback) {
    const RegistryKey root = OpenRegistryKey(HKEY_CURRENT_USER, root_, KEY_QUERY_VALUE);
    if (!root) {
        return fallback;
    }
    const RegistryKey opened = OpenRegistryKey(root.get(), section, KEY_QUERY_VALUE);
    return opened ? TextOf(opened.get(), key).value_or(fallback) : fallback;
}

void RegistrySettingsStore::SaveSetting(const std::wstring& section, const std::wstring& key,
                                        const std::wstring& value) {
    // In two steps, so that the section's name alone counts against the limit on names.
    const RegistryKey root = Created(HKEY_CURRENT_USER, root_);
    const RegistryKey created = Created(root.get(), section);
    const std::wstring text = value.substr(0, value.find(L'\0'));
    Check(RegSetValueExW(created.get(), key.c_str(), 0, REG_SZ,
                         reinterpret_cast<const BYTE*>(text.c_str()),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

}  // namespace ambrio
