#include "platform/GeneralDate.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

// The texts are those of the en-US locale, in which the tests run.

TEST(GeneralDate, WritesDatesAsShortDateAndLongTime) {
    const struct {
        DateTime When;
        const wchar_t* Text;
    } cases[] = {
        {{2026, 11, 21, 15, 49, 46}, L"11/21/2026 3:49:46 PM"},
        {{2026, 1, 2, 3, 4, 5}, L"1/2/2026 3:04:05 AM"},
        {{2026, 1, 2, 0, 0, 1}, L"1/2/2026 12:00:01 AM"},
        {{2026, 1, 2, 12, 0, 0}, L"1/2/2026 12:00:00 PM"},
        {{2026, 1, 2, 0, 0, 0}, L"1/2/2026"},
        {{1899, 12, 30, 10, 0, 0}, L"10:00:00 AM"},
        {{1899, 12, 30, 0, 0, 0}, L"12:00:00 AM"},
    };
    for (const auto& [when, text] : cases) {
        EXPECT_EQ(text, GeneralDateText(when));
        EXPECT_EQ(when, DateFromText(text)) << text;
    }
}

TEST(GeneralDate, ReadsOtherFormsOfADate) {
    const DateTime afternoon{2026, 11, 21, 15, 49, 0};
    EXPECT_EQ(afternoon, DateFromText(L"11/21/2026 15:49"));
    EXPECT_EQ(afternoon, DateFromText(L"11-21-2026 3:49 pm"));
    EXPECT_EQ(afternoon, DateFromText(L" 11/21/2026  3:49:00 PM "));
    EXPECT_EQ((DateTime{226, 11, 21, 15, 49, 0}), DateFromText(L"11/21/226 3:49 PM"));
    EXPECT_EQ((DateTime{100, 1, 2, 3, 4, 0}), DateFromText(L"1/2/100 3:04"));
}

TEST(GeneralDate, ReadsNoDateOutOfOtherTexts) {
    for (const wchar_t* text :
         {L"", L"yesterday", L"99/99/2026", L"11/21/2026 25:00:00", L"11/21/2026 x"}) {
        EXPECT_FALSE(DateFromText(text)) << text;
    }
}

}  // namespace
}  // namespace ambrio
