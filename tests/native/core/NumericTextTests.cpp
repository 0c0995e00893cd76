#include "runtime/core/NumericText.h"

#include "tests/native/core/NumberLocales.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

struct NumericRow
{
    const wchar_t* Text;
    std::optional<double> Number;
};

class NumericTextTest : public testing::TestWithParam<NumericRow>
{
};

TEST_P(NumericTextTest, ReadsWhatIsNumeric)
{
    for (const NumberLocale& locale : NumberLocales)
    {
        const auto number = ParseNumber(Localized(GetParam().Text, locale), locale);
        ASSERT_EQ(number.has_value(), GetParam().Number.has_value());
        if (number)
        {
            EXPECT_EQ(number->ToDouble(), *GetParam().Number);
        }
    }
}

constexpr auto NotNumeric = std::nullopt;

INSTANTIATE_TEST_SUITE_P(Digits, NumericTextTest,
                         testing::Values(NumericRow{L"5", 5}, NumericRow{L"0", 0}, NumericRow{L"007", 7},
                                         NumericRow{L"12.34", 12.34}, NumericRow{L"5.", 5},
                                         NumericRow{L".5", 0.5}, NumericRow{L"1.2.3", NotNumeric},
                                         NumericRow{L".", NotNumeric}, NumericRow{L"", NotNumeric},
                                         NumericRow{L" ", NotNumeric}, NumericRow{L"..", NotNumeric},
                                         NumericRow{L"abc", NotNumeric}, NumericRow{L"5x", NotNumeric},
                                         NumericRow{L"x5", NotNumeric}, NumericRow{L"5%", NotNumeric},
                                         NumericRow{L"1_0", NotNumeric}, NumericRow{L"1 2", NotNumeric},
                                         // Digits of another script.
                                         NumericRow{L"\u0665", NotNumeric}));

INSTANTIATE_TEST_SUITE_P(Groups, NumericTextTest,
                         testing::Values(NumericRow{L"1,000", 1000}, NumericRow{L"1,2,3", 123},
                                         NumericRow{L"1,,2", 12}, NumericRow{L"1,000.5", 1000.5},
                                         NumericRow{L"5,", 5}, NumericRow{L"5,.5", 5.5},
                                         NumericRow{L",5", NotNumeric}, NumericRow{L",", NotNumeric},
                                         NumericRow{L"1.5,0", NotNumeric}, NumericRow{L"-,5", NotNumeric}));

INSTANTIATE_TEST_SUITE_P(Signs, NumericTextTest,
                         testing::Values(NumericRow{L"-5", -5}, NumericRow{L"+5", 5}, NumericRow{L"5-", -5},
                                         NumericRow{L"5+", 5}, NumericRow{L"- 5", -5}, NumericRow{L"5 -", -5},
                                         NumericRow{L"-.5", -0.5}, NumericRow{L"-0", 0},
                                         NumericRow{L"-", NotNumeric}, NumericRow{L"+", NotNumeric},
                                         NumericRow{L"--5", NotNumeric}, NumericRow{L"+-5", NotNumeric},
                                         NumericRow{L"-5-", NotNumeric}, NumericRow{L"5--", NotNumeric},
                                         NumericRow{L"-.", NotNumeric}));

INSTANTIATE_TEST_SUITE_P(Parentheses, NumericTextTest,
                         testing::Values(NumericRow{L"(5)", -5}, NumericRow{L"( 5 )", -5},
                                         NumericRow{L"(5) ", -5}, NumericRow{L"(5", NotNumeric},
                                         NumericRow{L"5)", NotNumeric}, NumericRow{L"()", NotNumeric},
                                         NumericRow{L")5(", NotNumeric}, NumericRow{L"((5))", NotNumeric},
                                         NumericRow{L"(-5)", NotNumeric}, NumericRow{L"-(5)", NotNumeric},
                                         NumericRow{L"(5)-", NotNumeric}));

INSTANTIATE_TEST_SUITE_P(Money, NumericTextTest,
                         testing::Values(NumericRow{L"$5", 5}, NumericRow{L"5$", 5}, NumericRow{L"$ 5", 5},
                                         NumericRow{L"5 $", 5}, NumericRow{L"-$5", -5},
                                         NumericRow{L"$-5", -5}, NumericRow{L"$5-", -5},
                                         NumericRow{L"($5)", -5}, NumericRow{L"$(5)", -5},
                                         NumericRow{L"$1,000.50", 1000.5}, NumericRow{L"$", NotNumeric},
                                         NumericRow{L"$$5", NotNumeric}, NumericRow{L"$5$", NotNumeric},
                                         NumericRow{L"\u00A35", NotNumeric}));

INSTANTIATE_TEST_SUITE_P(Exponents, NumericTextTest,
                         testing::Values(NumericRow{L"1e5", 1e5}, NumericRow{L"1E+5", 1e5},
                                         NumericRow{L"1e-5", 1e-5}, NumericRow{L"1d5", 1e5},
                                         NumericRow{L"1D-2", 0.01}, NumericRow{L"1.e5", 1e5},
                                         NumericRow{L"1,e5", 1e5}, NumericRow{L"-1e5", -1e5},
                                         NumericRow{L"1e5-", -1e5}, NumericRow{L"1e", NotNumeric},
                                         NumericRow{L"1e+", NotNumeric}, NumericRow{L"e5", NotNumeric},
                                         NumericRow{L".e5", NotNumeric}, NumericRow{L"5 e5", NotNumeric},
                                         NumericRow{L"5e 5", NotNumeric}, NumericRow{L"1e5.5", NotNumeric},
                                         // Beyond a double, and below one.
                                         NumericRow{L"1e308", 1e308}, NumericRow{L"1e309", NotNumeric},
                                         NumericRow{L"1e99999999999", NotNumeric}, NumericRow{L"1e-400", 0},
                                         NumericRow{L"0e99999999999", 0}));

INSTANTIATE_TEST_SUITE_P(Radix, NumericTextTest,
                         testing::Values(NumericRow{L"&H10", 16}, NumericRow{L"&hfF", 255},
                                         NumericRow{L"&HaA", 170}, NumericRow{L"&H`", NotNumeric},
                                         NumericRow{L"&Hg", NotNumeric}, NumericRow{L"&H@", NotNumeric},
                                         NumericRow{L"&O17", 15}, NumericRow{L"&o17", 15},
                                         NumericRow{L" &H10 ", 16}, NumericRow{L"&HFFFF", 65535},
                                         NumericRow{L"&HFFFFFFFF", 4294967295},
                                         NumericRow{L"&H100000000", NotNumeric},
                                         NumericRow{L"&H", NotNumeric}, NumericRow{L"&", NotNumeric},
                                         NumericRow{L"&17", NotNumeric}, NumericRow{L"&HG", NotNumeric},
                                         NumericRow{L"&O8", NotNumeric}, NumericRow{L"-&H10", NotNumeric},
                                         NumericRow{L"&H 10", NotNumeric}, NumericRow{L"&H10&", NotNumeric},
                                         NumericRow{L"0x10", NotNumeric}));

INSTANTIATE_TEST_SUITE_P(Blanks, NumericTextTest,
                         testing::Values(NumericRow{L" 5 ", 5}, NumericRow{L"\t5\t", 5},
                                         NumericRow{L"\r\n5\r\n", 5}, NumericRow{L"\x0E 5", NotNumeric},
                                         NumericRow{L"\u00A05\u00A0", 5}));

TEST(NumericTextTest, TakesOnlyTheLocalesOwnSeparators)
{
    const NumberLocale german = NumberLocales[1];
    EXPECT_EQ(ParseNumber(L"1.000", german)->ToDouble(), 1000);
    EXPECT_EQ(ParseNumber(L"1,000", german)->ToDouble(), 1);
    EXPECT_FALSE(ParseNumber(L"1,000.5", german));
    EXPECT_FALSE(ParseNumber(L"$5", german));
}

TEST(NumericTextTest, TakesABlankForASeparatorThatLooksLikeOne)
{
    const NumberLocale french = {L',', L'\u202F', L"\u20AC"};
    EXPECT_EQ(ParseNumber(L"1 234\u202F567,5 \u20AC", french)->ToDouble(), 1234567.5);
    EXPECT_FALSE(ParseNumber(L"1 234", NumberLocale{}));
}

TEST(NumericTextTest, GroupsNothingWithoutASeparator)
{
    const NumberLocale ungrouped = {L'.', L'\0', L""};
    EXPECT_EQ(ParseNumber(L"1000.5", ungrouped)->ToDouble(), 1000.5);
    EXPECT_FALSE(ParseNumber(L"1,000", ungrouped));
    EXPECT_FALSE(ParseNumber(L"$5", ungrouped));
    EXPECT_FALSE(ParseNumber(std::wstring(L"1") + L'\0' + L"5", ungrouped)) << "none is no character";
}

TEST(NumericTextTest, KeepsEveryDigit)
{
    EXPECT_EQ(ParseNumber(L"12345678901234567890.12345678901234567890", {})->Digits(),
              "123456789012345678901234567890123456789");
}

} // namespace

} // namespace kiv::test
