#include "saver/panel/PanelFont.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

int timesMeasured = 0;

BOOL WINAPI CountMeasuring(HDC dc, LPCWSTR text, int length, LPSIZE size) {
    ++timesMeasured;
    return GetTextExtentExPointW(dc, text, length, 0, nullptr, nullptr, size);
}

class PanelFontTest : public testing::Test {
  protected:
    // As the system measures it.
    [[nodiscard]] int MeasuredWidth(const std::wstring& text) const {
        const SelectedObject selected(dc_.get(), font_.Handle());
        SIZE size{};
        GetTextExtentExPointW(dc_.get(), text.c_str(), static_cast<int>(text.size()), 0, nullptr,
                              nullptr, &size);
        return size.cx;
    }

    UniqueMemoryDC dc_{CreateCompatibleDC(nullptr)};
    PanelFont font_{dc_.get(), L"Tahoma", 17, FW_NORMAL};
};

TEST_F(PanelFontTest, MeasuresAsTheSystemDoes) {
    for (const wchar_t* text : {L"", L"W", L"AVAVA Wa.To", L"D:\\Photos\\2024\x2026\\fjord.jpg",
                                L"\x2026", L"\x2026\x2026", L"caf\xE9\x2026", L"\x6F22\x5B57 f"}) {
        EXPECT_EQ(font_.WidthOf(text), MeasuredWidth(text)) << testing::PrintToString(text);
    }
}

TEST_F(PanelFontTest, AsksTheSystemOnlyForWhatIsNotPlain) {
    const ReplacedImport counting(L"gdi32.dll", "GetTextExtentPoint32W",
                                  reinterpret_cast<void*>(&CountMeasuring));
    timesMeasured = 0;
    EXPECT_GT(font_.WidthOf(L"D:\\Photos\x2026\\fjord.jpg"), 0);
    EXPECT_EQ(timesMeasured, 0);
    EXPECT_GT(font_.WidthOf(L"caf\xE9"), 0);
    EXPECT_EQ(timesMeasured, 1);
}

}  // namespace
}  // namespace ambrio
