#include "platform/TextConversion.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

// The texts are those of the en-US locale, in which the tests run.

TEST(TextConversion, WritesDatesAsShortDateAndLongTime) {
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

TEST(TextConversion, ReadsOtherFormsOfADate) {
    const DateTime afternoon{2026, 11, 21, 15, 49, 0};
    EXPECT_EQ(afternoon, DateFromText(L"11/21/2026 15:49"));
    EXPECT_EQ(afternoon, DateFromText(L"11-21-2026 3:49 pm"));
    EXPECT_EQ(afternoon, DateFromText(L" 11/21/2026  3:49:00 PM "));
    EXPECT_EQ((DateTime{226, 11, 21, 15, 49, 0}), DateFromText(L"11/21/226 3:49 PM"));
}

TEST(TextConversion, ReadsNoDateOutOfOtherTexts) {
    for (const wchar_t* text :
         {L"", L"yesterday", L"99/99/2026", L"11/21/2026 25:00:00", L"11/21/2026 x"}) {
        EXPECT_FALSE(DateFromText(text)) << text;
    }
}

TEST(TextConversion, ReadsBooleansAndNumbersAsBoolean) {
    for (const wchar_t* text :
         {L"True", L"true", L"TRUE", L"#TRUE#", L"-1", L"7", L" 1 ", L"0.5", L"1e3"}) {
        EXPECT_TRUE(BooleanFromText(text)) << text;
    }
    for (const wchar_t* text : {L"False", L"false", L"#FALSE#", L"0", L"0.0", L"-0"}) {
        EXPECT_FALSE(BooleanFromText(text)) << text;
    }
}

TEST(TextConversion, FindsNoBooleanInOtherTexts) {
    for (const wchar_t* text : {L"", L"Yes", L"No", L"1x", L"T", L" ", L"1 2"}) {
        EXPECT_EQ(ErrorNumber::TypeMismatch,
                  RuntimeErrorOf([text] { (void)BooleanFromText(text); }))
            << text;
    }
}

TEST(TextConversion, WritesBooleansAsTrueAndFalse) {
    EXPECT_EQ(L"True", BooleanText(true));
    EXPECT_EQ(L"False", BooleanText(false));
}

}  // namespace
}  // namespace ambrio
