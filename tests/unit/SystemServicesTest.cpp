#include <gtest/gtest.h>

#include "platform/win32/registry/ReadRegistryValue.h"
#include "platform/win32/system/StayAwake.h"
#include "platform/win32/system/SystemFolders.h"

namespace ambrio {
namespace {

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

TEST(SystemFolders, ExistAndHaveNoSeparatorAtTheirEnd) {
    for (const std::wstring& folder :
         {GetWindowsFolder(), GetSystemFolder(), GetLocalDataFolder(), GetProgramFolder()}) {
        ASSERT_FALSE(folder.empty());
        EXPECT_TRUE(IsFolder(folder)) << folder;
        EXPECT_NE(L'\\', folder.back()) << folder;
    }
}

constexpr const wchar_t* kTestKey = L"Software\\Ambrio unit test";

class ReadRegistryValueTest : public testing::Test {
  protected:
    ~ReadRegistryValueTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey); }
    static std::wstring Read(DWORD type, const void* bytes, std::size_t size) {
        RegSetKeyValueW(HKEY_CURRENT_USER, kTestKey, L"V", type, bytes, static_cast<DWORD>(size));
        return ReadRegistryValue(HKEY_CURRENT_USER, kTestKey, L"V");
    }
};

TEST_F(ReadRegistryValueTest, IsEmptyWithoutKeyOrValue) {
    EXPECT_EQ(L"", ReadRegistryValue(HKEY_CURRENT_USER, kTestKey, L"V"));
    EXPECT_EQ(L"1", Read(REG_SZ, L"1", 4));
    EXPECT_EQ(L"", ReadRegistryValue(HKEY_CURRENT_USER, kTestKey, L"Other"));
}

TEST_F(ReadRegistryValueTest, GivesThreeCharactersOfANumber) {
    const DWORD one = 1;
    EXPECT_EQ(L"001", Read(REG_DWORD, &one, sizeof one));
    const DWORD more = 1200;
    EXPECT_EQ(L"120", Read(REG_DWORD, &more, sizeof more));
}

TEST_F(ReadRegistryValueTest, ReadsTextsOfUpTo254Characters) {
    const std::wstring text(254, L'7');
    EXPECT_EQ(text, Read(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t)));
    const std::wstring longer(255, L'7');
    EXPECT_EQ(L"", Read(REG_SZ, longer.c_str(), (longer.size() + 1) * sizeof(wchar_t)));
}

TEST(StayAwake, HoldsTheSystemAndNotTheDisplayAndLetsGo) {
    const EXECUTION_STATE awake = ES_CONTINUOUS | ES_SYSTEM_REQUIRED;
    {
        const StayAwake stay;
        EXPECT_EQ(awake, SetThreadExecutionState(awake));
    }
    EXPECT_EQ(static_cast<EXECUTION_STATE>(ES_CONTINUOUS), SetThreadExecutionState(ES_CONTINUOUS));
}

}  // namespace
}  // namespace ambrio
