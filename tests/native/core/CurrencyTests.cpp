#include "runtime/core/Currency.h"

#include "runtime/core/NumericText.h"
#include "runtime/core/PlainText.h"
#include "tests/native/core/NumberLocales.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test
{

namespace
{

constexpr std::int64_t Highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t Lowest = std::numeric_limits<std::int64_t>::min();

std::optional<std::int64_t> Units(const std::optional<Currency>& amount)
{
    return amount ? std::optional(amount->Units()) : std::nullopt;
}

struct ExactRow
{
    std::int64_t Units;
    const wchar_t* Text;
};

class CurrencyTextTest : public testing::TestWithParam<ExactRow>
{
};

TEST_P(CurrencyTextTest, GoesToTextAndBackExactly)
{
    const Currency amount = Currency::FromUnits(GetParam().Units);
    for (const NumberLocale& locale : NumberLocales)
    {
        const std::wstring text = Localized(GetParam().Text, locale);
        EXPECT_EQ(PlainText(amount, locale), text);
        EXPECT_EQ(Units(Currency::From(*ParseNumber(text, locale))), GetParam().Units);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyTextTest,
                         testing::Values(ExactRow{0, L"0"}, ExactRow{1, L"0.0001"}, ExactRow{-1, L"-0.0001"},
                                         ExactRow{10, L"0.001"}, ExactRow{5000, L"0.5"},
                                         ExactRow{-5000, L"-0.5"}, ExactRow{15000, L"1.5"},
                                         ExactRow{-15000, L"-1.5"}, ExactRow{25000, L"2.5"},
                                         ExactRow{-25000, L"-2.5"}, ExactRow{10000, L"1"},
                                         ExactRow{100000, L"10"}, ExactRow{12340000, L"1234"},
                                         ExactRow{12345678, L"1234.5678"},
                                         // The amount controls' bounds and one unit around each.
                                         ExactRow{999'999'999'999'999'998, L"99999999999999.9998"},
                                         ExactRow{999'999'999'999'999'999, L"99999999999999.9999"},
                                         ExactRow{1'000'000'000'000'000'000, L"100000000000000"},
                                         ExactRow{-999'999'999'999'999'998, L"-99999999999999.9998"},
                                         ExactRow{-999'999'999'999'999'999, L"-99999999999999.9999"},
                                         ExactRow{-1'000'000'000'000'000'000, L"-100000000000000"},
                                         ExactRow{999'999'999'999'990'000, L"99999999999999"},
                                         ExactRow{999'999'999'999'990'001, L"99999999999999.0001"},
                                         ExactRow{-999'999'999'999'989'999, L"-99999999999998.9999"},
                                         // All that 64 bits hold.
                                         ExactRow{Highest - 1, L"922337203685477.5806"},
                                         ExactRow{Highest, L"922337203685477.5807"},
                                         ExactRow{Lowest + 1, L"-922337203685477.5807"},
                                         ExactRow{Lowest, L"-922337203685477.5808"}));

struct RoundedRow
{
    const wchar_t* Text;
    std::optional<std::int64_t> Units;
};

class CurrencyRoundingTest : public testing::TestWithParam<RoundedRow>
{
};

TEST_P(CurrencyRoundingTest, TakesHalvesToTheEvenNeighbour)
{
    EXPECT_EQ(Units(Currency::From(*ParseNumber(GetParam().Text, {}))), GetParam().Units);
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyRoundingTest,
                         testing::Values(RoundedRow{L"0.00005", 0}, RoundedRow{L"0.00015", 2},
                                         RoundedRow{L"0.00025", 2}, RoundedRow{L"-0.00005", 0},
                                         RoundedRow{L"-0.00015", -2}, RoundedRow{L"-0.00025", -2},
                                         RoundedRow{L"0.000050001", 1}, RoundedRow{L"0.00004999", 0},
                                         RoundedRow{L"1.23456", 12346}, RoundedRow{L"1e-30", 0},
                                         RoundedRow{L"922337203685477.58074", Highest},
                                         RoundedRow{L"922337203685477.58075", std::nullopt},
                                         RoundedRow{L"922337203685477.5808", std::nullopt},
                                         RoundedRow{L"-922337203685477.58085", Lowest},
                                         RoundedRow{L"-922337203685477.5809", std::nullopt},
                                         RoundedRow{L"1e300", std::nullopt},
                                         RoundedRow{L"-1e300", std::nullopt}));

TEST(CurrencyTest, TakesTheDigitsThatADoubleShows)
{
    const auto units = [](double number) { return Units(Currency::From(*Decimal::FromDouble(number))); };
    EXPECT_EQ(units(0.1), 1000);
    EXPECT_EQ(units(1.00005), 10000);
    EXPECT_EQ(units(1.00015), 10002);
    EXPECT_EQ(units(-2.5), -25000);
    EXPECT_EQ(units(12345678901.2345), 123'456'789'012'345);
    // A double is too coarse for the largest amount: it has become the next whole number by itself.
    EXPECT_EQ(units(99999999999999.9999), 1'000'000'000'000'000'000);
    EXPECT_EQ(units(1e15), std::nullopt);
}

TEST(CurrencyTest, ChecksItsSign)
{
    EXPECT_EQ(Units(Currency::FromUnits(5).Negated()), -5);
    EXPECT_EQ(Units(Currency::FromUnits(Highest).Negated()), -Highest);
    EXPECT_EQ(Currency::FromUnits(Lowest).Negated(), std::nullopt);
    EXPECT_EQ(Units(Currency::FromUnits(-5).Absolute()), 5);
    EXPECT_EQ(Units(Currency::FromUnits(5).Absolute()), 5);
    EXPECT_EQ(Currency::FromUnits(Lowest).Absolute(), std::nullopt);
}

} // namespace

} // namespace kiv::test
