#include "platform/win32/files/Win32RememberedDrives.h"

#include "platform/KeyValueText.h"
#include "platform/win32/registry/RegistryKey.h"
#include "platform/win32/system/WorkWithYield.h"

namespace ambrio {
namespace {

bool IsInUse(wchar_t letter) {
    return (GetLogicalDrives() & (1U << (letter - L'A'))) != 0;
}

// The user that the drive is remembered with; empty for the one who is logged on.
std::wstring RememberedUser(wchar_t letter) {
    constexpr std::size_t kLongest = 1024;  // bytes
    const RegistryKey key =
        OpenRegistryKey(HKEY_CURRENT_USER, std::wstring(L"Network\\") + letter, KEY_READ);
    if (!key) {
        return {};
    }
    const auto user = ReadRegistryBytes(key.get(), L"UserName", kLongest);
    // A number stands there for nobody.
    return user && IsTextType(user->Type) ? KeyValueText(user->Type, user->Bytes) : std::wstring();
}

}  // namespace

const NetworkCalls& Win32RememberedDrives::Calls() {
    if (!calls_) {
        library_ = std::make_unique<NetworkLibrary>();
        calls_ = library_->Calls();
    }
    return *calls_;
}

std::wstring Win32RememberedDrives::LostShare(wchar_t letter) {
    if (IsInUse(letter)) {
        return {};
    }
    const NetworkConnection connection = ConnectionOf(letter, Calls());
    return connection.Code == ERROR_CONNECTION_UNAVAIL ? connection.Share : std::wstring();
}

void Win32RememberedDrives::Connect(wchar_t letter, const std::wstring& share, const Yield& yield) {
    const auto add = Calls().AddConnection;
    if (add == nullptr) {
        return;
    }
    std::wstring drive = {letter, L':'};
    std::wstring remote = share;
    const std::wstring user = RememberedUser(letter);
    NETRESOURCEW resource{};
    resource.dwType = RESOURCETYPE_DISK;
    resource.lpLocalName = drive.data();
    resource.lpRemoteName = remote.data();
    // No flags: neither may the user be asked nor what is remembered be changed. The password is
    // the one that the system keeps.
    WorkWithYield([&] { add(&resource, nullptr, user.empty() ? nullptr : user.c_str(), 0); },
                  yield);
}

}  // namespace ambrio
