#include "platform/BooleanText.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

// The texts are those of the en-US locale, in which the tests run.

TEST(BooleanText, ReadsBooleansAndNumbersAsBoolean) {
    for (const wchar_t* text :
         {L"True", L"true", L"TRUE", L"#TRUE#", L"-1", L"7", L" 1 ", L"0.5", L"1e3"}) {
        EXPECT_TRUE(BooleanFromText(text)) << text;
    }
    for (const wchar_t* text : {L"False", L"false", L"#FALSE#", L"0", L"0.0", L"-0"}) {
        EXPECT_FALSE(BooleanFromText(text)) << text;
    }
}

TEST(BooleanText, FindsNoBooleanInOtherTexts) {
    for (const wchar_t* text : {L"", L"Yes", L"No", L"1x", L"T", L" ", L"1 2"}) {
        EXPECT_EQ(ErrorNumber::TypeMismatch,
                  RuntimeErrorOf([text] { (void)BooleanFromText(text); }))
            << text;
    }
}

TEST(BooleanText, WritesBooleansAsTrueAndFalse) {
    EXPECT_EQ(L"True", BooleanText(true));
    EXPECT_EQ(L"False", BooleanText(false));
}

}  // namespace
}  // namespace ambrio
