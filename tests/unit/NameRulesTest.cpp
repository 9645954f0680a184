#include "platform/win32/files/NameRules.h"

#include <gtest/gtest.h>

#include "platform/win32/WindowsHeaders.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

int conversions = 0;

int WINAPI CountedMapping(LPCWSTR locale, DWORD flags, LPCWSTR text, int units, LPWSTR mapped,
                          int room, LPNLSVERSIONINFO version, LPVOID reserved, LPARAM sort) {
    using Mapping = decltype(LCMapStringEx);
    static const auto system = reinterpret_cast<Mapping*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "LCMapStringEx")));
    ++conversions;
    return system(locale, flags, text, units, mapped, room, version, reserved, sort);
}

// To ask the system costs more than to look at a file.
TEST(NameRules, PlainNamesAreFoldedWithoutTheSystem) {
    const ReplacedImport mapping(L"kernel32.dll", "LCMapStringEx",
                                 reinterpret_cast<void*>(&CountedMapping));
    conversions = 0;
    EXPECT_EQ(FoldName(L"file 0001 (az).Dat"), L"FILE 0001 (AZ).DAT");
    EXPECT_EQ(FoldName(L"`{@[~"), L"`{@[~") << "what stands beside the letters";
    EXPECT_EQ(FoldName(L""), L"");
    EXPECT_EQ(conversions, 0);
    EXPECT_EQ(FoldName(L"caf\u00e9"), L"CAF\u00c9");
    EXPECT_EQ(conversions, 1);
}

}  // namespace
}  // namespace ambrio
