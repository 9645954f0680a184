#include "platform/win32/files/Win32RememberedDrives.h"

#include <gtest/gtest.h>

#include "platform/win32/registry/RegistryKey.h"

namespace ambrio {
namespace {

// A network that remembers one drive, and what it was asked to connect.
struct Network {
    static inline DWORD Code = ERROR_CONNECTION_UNAVAIL;
    static inline std::wstring Connected;

    static DWORD WINAPI GetConnection(LPCWSTR name, LPWSTR share, LPDWORD size) {
        const std::wstring text = std::wstring(L"\\\\server\\") + name[0];
        if (*size > text.size()) {
            lstrcpyW(share, text.c_str());
        }
        return Code;
    }
    static DWORD WINAPI AddConnection(LPNETRESOURCEW resource, LPCWSTR password, LPCWSTR user,
                                      DWORD flags) {
        Connected = resource->lpLocalName + std::wstring(L" ") + resource->lpRemoteName + L" " +
                    (user != nullptr ? user : L"(the same user)") + L" " +
                    (password != nullptr ? password : L"(the kept password)") + L" " +
                    std::to_wstring(resource->dwType) + L" " + std::to_wstring(flags);
        return ERROR_BAD_NETPATH;
    }
};

wchar_t FreeLetter() {
    wchar_t letter = L'Z';
    while ((GetLogicalDrives() & (1U << (letter - L'A'))) != 0 ||
           OpenRegistryKey(HKEY_CURRENT_USER, std::wstring(L"Network\\") + letter, KEY_READ)) {
        --letter;
    }
    return letter;
}

class Win32RememberedDrivesTest : public testing::Test {
  protected:
    Win32RememberedDrivesTest() {
        Network::Code = ERROR_CONNECTION_UNAVAIL;
        Network::Connected.clear();
    }
    ~Win32RememberedDrivesTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, key_.c_str()); }

    [[nodiscard]] std::wstring Connect() {
        drives_.Connect(letter_, L"\\\\server\\share", [this] { ++yields_; });
        return Network::Connected;
    }
    void Remember(DWORD type, const void* user, std::size_t size) {
        RegSetKeyValueW(HKEY_CURRENT_USER, key_.c_str(), L"UserName", type, user,
                        static_cast<DWORD>(size));
    }

    const wchar_t letter_ = FreeLetter();
    const std::wstring key_ = std::wstring(L"Network\\") + letter_;
    const std::wstring place_ = std::wstring{letter_, L':'} + L" \\\\server\\share ";
    Win32RememberedDrives drives_{NetworkCalls{&Network::GetConnection, &Network::AddConnection}};
    int yields_ = 0;
};

TEST_F(Win32RememberedDrivesTest, OneThatIsNotConnectedHasLostItsShare) {
    EXPECT_EQ(std::wstring(L"\\\\server\\") + letter_, drives_.LostShare(letter_));
    for (const DWORD code : {NO_ERROR, ERROR_NOT_CONNECTED, ERROR_BAD_DEVICE, ERROR_NO_NETWORK}) {
        Network::Code = code;
        EXPECT_EQ(L"", drives_.LostShare(letter_)) << code;
    }
}

TEST_F(Win32RememberedDrivesTest, ALetterThatIsInUseHasLostNothing) {
    wchar_t windows[MAX_PATH] = L"";
    GetWindowsDirectoryW(windows, MAX_PATH);
    EXPECT_EQ(L"", drives_.LostShare(windows[0]));
}

// No flags: nobody is asked for a name, and what is remembered stays as it is.
TEST_F(Win32RememberedDrivesTest, IsConnectedAsItIsRememberedWithoutAskingAnybody) {
    const std::wstring same = place_ + L"(the same user) (the kept password) 1 0";
    EXPECT_EQ(same, Connect());
    EXPECT_GE(yields_, 1);
    Remember(REG_SZ, L"", sizeof(wchar_t));
    EXPECT_EQ(same, Connect());
    const DWORD nobody = 0;
    Remember(REG_DWORD, &nobody, sizeof nobody);
    EXPECT_EQ(same, Connect());
    Remember(REG_SZ, L"office\\me", 10 * sizeof(wchar_t));
    EXPECT_EQ(place_ + L"office\\me (the kept password) 1 0", Connect());
}

TEST_F(Win32RememberedDrivesTest, TheSystemItselfIsAskedAndAnswers) {
    Win32RememberedDrives drives;
    EXPECT_EQ(L"", drives.LostShare(letter_));
    drives.Connect(letter_, L"\\\\localhost\\no such share of these tests", {});
    EXPECT_EQ(0U, GetLogicalDrives() & (1U << (letter_ - L'A')));
}

TEST_F(Win32RememberedDrivesTest, WithoutANetworkThereIsNothingToConnect) {
    Win32RememberedDrives drives{NetworkCalls{}};
    EXPECT_EQ(L"", drives.LostShare(letter_));
    drives.Connect(letter_, L"\\\\server\\share", {});
    EXPECT_EQ(L"", Network::Connected);
}

}  // namespace
}  // namespace ambrio
