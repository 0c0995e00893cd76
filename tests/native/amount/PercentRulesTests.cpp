#include "controls/amount/PercentRules.h"

#include "runtime/core/NumericText.h"
#include "tests/native/amount/PercentEntryRows.h"
#include "tests/native/core/NumberLocales.h"
#include "tests/native/masked/RowName.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test
{

namespace
{

// A value as the host assigns it.
std::optional<Decimal> Assigned(const wchar_t* value, const NumberLocale& locale)
{
    return value != nullptr ? ParseNumber(Localized(value, locale), locale) : std::nullopt;
}

PercentLimits LimitsOf(const PercentSettings& settings)
{
    PercentLimits limits;
    limits.Complement = settings.Complement;
    limits.DisplayPercent = settings.DisplayPercent;
    limits.MaxDigits = settings.MaxDigits;
    limits.MaxDecimals = settings.MaxDecimals;
    return limits;
}

PercentLimits Bounded(float minValue, float maxValue)
{
    PercentLimits limits;
    limits.MinValue = minValue;
    limits.MaxValue = maxValue;
    return limits;
}

class PercentLetTest : public testing::TestWithParam<PercentLetRow>
{
};

TEST_P(PercentLetTest, ShowsTheValue)
{
    const PercentLetRow& row = GetParam();
    for (const NumberLocale& locale : NumberLocales)
    {
        EXPECT_EQ(PercentRules(LimitsOf(row.Settings), locale).TextOf(Assigned(row.Value, locale)),
                  Localized(row.Text, locale));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, PercentLetTest, testing::ValuesIn(PercentLetRows), NameOfRow);

class PercentReadTest : public testing::TestWithParam<PercentReadRow>
{
};

TEST_P(PercentReadTest, ReadsTheValue)
{
    const PercentReadRow& row = GetParam();
    const PercentLimits limits = LimitsOf(row.Settings);
    for (const NumberLocale& locale : NumberLocales)
    {
        const std::wstring text = Localized(row.Text, locale);
        const PercentReading expected =
            row.Value == nullptr ? PercentReading{}
                                 : PercentReading{PercentReading::Kind::Number, Localized(row.Value, locale)};
        EXPECT_EQ(PercentRules(limits, locale).Read(text), expected);
        EXPECT_EQ(PercentRules(limits, locale).CheckPercentRange(text), row.Valid);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, PercentReadTest, testing::ValuesIn(PercentReadRows), NameOfRow);

class PercentPasteTest : public testing::TestWithParam<PercentPasteRow>
{
};

TEST_P(PercentPasteTest, TakesOrIgnoresTheClipboard)
{
    const PercentPasteRow& row = GetParam();
    for (const NumberLocale& locale : NumberLocales)
    {
        const auto pasted = PercentRules({}, locale).Pasted(Localized(row.Clipboard, locale));
        ASSERT_EQ(pasted.has_value(), row.After != nullptr);
        if (pasted)
        {
            EXPECT_EQ(PercentRules({}, locale).TextOf(pasted), Localized(row.After, locale));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, PercentPasteTest, testing::ValuesIn(PercentPasteRows), NameOfRow);

TEST(PercentRulesTest, TakesALonePointForValidButNotForANumber)
{
    for (const NumberLocale& locale : NumberLocales)
    {
        const std::wstring point(1, locale.DecimalPoint);
        EXPECT_TRUE(PercentRules({}, locale).CheckPercentRange(point));
        EXPECT_EQ(PercentRules({}, locale).Read(point),
                  (PercentReading{PercentReading::Kind::Mismatch, L""}));
        EXPECT_EQ(PercentRules({}, locale).Exit(point), (AmountExit{L"", false}));
    }
}

TEST(PercentRulesTest, TakesBlankAndALonePointForValidWhateverTheRange)
{
    const PercentLimits limits = Bounded(5, 10);
    EXPECT_TRUE(PercentRules(limits).CheckPercentRange(L""));
    EXPECT_TRUE(PercentRules(limits).CheckPercentRange(L"."));
    EXPECT_FALSE(PercentRules(limits).CheckPercentRange(L"0"));
}

TEST(PercentRulesTest, ReadsNoNumberFromATextThatIsNone)
{
    // Val reads the front of it, so it is in range.
    EXPECT_EQ(PercentRules().Read(L"1.2.3").What, PercentReading::Kind::Mismatch);
}

TEST(PercentRulesTest, ChecksTheRangeInclusively)
{
    const PercentLimits limits = Bounded(0.1F, 33.3F);
    for (const wchar_t* const text : {L"0.1", L".1", L"33.3", L"33.30", L"5"})
        EXPECT_TRUE(PercentRules(limits).CheckPercentRange(text)) << text;
    for (const wchar_t* const text : {L"0.09", L"33.4", L"33.30001", L"0"})
        EXPECT_FALSE(PercentRules(limits).CheckPercentRange(text)) << text;
    // Pasting a bound passes, though 0.1 is no single.
    EXPECT_TRUE(PercentRules(limits).Pasted(L"0.1"));
}

TEST(PercentRulesTest, HasNoRoomForNumbersThatNoSingleHolds)
{
    // A bound that only a form written by hand can have.
    const PercentLimits limits = Bounded(0, std::numeric_limits<float>::infinity());
    EXPECT_TRUE(PercentRules(limits).CheckPercentRange(std::wstring(38, L'9')));
    // The largest single itself.
    EXPECT_TRUE(PercentRules(limits).CheckPercentRange(L"340282346638528859811704183484516925440"));
    EXPECT_FALSE(PercentRules(limits).CheckPercentRange(std::wstring(40, L'9')));
    EXPECT_FALSE(PercentRules(limits).CheckPercentRange(std::wstring(400, L'9')));
}

TEST(PercentRulesTest, LeavesTheTextAsItIs)
{
    for (const wchar_t* const text : {L"", L"7.5", L"150", L"7."})
        EXPECT_EQ(PercentRules().Exit(text), (AmountExit{text, true}));
}

TEST(PercentRulesTest, TellsTheRange)
{
    EXPECT_EQ(PercentRules().RangeMessage(), L"Please enter a value within the range 0 to 100.");
    for (const NumberLocale& locale : NumberLocales)
    {
        EXPECT_EQ(PercentRules(Bounded(0.5F, 33.3F), locale).RangeMessage(),
                  L"Please enter a value within the range " + Localized(L"0.5", locale) + L" to " +
                      Localized(L"33.3", locale) + L".");
    }
}

TEST(PercentRulesTest, BuildsThePattern)
{
    EXPECT_EQ(PercentPattern({}), L"##0.####");
    EXPECT_EQ(PercentPattern(LimitsOf({false, true, 1, 0})), L"0.");
    EXPECT_EQ(PercentPattern(LimitsOf({false, true, 6, 6})), L"#####0.######");
    // As stored in a form by hand.
    EXPECT_EQ(PercentPattern(LimitsOf({false, true, -5, -5})), L"0.");
}

TEST(PercentRulesTest, TakesOneToSixDigits)
{
    for (std::int16_t digits = 1; digits <= 6; ++digits)
        EXPECT_EQ(LetMaxDigits({}, digits), LimitsOf({false, true, digits, 4}));
    for (const int digits : {-1, 0, 7, -32768, 32767})
        EXPECT_EQ(LetMaxDigits({}, static_cast<std::int16_t>(digits)), std::nullopt);
}

TEST(PercentRulesTest, TakesZeroToSixDecimals)
{
    for (std::int16_t decimals = 0; decimals <= 6; ++decimals)
        EXPECT_EQ(LetMaxDecimals({}, decimals), LimitsOf({false, true, 3, decimals}));
    for (const int decimals : {-1, 7, -32768, 32767})
        EXPECT_EQ(LetMaxDecimals({}, static_cast<std::int16_t>(decimals)), std::nullopt);
}

TEST(PercentRulesTest, TakesUpperBounds)
{
    constexpr float Infinity = std::numeric_limits<float>::infinity();
    constexpr float NoNumber = std::numeric_limits<float>::quiet_NaN();
    for (const float bound : {100.0F, 99.99999F, 0.5F, 0.0001F})
        EXPECT_EQ(LetMaxPercent({}, bound), Bounded(0, bound));
    for (const float bound : {100.5F, 100.00001F, 0.0F, -1.0F, Infinity, -Infinity, NoNumber})
        EXPECT_EQ(LetMaxPercent({}, bound), std::nullopt) << bound;
    EXPECT_EQ(LetMaxPercent(Bounded(5, 10), 5), std::nullopt);
    EXPECT_EQ(LetMaxPercent(Bounded(5, 10), 5.1F), Bounded(5, 5.1F));
}

TEST(PercentRulesTest, TakesLowerBounds)
{
    constexpr float Infinity = std::numeric_limits<float>::infinity();
    constexpr float NoNumber = std::numeric_limits<float>::quiet_NaN();
    for (const float bound : {0.0F, 0.5F, 99.99999F})
        EXPECT_EQ(LetMinPercent({}, bound), Bounded(bound, 100));
    for (const float bound : {100.0F, 101.0F, -1.0F, -0.0001F, Infinity, -Infinity, NoNumber})
        EXPECT_EQ(LetMinPercent({}, bound), std::nullopt) << bound;
}

TEST(PercentRulesTest, CountsTheDigitsOfABound)
{
    PercentLimits limits = LimitsOf({false, true, 1, 4});
    EXPECT_EQ(LetMaxPercent(limits, 10), std::nullopt);
    EXPECT_TRUE(LetMaxPercent(limits, 9.99F));
    EXPECT_EQ(LetMinPercent(limits, 10), std::nullopt);
    EXPECT_TRUE(LetMinPercent(limits, 0.5F));
    limits.MaxDigits = 2;
    EXPECT_EQ(LetMaxPercent(limits, 100), std::nullopt);
    // A tiny bound counts in all of its scientific notation, "1E-05".
    limits.MaxDigits = 4;
    EXPECT_EQ(LetMaxPercent(limits, 0.00001F), std::nullopt);
    limits.MaxDigits = 5;
    EXPECT_TRUE(LetMaxPercent(limits, 0.00001F));
    // Unless it has decimals there, "1.5E-05".
    limits.MaxDigits = 1;
    EXPECT_TRUE(LetMaxPercent(limits, 0.000015F));
}

TEST(PercentRulesTest, SurvivesStoredDecimalCountsThatNoLetWouldTake)
{
    EXPECT_EQ(PercentRules(LimitsOf({false, true, 3, -5})).Read(L"7.5").Number, L"0.");
    EXPECT_EQ(PercentRules(LimitsOf({false, true, 3, 30000})).Read(L"7.5").Number, L"0.075");
}

} // namespace

} // namespace kiv::test
