#include "runtime/core/Decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kiv::test
{

namespace
{

Decimal Of(double number)
{
    return *Decimal::FromDouble(number);
}

TEST(DecimalTest, KeepsNoZerosAtTheEnds)
{
    const Decimal number(true, "001200", 4);
    EXPECT_EQ(number.Digits(), "12");
    EXPECT_EQ(number.Point(), 2);
    EXPECT_TRUE(number.IsNegative());
    EXPECT_EQ(number, Of(-12));
}

TEST(DecimalTest, ZeroHasNoSign)
{
    EXPECT_EQ(Decimal(true, "000", 1), Decimal());
    EXPECT_EQ(Of(-0.0), Decimal());
    EXPECT_EQ(Decimal().Negated(), Decimal());
}

TEST(DecimalTest, ChangesItsSign)
{
    EXPECT_EQ(Of(5).Negated(), Of(-5));
    EXPECT_EQ(Of(-5).Negated(), Of(5));
    EXPECT_EQ(Of(5).Absolute(), Of(5));
    EXPECT_EQ(Of(-5).Absolute(), Of(5));
}

TEST(DecimalTest, TakesTheShortestDigitsOfBinaryNumbers)
{
    EXPECT_EQ(Of(0.1), Decimal(false, "1", 0));
    EXPECT_EQ(Of(-1234.5), Decimal(true, "12345", 4));
    EXPECT_EQ(Of(1e300), Decimal(false, "1", 301));
    EXPECT_EQ(Of(5e-324), Decimal(false, "5", -323));
    EXPECT_EQ(*Decimal::FromSingle(0.1F), Decimal(false, "1", 0));
    // The same number as a double shows what a single cannot keep.
    EXPECT_EQ(Of(0.1F).Digits(), "10000000149011612");
    EXPECT_EQ(*Decimal::FromDouble(2.0 / 3, 3), Decimal(false, "667", 0));
    EXPECT_EQ(*Decimal::FromDouble(9.996, 3), Of(10));
}

TEST(DecimalTest, RefusesWhatIsNoNumber)
{
    EXPECT_FALSE(Decimal::FromDouble(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(Decimal::FromDouble(-std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(Decimal::FromDouble(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(Decimal::FromSingle(std::numeric_limits<float>::infinity()));
}

TEST(DecimalTest, ReadsBackAsTheSameBinaryNumber)
{
    for (const double number : {0.0, 0.1, -0.5, 1e300, 5e-324, 123456789.123456789})
        EXPECT_EQ(Of(number).ToDouble(), number);
    EXPECT_EQ(Decimal(false, "1", 400).ToDouble(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Decimal(true, "1", 400).ToDouble(), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(Decimal(false, "1", -400).ToDouble(), 0.0);
}

struct RoundingRow
{
    double Number;
    int Decimals;
    double AwayFromZero;
    double ToEven;
};

class DecimalRoundingTest : public testing::TestWithParam<RoundingRow>
{
};

TEST_P(DecimalRoundingTest, RoundsOnTheDigits)
{
    const RoundingRow& row = GetParam();
    EXPECT_EQ(Of(row.Number).Rounded(row.Decimals, Halves::AwayFromZero), Of(row.AwayFromZero));
    EXPECT_EQ(Of(row.Number).Rounded(row.Decimals, Halves::ToEven), Of(row.ToEven));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DecimalRoundingTest,
    testing::Values(RoundingRow{0.5, 0, 1, 0}, RoundingRow{1.5, 0, 2, 2}, RoundingRow{2.5, 0, 3, 2},
                    RoundingRow{-0.5, 0, -1, 0}, RoundingRow{-1.5, 0, -2, -2}, RoundingRow{-2.5, 0, -3, -2},
                    RoundingRow{0.49, 0, 0, 0}, RoundingRow{0.51, 0, 1, 1}, RoundingRow{2.51, 0, 3, 3},
                    // The nearest binary number of 1.005 is below it; its digits are not.
                    RoundingRow{1.005, 2, 1.01, 1}, RoundingRow{0.045, 2, 0.05, 0.04},
                    RoundingRow{9.99, 1, 10, 10}, RoundingRow{999.95, 1, 1000, 1000},
                    RoundingRow{0.05, 0, 0, 0}, RoundingRow{0.05, 1, 0.1, 0}, RoundingRow{0.004, 1, 0, 0},
                    RoundingRow{1234, 2, 1234, 1234}, RoundingRow{0, 2, 0, 0},
                    RoundingRow{1250, -2, 1300, 1200}, RoundingRow{50, -2, 100, 0}, RoundingRow{49, -2, 0, 0},
                    RoundingRow{1e-20, 4, 0, 0}));

struct DifferenceRow
{
    double Minuend;
    double Subtrahend;
    double Difference;
};

class DecimalDifferenceTest : public testing::TestWithParam<DifferenceRow>
{
};

TEST_P(DecimalDifferenceTest, IsExact)
{
    const DifferenceRow& row = GetParam();
    EXPECT_EQ(Of(row.Minuend) - Of(row.Subtrahend), Of(row.Difference));
    EXPECT_EQ(Of(row.Subtrahend) - Of(row.Minuend), Of(row.Difference).Negated());
}

INSTANTIATE_TEST_SUITE_P(Rows, DecimalDifferenceTest,
                         testing::Values(DifferenceRow{100, 25, 75}, DifferenceRow{1, 0.25, 0.75},
                                         DifferenceRow{1, 1, 0}, DifferenceRow{100, 99.9999, 0.0001},
                                         DifferenceRow{100, -50, 150}, DifferenceRow{-1, -0.1, -0.9},
                                         DifferenceRow{-1, 99, -100}, DifferenceRow{0, 0.3, -0.3},
                                         // Neither of these is exact in binary.
                                         DifferenceRow{0.3, 0.1, 0.2}, DifferenceRow{999.5, -0.5, 1000},
                                         DifferenceRow{1, 0.000001, 0.999999}));

TEST(DecimalTest, SubtractsNumbersFarApart)
{
    const Decimal difference = Of(1e20) - Of(1e-20);
    EXPECT_EQ(difference.Digits(), std::string(40, '9'));
    EXPECT_EQ(difference.Point(), 20);
}

TEST(DecimalTest, Orders)
{
    const std::vector<double> ascending = {-1e30, -20, -3, -2.5, -2, -0.1, -0.01, 0,
                                           0.01,  0.1, 2,  2.5,  3,  20,   1e30};
    for (std::size_t i = 0; i < ascending.size(); ++i)
    {
        for (std::size_t j = 0; j < ascending.size(); ++j)
            EXPECT_EQ(Of(ascending[i]) <=> Of(ascending[j]), i <=> j) << ascending[i] << ", " << ascending[j];
    }
}

TEST(DecimalTest, Shifts)
{
    EXPECT_EQ(Of(7.5).Shifted(-2), Of(0.075));
    EXPECT_EQ(Of(0.075).Shifted(2), Of(7.5));
    EXPECT_EQ(Decimal().Shifted(5), Decimal());
}

} // namespace

} // namespace kiv::test
