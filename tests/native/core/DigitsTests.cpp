#include "runtime/core/Digits.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

TEST(DigitsTest, ReadsDigitsAndNothingElse)
{
    EXPECT_EQ(ReadDigits(L"0"), 0);
    EXPECT_EQ(ReadDigits(L"007"), 7);
    EXPECT_EQ(ReadDigits(L"2004"), 2004);
    EXPECT_EQ(ReadDigits(L"99999990"), 99'999'990);
    EXPECT_EQ(ReadDigits(L"99999999"), LargestRead);
    for (const wchar_t* text :
         {L"", L" ", L"1 ", L" 1", L"+1", L"-1", L"1.0", L"1e2", L"0x1", L"/", L":", L"１"})
        EXPECT_EQ(ReadDigits(text), std::nullopt);
}

TEST(DigitsTest, HoldsLongNumbersAtTheLargest)
{
    EXPECT_EQ(ReadDigits(L"100000000"), LargestRead);
    EXPECT_EQ(ReadDigits(std::wstring(10000, L'9')), LargestRead);
    EXPECT_EQ(ReadDigits(std::wstring(10000, L'0') + L"12"), 12);
}

TEST(DigitsTest, NothingIsAllDigits)
{
    EXPECT_TRUE(AllDigits(L""));
    EXPECT_TRUE(AllDigits(L"0123456789"));
    EXPECT_FALSE(AllDigits(L"12-3"));
}

TEST(DigitsTest, PadsButNeverCuts)
{
    EXPECT_EQ(PadDigits(0, 0), L"0");
    EXPECT_EQ(PadDigits(5, 2), L"05");
    EXPECT_EQ(PadDigits(12, 2), L"12");
    EXPECT_EQ(PadDigits(123, 2), L"123");
    EXPECT_EQ(PadDigits(100, 4), L"0100");
}

} // namespace

} // namespace kiv::test
