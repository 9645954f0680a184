#include "platform/win32/registry/RegistrySettingsStore.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/win32/registry/RegistryKey.h"

namespace ambrio {
namespace {

constexpr const wchar_t* kTitle = L"Ambrio unit test";
constexpr const wchar_t* kTree = L"Software\\VB and VBA Program Settings\\Ambrio unit test";

class RegistrySettingsStoreTest : public testing::Test {
  protected:
    RegistrySettingsStoreTest() { RemoveTree(); }
    ~RegistrySettingsStoreTest() override { RemoveTree(); }

    static void RemoveTree() { RegDeleteTreeW(HKEY_CURRENT_USER, kTree); }
    void ExpectRoundTrip(const std::wstring& section, const std::wstring& key,
                         const std::wstring& value) {
        store.SaveSetting(section, key, value);
        EXPECT_EQ(value, store.GetSetting(section, key, L"fallback"));
    }
    // Writes a value past the store: raw bytes of any type into the section "S".
    static void Put(DWORD type, const void* bytes, DWORD size) {
        HKEY key = nullptr;
        const std::wstring path = std::wstring(kTree) + L"\\S";
        ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0,
                                                 KEY_SET_VALUE, nullptr, &key, nullptr));
        const RegistryKey owner(key);
        ASSERT_EQ(ERROR_SUCCESS,
                  RegSetValueExW(key, L"K", 0, type, static_cast<const BYTE*>(bytes), size));
    }
    std::wstring Got() { return store.GetSetting(L"S", L"K", L"fallback"); }

    RegistrySettingsStore store{kTitle};
};

TEST_F(RegistrySettingsStoreTest, GivesTheFallbackWithoutTreeSectionOrKeyAndWritesNothing) {
    EXPECT_EQ(L"fallback", Got());
    HKEY key = nullptr;
    EXPECT_NE(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, kTree, 0, KEY_READ, &key));
    store.SaveSetting(L"Other", L"K", L"x");
    EXPECT_EQ(L"fallback", Got());
    store.SaveSetting(L"S", L"Other", L"x");
    EXPECT_EQ(L"fallback", Got());
}

TEST_F(RegistrySettingsStoreTest, WritesATextWhereTheRuntimeLooksForIt) {
    store.SaveSetting(L"S", L"K", L"v");
    wchar_t text[4]{};
    DWORD bytes = sizeof text;
    const std::wstring path = std::wstring(kTree) + L"\\S";
    ASSERT_EQ(ERROR_SUCCESS, RegGetValueW(HKEY_CURRENT_USER, path.c_str(), L"K", RRF_RT_REG_SZ,
                                          nullptr, text, &bytes));
    EXPECT_STREQ(L"v", text);
    EXPECT_EQ(4U, bytes);
}

TEST_F(RegistrySettingsStoreTest, BringsBackValuesOfAnyLength) {
    for (const std::size_t length : {0U, 1U, 258U, 259U, 260U, 261U, 40000U}) {
        ExpectRoundTrip(L"S", L"K", std::wstring(length, L'x'));
    }
}

TEST_F(RegistrySettingsStoreTest, TakesAnySectionName) {
    for (const wchar_t* section :
         {L"a\\b", L"a,b", L"two words", L"\"quoted\"", L"\x0416\x0443\x043a", L"\x5099\x4efd",
          L"\xd83d\xdcbe", L"", L"General"}) {
        ExpectRoundTrip(section, L"K", std::wstring(L"in ") + section);
    }
    ExpectRoundTrip(std::wstring(255, L'n'), L"K", L"longest");
}

TEST_F(RegistrySettingsStoreTest, RefusesANameBeyondTheLimitAndReadsNothingThere) {
    const std::wstring longName(300, L'n');
    EXPECT_THROW(store.SaveSetting(longName, L"K", L"v"), RuntimeError);
    EXPECT_EQ(L"fallback", store.GetSetting(longName, L"K", L"fallback"));
    const std::wstring longKey(20000, L'k');
    EXPECT_THROW(store.SaveSetting(L"S", longKey, L"v"), RuntimeError);
    EXPECT_EQ(L"fallback", store.GetSetting(L"S", longKey, L"fallback"));
}

TEST_F(RegistrySettingsStoreTest, CountsAValueOfAnotherTypeAsMissing) {
    const DWORD number = 1;
    for (const DWORD type : {REG_DWORD, REG_BINARY, REG_EXPAND_SZ, REG_MULTI_SZ, REG_NONE}) {
        Put(type, &number, sizeof number);
        EXPECT_EQ(L"fallback", Got()) << type;
    }
}

TEST_F(RegistrySettingsStoreTest, ReadsTextsThatAreNotProperlyEnded) {
    Put(REG_SZ, L"abc", 3 * sizeof(wchar_t));
    EXPECT_EQ(L"abc", Got());
    Put(REG_SZ, L"abc", 3 * sizeof(wchar_t) - 1);
    EXPECT_EQ(L"ab", Got());
    Put(REG_SZ, L"ab\0cd", 6 * sizeof(wchar_t));
    EXPECT_EQ(L"ab", Got());
    Put(REG_SZ, L"", 0);
    EXPECT_EQ(L"", Got());
}

TEST_F(RegistrySettingsStoreTest, KeepsTheOldValueWhenAWriteIsRefused) {
    store.SaveSetting(L"S", L"K", L"old");
    EXPECT_THROW(store.SaveSetting(L"S\\" + std::wstring(300, L'n'), L"K", L"new"), RuntimeError);
    EXPECT_EQ(L"old", Got());
}

}  // namespace
}  // namespace ambrio
