#include "runtime/core/Val.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test
{

namespace
{

struct ValRow
{
    const wchar_t* Text;
    double Number;
};

class ValTest : public testing::TestWithParam<ValRow>
{
};

TEST_P(ValTest, ReadsTheNumberInFront)
{
    EXPECT_EQ(Val(GetParam().Text), GetParam().Number);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ValTest,
    testing::Values(ValRow{L"", 0}, ValRow{L"5", 5}, ValRow{L"12.5", 12.5}, ValRow{L".5", 0.5},
                    ValRow{L"5.", 5}, ValRow{L"-5", -5}, ValRow{L"+5", 5}, ValRow{L"-.5", -0.5},
                    ValRow{L"007", 7},
                    // It stops at the first character that cannot continue the number.
                    ValRow{L"1,000", 1}, ValRow{L"1.2.3", 1.2}, ValRow{L"5-", 5}, ValRow{L"5x", 5},
                    ValRow{L"5%", 5}, ValRow{L"24 and 57", 24}, ValRow{L"12,5", 12}, ValRow{L"1\u00A0000", 1},
                    // And reads 0 where none begins.
                    ValRow{L"x5", 0}, ValRow{L"$5", 0}, ValRow{L"(5)", 0}, ValRow{L",5", 0}, ValRow{L"-", 0},
                    ValRow{L".", 0}, ValRow{L"--5", 0}, ValRow{L"+-5", 0}, ValRow{L"e5", 0}, ValRow{L"-x", 0},
                    // Blanks count for nothing.
                    ValRow{L"  5", 5}, ValRow{L"\t5", 5}, ValRow{L"\r\n5\r\n", 5}, ValRow{L" 1 0 0 ", 100},
                    ValRow{L"- 5", -5}, ValRow{L"1 615 198th Street", 1615198}, ValRow{L"&H 10", 16},
                    ValRow{L"1 e 2", 100}, ValRow{L"   ", 0},
                    // Exponents.
                    ValRow{L"1e5", 1e5}, ValRow{L"1E+5", 1e5}, ValRow{L"1d-2", 0.01}, ValRow{L"1D2", 100},
                    ValRow{L"1e", 1}, ValRow{L"1e+", 1}, ValRow{L"1e2.5", 100}, ValRow{L"2.5e1x", 25},
                    ValRow{L"1e400", std::numeric_limits<double>::infinity()},
                    ValRow{L"-1e400", -std::numeric_limits<double>::infinity()}, ValRow{L"1e-400", 0},
                    // Hexadecimal and octal, with the sign of the classic integer types.
                    ValRow{L"&H10", 16}, ValRow{L"&hff", 255}, ValRow{L"&H7FFF", 32767},
                    ValRow{L"&H8000", -32768}, ValRow{L"&HFFFF", -1}, ValRow{L"&HFFFF&", 65535},
                    ValRow{L"&H10000", 65536}, ValRow{L"&HFFFFFFFF", -1}, ValRow{L"&H7FFFFFFF", 2147483647},
                    ValRow{L"&H100000000", 0}, ValRow{L"&O17", 15}, ValRow{L"&o18", 1},
                    ValRow{L"&O177777", -1}, ValRow{L"&H", 0}, ValRow{L"&", 0}, ValRow{L"&HG", 0},
                    ValRow{L"&H1G", 1}, ValRow{L"-&H10", 0}));

TEST(ValTest, KeepsEveryDigit)
{
    EXPECT_EQ(ExactVal(L"99999999999999.9999"), Decimal(false, "999999999999999999", 14));
    // As a double they are the same.
    EXPECT_LT(ExactVal(L"99999999999999.9999"), ExactVal(L"100000000000000"));
    EXPECT_EQ(Val(L"99999999999999.9999"), Val(L"100000000000000"));
}

TEST(ValTest, HoldsExponentsInsideFourDigits)
{
    EXPECT_EQ(ExactVal(L"1e123456789"), Decimal(false, "1", 10000));
    EXPECT_EQ(ExactVal(L"1e-123456789"), Decimal(false, "1", -9998));
}

} // namespace

} // namespace kiv::test
