#include "controls/amount/CurrencyRules.h"

#include "runtime/core/NumericText.h"
#include "tests/native/amount/CurrencyEntryRows.h"
#include "tests/native/core/NumberLocales.h"
#include "tests/native/masked/RowName.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

// A value as the host assigns it.
std::optional<Decimal> Assigned(const wchar_t* value, const NumberLocale& locale)
{
    return value != nullptr ? ParseNumber(Localized(value, locale), locale) : std::nullopt;
}

CurrencyLimits Bounded(std::int64_t minValue, std::int64_t maxValue)
{
    CurrencyLimits limits;
    limits.MinValue = Currency::FromUnits(minValue * 10000);
    limits.MaxValue = Currency::FromUnits(maxValue * 10000);
    return limits;
}

CurrencyLimits Widest()
{
    CurrencyLimits limits;
    limits.MinValue = SmallestAmount;
    limits.MaxValue = LargestAmount;
    return limits;
}

class CurrencyLetTest : public testing::TestWithParam<CurrencyLetRow>
{
};

TEST_P(CurrencyLetTest, ShowsTheValue)
{
    const CurrencyLetRow& row = GetParam();
    CurrencyLimits limits;
    limits.AllowRounding = row.AllowRounding;
    limits.NumDecDigits = row.NumDecDigits;
    for (const NumberLocale& locale : NumberLocales)
    {
        const std::wstring text = CurrencyRules(limits, locale).TextOf(Assigned(row.Value, locale));
        EXPECT_EQ(text, Localized(row.Text, locale));
        EXPECT_EQ(CurrencyRules(limits, locale).CaptionOf(text), Localized(row.Label, locale));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyLetTest, testing::ValuesIn(CurrencyLetRows), NameOfRow);

class CurrencyReadTest : public testing::TestWithParam<CurrencyReadRow>
{
};

TEST_P(CurrencyReadTest, ReadsTheAmount)
{
    const CurrencyReadRow& row = GetParam();
    for (const NumberLocale& locale : NumberLocales)
    {
        const std::wstring text = Localized(row.Text, locale);
        const CurrencyReading reading = CurrencyRules({}, locale).Read(text);
        EXPECT_EQ(reading.What == CurrencyReading::Kind::Amount, row.Units.has_value());
        EXPECT_EQ(reading.Amount.Units(), row.Units.value_or(0));
        EXPECT_EQ(CurrencyRules(Widest(), locale).IsValid(text), row.Valid);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyReadTest, testing::ValuesIn(CurrencyReadRows), NameOfRow);

class CurrencyExitTest : public testing::TestWithParam<CurrencyExitRow>
{
};

TEST_P(CurrencyExitTest, LeavesTheBox)
{
    const CurrencyExitRow& row = GetParam();
    CurrencyLimits limits = Bounded(row.MinValue, row.MaxValue);
    limits.AllowRounding = row.AllowRounding;
    for (const NumberLocale& locale : NumberLocales)
    {
        const AmountExit exit = CurrencyRules(limits, locale).Exit(Localized(row.Before, locale));
        EXPECT_EQ(exit.Text, Localized(row.After, locale));
        EXPECT_EQ(exit.Parked, row.Parked);
        if (exit.Parked)
        {
            EXPECT_EQ(CurrencyRules(limits, locale).CaptionOf(exit.Text), Localized(row.Label, locale));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyExitTest, testing::ValuesIn(CurrencyExitRows), NameOfRow);

class CurrencyPasteTest : public testing::TestWithParam<CurrencyPasteRow>
{
};

TEST_P(CurrencyPasteTest, TakesOrIgnoresTheClipboard)
{
    const CurrencyPasteRow& row = GetParam();
    const CurrencyLimits limits = Bounded(row.MinValue, row.MaxValue);
    for (const NumberLocale& locale : NumberLocales)
    {
        const auto pasted = CurrencyRules(limits, locale).Pasted(Localized(row.Clipboard, locale));
        ASSERT_EQ(pasted.has_value(), row.After != nullptr);
        if (pasted)
        {
            EXPECT_EQ(CurrencyRules(limits, locale).TextOf(pasted), row.After);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyPasteTest, testing::ValuesIn(CurrencyPasteRows), NameOfRow);

TEST(CurrencyRulesTest, ChecksAPasteAtTheBoundsToTheUnit)
{
    EXPECT_TRUE(CurrencyRules(Widest()).Pasted(L"99999999999999.9999"));
    EXPECT_TRUE(CurrencyRules(Widest()).Pasted(L"-99999999999999.9999"));
    EXPECT_FALSE(CurrencyRules(Widest()).Pasted(L"100000000000000"));
    EXPECT_FALSE(CurrencyRules(Widest()).Pasted(L"-100000000000000"));
}

TEST(CurrencyRulesTest, ChecksTheRangeToTheUnit)
{
    const CurrencyLimits limits = Bounded(-100, 100);
    for (const wchar_t* const text : {L"100", L"-100", L"100.0000", L"99.9999", L"-99.9999", L"0", L""})
        EXPECT_TRUE(CurrencyRules(limits).IsValid(text)) << text;
    for (const wchar_t* const text : {L"100.0001", L"-100.0001", L"101", L"-101"})
        EXPECT_FALSE(CurrencyRules(limits).IsValid(text)) << text;
}

TEST(CurrencyRulesTest, TakesNoAmountAtAllAlsoWhereZeroIsOutOfTheRange)
{
    const CurrencyRules rules(Bounded(1, 100));
    EXPECT_TRUE(rules.IsValid(L""));
    EXPECT_FALSE(rules.IsValid(L"0"));
}

TEST(CurrencyRulesTest, TellsTheRange)
{
    EXPECT_EQ(CurrencyRules().RangeMessage(),
              L"Please enter a value between -99999999999999 and 99999999999999");
    CurrencyLimits limits;
    limits.MinValue = Currency::FromUnits(5000);
    limits.MaxValue = Currency::FromUnits(999'999'900);
    for (const NumberLocale& locale : NumberLocales)
    {
        EXPECT_EQ(CurrencyRules(limits, locale).RangeMessage(),
                  Localized(L"Please enter a value between 0.5 and 99999.99", locale));
    }
}

TEST(CurrencyRulesTest, SurvivesStoredDigitCountsThatNoLetWouldTake)
{
    CurrencyLimits limits;
    limits.AllowRounding = false;
    limits.NumDecDigits = -3;
    EXPECT_EQ(CurrencyRules(limits).TextOf(ParseNumber(L"12.5", {})), L"13.");
    EXPECT_EQ(CurrencyRules(limits).CaptionOf(L"12.5"), L"13");
    // As many decimals as a number may have, and no more: a text box takes seconds to show thousands.
    const struct
    {
        std::int16_t Stored;
        std::size_t Shown;
    } rows[] = {{5, 5}, {27, 27}, {28, 28}, {29, 28}, {30000, 28}, {32767, 28}};
    for (const auto& row : rows)
    {
        limits.NumDecDigits = row.Stored;
        const std::wstring decimals = L"5" + std::wstring(row.Shown - 1, L'0');
        EXPECT_EQ(CurrencyRules(limits).TextOf(ParseNumber(L"12.5", {})), L"12." + decimals);
        EXPECT_EQ(CurrencyRules(limits).CaptionOf(L"1234.5"), L"1,234." + decimals);
    }
}

} // namespace

} // namespace kiv::test
