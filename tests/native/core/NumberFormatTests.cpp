#include "runtime/core/NumberFormat.h"

#include "runtime/core/NumericText.h"
#include "tests/native/core/NumberLocales.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

struct FormatRow
{
    const wchar_t* Number;
    const wchar_t* Pattern;
    const wchar_t* Text;
};

class NumberFormatTest : public testing::TestWithParam<FormatRow>
{
};

TEST_P(NumberFormatTest, LaysOutByThePattern)
{
    const Decimal number = *ParseNumber(GetParam().Number, {});
    for (const NumberLocale& locale : NumberLocales)
        EXPECT_EQ(Format(number, GetParam().Pattern, locale), Localized(GetParam().Text, locale));
}

INSTANTIATE_TEST_SUITE_P(Whole, NumberFormatTest,
                         testing::Values(FormatRow{L"0", L"0", L"0"}, FormatRow{L"12", L"0", L"12"},
                                         FormatRow{L"-12", L"0", L"-12"}, FormatRow{L"0", L"#", L""},
                                         FormatRow{L"5", L"#", L"5"}, FormatRow{L"5", L"00", L"05"},
                                         FormatRow{L"123", L"00", L"123"}, FormatRow{L"5", L"#0", L"5"},
                                         FormatRow{L"5", L"0#", L"05"}, FormatRow{L"5", L"#0#", L"05"},
                                         FormatRow{L"1e20", L"0", L"100000000000000000000"},
                                         // Halves go away from zero.
                                         FormatRow{L"0.5", L"0", L"1"}, FormatRow{L"1.5", L"0", L"2"},
                                         FormatRow{L"2.5", L"0", L"3"}, FormatRow{L"-0.5", L"0", L"-1"},
                                         FormatRow{L"-1.5", L"0", L"-2"}, FormatRow{L"-2.5", L"0", L"-3"},
                                         FormatRow{L"0.49999999999999999999", L"0", L"0"},
                                         FormatRow{L"99.5", L"0", L"100"}, FormatRow{L"0.05", L"#", L""},
                                         // What rounds to zero has no sign.
                                         FormatRow{L"-0.4", L"0", L"0"}, FormatRow{L"-0.4", L"#", L""},
                                         FormatRow{L"-0.004", L"0.00", L"0.00"},
                                         FormatRow{L"-0.4", L"#,##0", L"0"}));

INSTANTIATE_TEST_SUITE_P(
    Groups, NumberFormatTest,
    testing::Values(FormatRow{L"0", L"#,##0", L"0"}, FormatRow{L"999", L"#,##0", L"999"},
                    FormatRow{L"1234", L"#,##0", L"1,234"}, FormatRow{L"-1234.5", L"#,##0", L"-1,235"},
                    FormatRow{L"1234567", L"#,##0", L"1,234,567"},
                    FormatRow{L"99999999999999.9999", L"#,##0", L"100,000,000,000,000"},
                    FormatRow{L"999.5", L"#,##0", L"1,000"}, FormatRow{L"5", L"#,###", L"5"},
                    FormatRow{L"0", L"#,###", L""}, FormatRow{L"12", L"000,000", L"000,012"},
                    FormatRow{L"1234567", L"#,#", L"1,234,567"}, FormatRow{L"5", L"0,0", L"05"},
                    FormatRow{L"1234.5", L"0,0.0", L"1,234.5"},
                    FormatRow{L"1234567", L"0,000,0", L"1,234,567"}, FormatRow{L"1234", L"####", L"1234"},
                    // In front of the first digit or behind the last a comma says nothing.
                    FormatRow{L"1234", L",0", L"1234"}, FormatRow{L"1234", L",##0", L"1234"},
                    FormatRow{L"1234", L"0,x", L"1234x"}));

INSTANTIATE_TEST_SUITE_P(
    Decimals, NumberFormatTest,
    testing::Values(FormatRow{L"0.5", L"#,###.00", L".50"}, FormatRow{L"-0.5", L"#,###.00", L"-.50"},
                    FormatRow{L"0", L"#,###.00", L".00"},
                    FormatRow{L"1234567.891", L"#,###.00", L"1,234,567.89"},
                    FormatRow{L"99999999999999.9999", L"#,###.0000", L"99,999,999,999,999.9999"},
                    FormatRow{L"99999999999999.9999", L"#,###.000", L"100,000,000,000,000.000"},
                    FormatRow{L"0.5", L"#.00", L".50"}, FormatRow{L"12", L"#.00", L"12.00"},
                    FormatRow{L"1.005", L"0.00", L"1.01"}, FormatRow{L"1.004999", L"0.00", L"1.00"},
                    FormatRow{L"9.995", L"0.00", L"10.00"}, FormatRow{L"7", L"##0.####", L"7."},
                    FormatRow{L"0", L"##0.####", L"0."}, FormatRow{L"7.5", L"##0.####", L"7.5"},
                    FormatRow{L"7.12345", L"##0.####", L"7.1235"}, FormatRow{L"1234", L"##0.####", L"1234."},
                    FormatRow{L"0.075", L"0.######", L"0.075"}, FormatRow{L"1.2", L"0.#0", L"1.20"},
                    FormatRow{L"1.2", L"0.0#", L"1.2"}, FormatRow{L"12.5", L".00", L"12.50"},
                    FormatRow{L"0", L"#.#", L"."}, FormatRow{L"12.5", L"0.", L"13."},
                    FormatRow{L"1e-300", L"0.0", L"0.0"},
                    // Behind the point neither a comma nor a second point says anything.
                    FormatRow{L"1.25", L"0.0,0", L"1.25"}, FormatRow{L"1.25", L"0.0.0", L"1.25"}));

INSTANTIATE_TEST_SUITE_P(Thousandths, NumberFormatTest,
                         testing::Values(FormatRow{L"1234567", L"0,", L"1235"},
                                         FormatRow{L"1234567", L"0,,", L"1"},
                                         FormatRow{L"1234567", L"#,##0,", L"1,235"},
                                         FormatRow{L"1234", L"0,.00", L"1.23"},
                                         FormatRow{L"499", L"0,", L"0"}, FormatRow{L"500", L"0,", L"1"},
                                         FormatRow{L"1500", L",.0", L"1500.0"}));

INSTANTIATE_TEST_SUITE_P(
    OtherCharacters, NumberFormatTest,
    testing::Values(FormatRow{L"1234", L"00-00", L"12-34"}, FormatRow{L"12345", L"00-00", L"123-45"},
                    FormatRow{L"1", L"#-#", L"-1"}, FormatRow{L"12.34", L"0-0.0-0", L"1-2.3-4"},
                    FormatRow{L"-5", L"x0y", L"-x5y"}, FormatRow{L"5", L"abc", L"abc"},
                    FormatRow{L"1234", L"0,x0", L"1,23x4"}, FormatRow{L"5", L"0 %", L"5 %"},
                    FormatRow{L"5", L"", L""}, FormatRow{L"1.5", L".", L"."}, FormatRow{L"1.5", L",", L""}));

TEST(NumberFormatTest, GroupsNothingWithoutASeparator)
{
    EXPECT_EQ(Format(*ParseNumber(L"1234567", {}), L"#,##0", {L'.', L'\0', L"$"}), L"1234567");
}

TEST(NumberFormatTest, TakesTheDigitsThatADoubleShows)
{
    EXPECT_EQ(Format(*Decimal::FromDouble(1.005), L"0.00", {}), L"1.01");
    EXPECT_EQ(Format(*Decimal::FromDouble(0.1 + 0.2), L"0.####", {}), L"0.3");
    EXPECT_EQ(Format(*Decimal::FromDouble(12345678901234.56), L"#,###.00", {}), L"12,345,678,901,234.56");
}

// Beyond what is kept room for in advance.
TEST(NumberFormatTest, WritesNumbersOfAnyLength)
{
    std::wstring text = L"-1";
    for (int groups = 0; groups < 100; ++groups, text += L",000")
    {
        const std::string digits = "1" + std::string(static_cast<std::size_t>(3 * groups), '0') + "5";
        EXPECT_EQ(Format(Decimal(true, digits, 3 * groups + 1), L"#,##0.00", {}), text + L".50");
    }
}

} // namespace

} // namespace kiv::test
