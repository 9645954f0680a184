#include "saver/form/AudienceNotices.h"

#include <array>

#include "platform/win32/system/SentData.h"

namespace ambrio {
namespace {

constexpr UINT kSessionChange = 0x02B1;         // WM_WTSSESSION_CHANGE
constexpr DWORD kNotifyForThisSession = 0;      // NOTIFY_FOR_THIS_SESSION
constexpr DWORD kToAWindow = 0;                 // DEVICE_NOTIFY_WINDOW_HANDLE
constexpr WPARAM kPowerSettingChange = 0x8013;  // PBT_POWERSETTINGCHANGE

// GUID_SESSION_DISPLAY_STATUS, of Windows 8, and GUID_MONITOR_POWER_ON.
constexpr GUID kSessionDisplays = {
    0x2b84c20e, 0xad23, 0x4ddf, {0x93, 0xdb, 0x05, 0xff, 0xbd, 0x7e, 0xfc, 0xa5}};
constexpr GUID kMonitor = {
    0x02731015, 0x4510, 0x4526, {0x99, 0xe6, 0xe5, 0xa1, 0x7e, 0xbd, 0x1a, 0xea}};

struct SessionEvent {
    WPARAM Event;
    AudienceNotice Notice;
};

constexpr std::array<SessionEvent, 6> kSessionEvents = {{
    {1, {Unseen::SessionAway, false}},    // WTS_CONSOLE_CONNECT
    {2, {Unseen::SessionAway, true}},     // WTS_CONSOLE_DISCONNECT
    {3, {Unseen::SessionAway, false}},    // WTS_REMOTE_CONNECT
    {4, {Unseen::SessionAway, true}},     // WTS_REMOTE_DISCONNECT
    {7, {Unseen::SessionLocked, true}},   // WTS_SESSION_LOCK
    {8, {Unseen::SessionLocked, false}},  // WTS_SESSION_UNLOCK
}};

// POWERBROADCAST_SETTING with the one number that these settings have.
struct PowerSetting {
    GUID Setting;
    DWORD Length;
    DWORD State;
};

std::optional<AudienceNotice> ReadSessionEvent(WPARAM event) {
    for (const SessionEvent& known : kSessionEvents) {
        if (known.Event == event) {
            return known.Notice;
        }
    }
    return std::nullopt;
}

std::optional<AudienceNotice> ReadPowerSetting(LPARAM address) {
    const auto setting = ReadSentData<PowerSetting>(address);
    if (!setting || setting->Length != sizeof setting->State) {
        return std::nullopt;
    }
    const bool isOff = setting->State == 0;
    if (IsEqualGUID(setting->Setting, kSessionDisplays)) {
        return AudienceNotice{Unseen::SessionDisplaysOff, isOff};
    }
    if (IsEqualGUID(setting->Setting, kMonitor)) {
        return AudienceNotice{Unseen::MonitorOff, isOff};
    }
    return std::nullopt;
}

}  // namespace

AudienceNotices::AudienceNotices(HWND window)
    : window_(window), sessions_(L"wtsapi32.dll"), power_(L"user32.dll") {
    using Ask = BOOL(WINAPI*)(HWND, DWORD);
    if (const auto ask = sessions_.Function<Ask>("WTSRegisterSessionNotification");
        ask != nullptr) {
        ask(window_, kNotifyForThisSession);
    }
    sessionDisplays_ = AskForPower(kSessionDisplays);
    monitor_ = AskForPower(kMonitor);
}

AudienceNotices::~AudienceNotices() {
    using End = BOOL(WINAPI*)(HWND);
    if (const auto end = sessions_.Function<End>("WTSUnRegisterSessionNotification");
        end != nullptr) {
        end(window_);
    }
    EndPower(sessionDisplays_);
    EndPower(monitor_);
}

HANDLE AudienceNotices::AskForPower(const GUID& setting) const {
    using Ask = HANDLE(WINAPI*)(HANDLE, const GUID*, DWORD);
    const auto ask = power_.Function<Ask>("RegisterPowerSettingNotification");
    return ask == nullptr ? nullptr : ask(window_, &setting, kToAWindow);
}

void AudienceNotices::EndPower(HANDLE registration) const {
    using End = BOOL(WINAPI*)(HANDLE);
    const auto end = power_.Function<End>("UnregisterPowerSettingNotification");
    if (end != nullptr && registration != nullptr) {
        end(registration);
    }
}

std::optional<AudienceNotice> AudienceNotices::Read(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kSessionChange) {
        return ReadSessionEvent(wParam);
    }
    if (message == WM_POWERBROADCAST && wParam == kPowerSettingChange) {
        return ReadPowerSetting(lParam);
    }
    return std::nullopt;
}

}  // namespace ambrio
