#include "controls/amount/CurrencyLimits.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test
{

namespace
{

constexpr Currency Whole(std::int64_t units)
{
    return Currency::FromUnits(units * 10000);
}

// So many below the largest amount.
constexpr Currency BelowLargest(std::int64_t tenThousandths)
{
    return Currency::FromUnits(LargestAmount.Units() - tenThousandths);
}

CurrencyLimits Digits(std::int16_t intDigits, std::int16_t decDigits)
{
    CurrencyLimits limits;
    limits.NumIntDigits = intDigits;
    limits.NumDecDigits = decDigits;
    return limits;
}

std::vector<std::wstring> Names(const CurrencyLimitsChange& change)
{
    return {change.Changed.begin(), change.Changed.end()};
}

using NameList = std::vector<std::wstring>;

// Refused, with nothing done.
void ExpectRefused(const CurrencyLimitsChange& change, const CurrencyLimits& before)
{
    EXPECT_TRUE(change.Refused);
    EXPECT_EQ(change.Limits, before);
    EXPECT_EQ(Names(change), NameList());
}

TEST(CurrencyLimitsTest, HasWholeBoundsAtFirst)
{
    EXPECT_EQ(CurrencyLimits().MaxValue, Whole(99'999'999'999'999));
    EXPECT_EQ(CurrencyLimits().MinValue, Whole(-99'999'999'999'999));
}

TEST(CurrencyLimitsTest, TakesZeroToFourDecimals)
{
    for (std::int16_t digits = 0; digits <= 4; ++digits)
    {
        const CurrencyLimitsChange change = LetNumDecDigits({}, digits);
        EXPECT_FALSE(change.Refused);
        EXPECT_EQ(change.Limits.NumDecDigits, digits);
        EXPECT_EQ(Names(change), (NameList{L"NumDecDigits", L"MaxValue", L"MinValue"}));
    }
    for (const int digits : {-1, 5, 100, -32768, 32767})
        ExpectRefused(LetNumDecDigits({}, static_cast<std::int16_t>(digits)), {});
}

TEST(CurrencyLimitsTest, TakesOneToFourteenDigits)
{
    for (std::int16_t digits = 1; digits <= 14; ++digits)
    {
        const CurrencyLimitsChange change = LetNumIntDigits({}, digits);
        EXPECT_FALSE(change.Refused);
        EXPECT_EQ(change.Limits.NumIntDigits, digits);
        EXPECT_EQ(Names(change), (NameList{L"NumIntDigits", L"MaxValue", L"MinValue"}));
    }
    for (const int digits : {-1, 0, 15, -32768, 32767})
        ExpectRefused(LetNumIntDigits({}, static_cast<std::int16_t>(digits)), {});
}

struct WidestRow
{
    std::int16_t IntDigits;
    std::int16_t DecDigits;
    std::int64_t Units;
};

class CurrencyWidestRangeTest : public testing::TestWithParam<WidestRow>
{
};

TEST_P(CurrencyWidestRangeTest, FollowsTheDigitCounts)
{
    const WidestRow& row = GetParam();
    CurrencyLimits limits = Digits(14, row.DecDigits);
    // Bounds that the host set are lost.
    limits.MaxValue = Whole(500);
    limits.MinValue = Whole(-3);
    const CurrencyLimits byInt = LetNumIntDigits(limits, row.IntDigits).Limits;
    EXPECT_EQ(byInt.MaxValue.Units(), row.Units);
    EXPECT_EQ(byInt.MinValue.Units(), -row.Units);
    limits.NumIntDigits = row.IntDigits;
    EXPECT_EQ(LetNumDecDigits(limits, row.DecDigits).Limits, byInt);
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyWidestRangeTest,
                         testing::Values(WidestRow{5, 2, 999'999'900}, WidestRow{5, 0, 999'990'000},
                                         WidestRow{1, 0, 90'000}, WidestRow{1, 4, 99'999},
                                         WidestRow{14, 0, 999'999'999'999'990'000},
                                         WidestRow{14, 2, 999'999'999'999'999'900},
                                         WidestRow{14, 4, 999'999'999'999'999'999}));

TEST(CurrencyLimitsTest, ResetsHalfWayWhereTheLowerBoundIsInTheWay)
{
    CurrencyLimits limits;
    limits.MaxValue = Whole(600'000);
    limits.MinValue = Whole(500'000);
    const CurrencyLimitsChange change = LetNumIntDigits(limits, 5);
    EXPECT_TRUE(change.Refused);
    EXPECT_EQ(Names(change), NameList{L"NumIntDigits"});
    limits.NumIntDigits = 5;
    EXPECT_EQ(change.Limits, limits);
}

TEST(CurrencyLimitsTest, TakesNoBoundBeyondAllAmountsForAStoredDigitCount)
{
    CurrencyLimits limits;
    limits.NumIntDigits = 15;
    ExpectRefused(LetMaxValue(limits, Whole(100'000'000'000'000)), limits);
    ExpectRefused(LetMinValue(limits, Whole(-100'000'000'000'000)), limits);
}

TEST(CurrencyLimitsTest, LosesTheSignOfTheUpperBoundWhereTheResetIsRefused)
{
    // As stored in a form by hand: no let would have taken these bounds in this order.
    CurrencyLimits limits;
    limits.MaxValue = Whole(-7);
    limits.MinValue = Whole(500'000);
    EXPECT_EQ(LetNumIntDigits(limits, 5).Limits.MaxValue, Whole(7));
}

TEST(CurrencyLimitsTest, RefusesAResetThatStoredDigitCountsMakeTooWide)
{
    const CurrencyLimitsChange change = LetNumDecDigits(Digits(30000, 2), 3);
    EXPECT_TRUE(change.Refused);
    EXPECT_EQ(change.Limits, Digits(30000, 3));
    EXPECT_EQ(Names(change), NameList{L"NumDecDigits"});
}

// Nines without end round up to a digit too many; four of them and fewer are what the range ends with.
TEST(CurrencyLimitsTest, RefusesAResetThatStoredDecimalsRoundUp)
{
    for (const std::int16_t decimals :
         {std::int16_t{5}, std::int16_t{30}, std::int16_t{31}, std::int16_t{32767}})
    {
        const CurrencyLimitsChange change = LetNumIntDigits(Digits(14, decimals), 5);
        EXPECT_TRUE(change.Refused) << decimals;
        EXPECT_EQ(Names(change), NameList{L"NumIntDigits"});
    }
    EXPECT_EQ(LetNumIntDigits(Digits(14, 4), 5).Limits.MaxValue.Units(), 999'999'999);
}

TEST(CurrencyLimitsTest, SurvivesStoredBoundsAtTheEndsOfCurrency)
{
    CurrencyLimits limits;
    limits.MaxValue = Currency::FromUnits(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(LetNumIntDigits(limits, 5).Limits.MaxValue.Units(), 999'999'900);
}

TEST(CurrencyLimitsTest, TakesBoundsUpToTheLargestAmountExactly)
{
    for (const Currency bound : {LargestAmount, BelowLargest(1), Currency::FromUnits(1), Currency()})
    {
        const CurrencyLimitsChange change = LetMaxValue({}, bound);
        EXPECT_FALSE(change.Refused);
        EXPECT_EQ(change.Limits.MaxValue, bound);
        EXPECT_EQ(Names(change), NameList{L"MaxValue"});

        const CurrencyLimitsChange mirrored = LetMinValue({}, *bound.Negated());
        EXPECT_FALSE(mirrored.Refused);
        EXPECT_EQ(mirrored.Limits.MinValue, *bound.Negated());
        EXPECT_EQ(Names(mirrored), NameList{L"MinValue"});
    }
    for (const std::int64_t units : {LargestAmount.Units() + 1, std::numeric_limits<std::int64_t>::max()})
        ExpectRefused(LetMaxValue({}, Currency::FromUnits(units)), {});
    for (const std::int64_t units : {SmallestAmount.Units() - 1, std::numeric_limits<std::int64_t>::min()})
        ExpectRefused(LetMinValue({}, Currency::FromUnits(units)), {});
}

TEST(CurrencyLimitsTest, KeepsTheBoundsApart)
{
    CurrencyLimits limits;
    limits.MinValue = Whole(100);
    ExpectRefused(LetMaxValue(limits, Whole(100)), limits);
    ExpectRefused(LetMaxValue(limits, Whole(99)), limits);
    EXPECT_FALSE(LetMaxValue(limits, Currency::FromUnits(1'000'001)).Refused);

    limits = {};
    limits.MaxValue = Whole(100);
    ExpectRefused(LetMinValue(limits, Whole(100)), limits);
    ExpectRefused(LetMinValue(limits, Whole(101)), limits);
    EXPECT_FALSE(LetMinValue(limits, Currency::FromUnits(999'999)).Refused);
}

TEST(CurrencyLimitsTest, CountsTheDigitsOfABound)
{
    const CurrencyLimits limits = Digits(5, 2);
    ExpectRefused(LetMaxValue(limits, Whole(654'321)), limits);
    ExpectRefused(LetMaxValue(limits, Whole(100'000)), limits);
    EXPECT_FALSE(LetMaxValue(limits, Currency::FromUnits(999'999'999)).Refused);
    ExpectRefused(LetMinValue(limits, Whole(-100'000)), limits);
    EXPECT_FALSE(LetMinValue(limits, Currency::FromUnits(-999'999'999)).Refused);

    // The zero in front of a fraction is a digit.
    EXPECT_FALSE(LetMaxValue(Digits(1, 2), Currency::FromUnits(5000)).Refused);
    ExpectRefused(LetMaxValue(Digits(0, 2), Currency::FromUnits(5000)), Digits(0, 2));
}

} // namespace

} // namespace kiv::test
