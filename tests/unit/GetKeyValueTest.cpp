#include "platform/win32/registry/GetKeyValue.h"

#include <gtest/gtest.h>

#include <vector>

namespace ambrio {
namespace {

constexpr wchar_t kKey[] = L"Software\\Ambrio unit tests\\GetKeyValue";

class GetKeyValueTest : public ::testing::Test {
  protected:
    ~GetKeyValueTest() override {
        RegDeleteKeyW(HKEY_CURRENT_USER, kKey);
        RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Ambrio unit tests");
    }

    void Put(DWORD type, const void* bytes, std::size_t size) {
        ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"V", type, bytes,
                                                 static_cast<DWORD>(size)));
    }
    [[nodiscard]] bool Get() { return GetKeyValue(HKEY_CURRENT_USER, kKey, L"V", value_); }

    std::wstring value_ = L"before";
};

TEST_F(GetKeyValueTest, ReadsTextsAndNumbers) {
    Put(REG_SZ, L"C:\\Info \x0416", 10 * sizeof(wchar_t));
    EXPECT_TRUE(Get());
    EXPECT_EQ(L"C:\\Info \x0416", value_);
    const DWORD number = 0x0105;
    Put(REG_DWORD, &number, sizeof(number));
    EXPECT_TRUE(Get());
    EXPECT_EQ(L"21", value_);
}

TEST_F(GetKeyValueTest, WhatCannotBeReadIsEmpty) {
    EXPECT_FALSE(Get());
    EXPECT_EQ(L"", value_);
    const std::vector<wchar_t> longText(1025, L'x');
    Put(REG_SZ, longText.data(), longText.size() * sizeof(wchar_t));
    value_ = L"before";
    EXPECT_FALSE(Get());
    EXPECT_EQ(L"", value_);
}

TEST_F(GetKeyValueTest, ReadsAsManyBytesOfWhatIsNoTextAsCharactersOfATextAndNoMore) {
    std::vector<BYTE> bytes(1024, 'y');
    Put(REG_BINARY, bytes.data(), bytes.size());
    EXPECT_TRUE(Get());
    EXPECT_EQ(std::wstring(1024, L'y'), value_);
    bytes.push_back('y');
    Put(REG_BINARY, bytes.data(), bytes.size());
    EXPECT_FALSE(Get());
    EXPECT_EQ(L"", value_);
}

}  // namespace
}  // namespace ambrio
