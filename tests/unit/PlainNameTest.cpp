#include "platform/PlainName.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(PlainName, IsAnyNameOfAnEntry) {
    for (const wchar_t* name :
         {L"a", L"...", L".a", L"a..b", L" ", L"caf\u00e9", L"a:b", L"\x7f", L"\u2028"}) {
        EXPECT_TRUE(IsPlainName(name)) << testing::PrintToString(name);
    }
}

TEST(PlainName, LeadsNowhereElse) {
    for (const wchar_t* name :
         {L"", L".", L"..", L"..\\a", L"a\\b", L"\\", L"/", L"a/b", L"a\r\nb", L"\x1f", L"\t"}) {
        EXPECT_FALSE(IsPlainName(name)) << testing::PrintToString(name);
    }
    EXPECT_FALSE(IsPlainName(std::wstring(L"a\0b", 3)));
}

}  // namespace
}  // namespace ambrio
