#include "runtime/core/PlainText.h"

#include "tests/native/core/NumberLocales.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test
{

namespace
{

template<class Binary>
struct PlainRow
{
    Binary Number;
    const wchar_t* Text;
};

class PlainDoubleTest : public testing::TestWithParam<PlainRow<double>>
{
};

TEST_P(PlainDoubleTest, ShowsFifteenDigits)
{
    for (const NumberLocale& locale : NumberLocales)
        EXPECT_EQ(PlainText(GetParam().Number, locale), Localized(GetParam().Text, locale));
}

using Double = PlainRow<double>;

INSTANTIATE_TEST_SUITE_P(
    Rows, PlainDoubleTest,
    testing::Values(Double{0, L"0"}, Double{-0.0, L"0"}, Double{7, L"7"}, Double{0.5, L"0.5"},
                    Double{-0.5, L"-0.5"}, Double{1234.5, L"1234.5"}, Double{1000000, L"1000000"},
                    Double{0.1 + 0.2, L"0.3"}, Double{1.0 / 3, L"0.333333333333333"},
                    Double{2.0 / 3, L"0.666666666666667"}, Double{123456789012345.6, L"123456789012346"},
                    Double{100000000000000, L"100000000000000"}, Double{1e15, L"1E+15"},
                    Double{999999999999999.9, L"1E+15"}, Double{1.5e15, L"1.5E+15"},
                    Double{123456789012345678.0, L"1.23456789012346E+17"}, Double{-1e300, L"-1E+300"},
                    Double{0.0001, L"0.0001"}, Double{0.00012345, L"0.00012345"}, Double{0.00001, L"1E-05"},
                    Double{-0.00001234, L"-1.234E-05"}, Double{1e-100, L"1E-100"},
                    // Halves go away from zero.
                    Double{629850497307618.5, L"629850497307619"},
                    Double{-629850497307618.5, L"-629850497307619"},
                    Double{2834477454520305.0, L"2.83447745452031E+15"}));

TEST(PlainTextTest, NamesWhatIsNoNumber)
{
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    for (const NumberLocale& locale : NumberLocales)
    {
        EXPECT_EQ(PlainText(Infinity, locale), L"1.#INF");
        EXPECT_EQ(PlainText(-Infinity, locale), L"-1.#INF");
        EXPECT_EQ(PlainText(std::numeric_limits<double>::quiet_NaN(), locale), L"1.#QNAN");
    }
}

class PlainSingleTest : public testing::TestWithParam<PlainRow<float>>
{
};

TEST_P(PlainSingleTest, ShowsSevenDigits)
{
    for (const NumberLocale& locale : NumberLocales)
        EXPECT_EQ(PlainText(GetParam().Number, locale), Localized(GetParam().Text, locale));
}

using Single = PlainRow<float>;

INSTANTIATE_TEST_SUITE_P(Rows, PlainSingleTest,
                         testing::Values(Single{0, L"0"}, Single{100, L"100"}, Single{0.1F, L"0.1"},
                                         Single{99.99999F, L"99.99999"}, Single{33.3333333F, L"33.33333"},
                                         Single{1234567, L"1234567"}, Single{12345678, L"1.234568E+07"},
                                         Single{16777216, L"1.677722E+07"}, Single{0.0001F, L"0.0001"},
                                         Single{0.00001F, L"1E-05"}, Single{-2.5F, L"-2.5"},
                                         Single{64.015625F, L"64.01563"}, Single{456589.25F, L"456589.3"}));

} // namespace

} // namespace kiv::test
