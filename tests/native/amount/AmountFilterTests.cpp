#include "controls/amount/AmountText.h"
#include "controls/amount/CurrencyRules.h"
#include "controls/amount/PercentRules.h"

#include "tests/native/amount/CurrencyKeyRows.h"
#include "tests/native/amount/PercentKeyRows.h"
#include "tests/native/amount/TypedBox.h"
#include "tests/native/core/NumberLocales.h"
#include "tests/native/masked/RowName.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kiv::test
{

namespace
{

// The keys stay the same in every locale: "." is the point everywhere.
template<class Filter>
void ExpectTyped(const auto& row, const NumberLocale& locale, const Filter& filter)
{
    TypedBox typed{BoxOf(Localized(row.Before, locale)), 0};
    for (const wchar_t key : row.Keys)
        typed.Take(filter(typed.Box, static_cast<short>(key)));
    const BoxState after = BoxOf(Localized(row.After, locale));
    EXPECT_EQ(typed.Box.Text, after.Text);
    EXPECT_EQ(typed.Box.SelStart, after.SelStart);
    EXPECT_EQ(typed.Box.SelLength, after.SelLength);
    EXPECT_EQ(typed.Changes, row.Changes);
}

class CurrencyFilterTest : public testing::TestWithParam<CurrencyKeyRow>
{
};

TEST_P(CurrencyFilterTest, Types)
{
    CurrencyLimits limits;
    limits.NumIntDigits = GetParam().NumIntDigits;
    limits.NumDecDigits = GetParam().NumDecDigits;
    for (const NumberLocale& locale : NumberLocales)
    {
        ExpectTyped(GetParam(), locale, [&](const BoxState& box, short key) {
            return CurrencyRules(limits, locale).Filter(box, key);
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CurrencyFilterTest, testing::ValuesIn(CurrencyKeyRows), NameOfRow);

class PercentFilterTest : public testing::TestWithParam<PercentKeyRow>
{
};

TEST_P(PercentFilterTest, Types)
{
    PercentLimits limits;
    limits.MaxDecimals = GetParam().MaxDecimals;
    for (const NumberLocale& locale : NumberLocales)
    {
        ExpectTyped(GetParam(), locale, [&](const BoxState& box, short key) {
            return PercentRules(limits, locale).Filter(box, key);
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, PercentFilterTest, testing::ValuesIn(PercentKeyRows), NameOfRow);

TEST(AmountFilterTest, KnowsThePointKeyOfTheLocale)
{
    const BoxState box = BoxOf(L"12");
    for (const NumberLocale& locale : NumberLocales)
    {
        const auto point = static_cast<short>(locale.DecimalPoint);
        EXPECT_EQ(CurrencyRules({}, locale).Filter(box, point), (FilteredKey{box, point}));
        EXPECT_EQ(CurrencyRules({}, locale).Filter(box, '.'), (FilteredKey{box, point}));
        EXPECT_EQ(PercentRules({}, locale).Filter(box, point), (FilteredKey{box, point}));
        EXPECT_EQ(PercentRules({}, locale).Filter(box, '.'), (FilteredKey{box, point}));
    }
}

TEST(AmountFilterTest, RefusesACommaThatIsNotThePoint)
{
    const BoxState box = BoxOf(L"1");
    EXPECT_EQ(CurrencyRules().Filter(box, ','), (FilteredKey{box, 0}));
    EXPECT_EQ(PercentRules().Filter(box, ','), (FilteredKey{box, 0}));
}

TEST(AmountFilterTest, LetsNothingElseThrough)
{
    const std::vector<short> passed = {3,   8,   22,  24,  '-', '.', '0', '1',
                                       '2', '3', '4', '5', '6', '7', '8', '9'};
    const BoxState box;
    for (short key = -300; key <= 300; ++key)
    {
        const bool isPassed = std::ranges::find(passed, key) != passed.end();
        EXPECT_EQ(CurrencyRules().Filter(box, key), (FilteredKey{box, isPassed ? key : short{0}})) << key;
        const bool isPercentKey = isPassed && key != '-';
        EXPECT_EQ(PercentRules().Filter(box, key), (FilteredKey{box, isPercentKey ? key : short{0}})) << key;
    }
}

TEST(AmountTextTest, EndsAtASeparatorOfGroups)
{
    for (const NumberLocale& locale : {NumberLocale{}, NumberLocale{L',', L'.', L"\u20AC"}})
    {
        EXPECT_EQ(ValOf(std::wstring(1, locale.GroupSeparator) + L"5", locale), Decimal());
        EXPECT_EQ(ValOf(std::wstring(1, locale.DecimalPoint) + L"5", locale), Decimal(false, "5", 0));
    }
}

} // namespace

} // namespace kiv::test
