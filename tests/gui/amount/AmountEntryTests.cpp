// What the box holds and what the host reads, assigns and asks of it, on a form.

#include "tests/gui/amount/AmountTest.h"
#include "tests/native/amount/CurrencyEntryRows.h"
#include "tests/native/amount/PercentEntryRows.h"

#include "host/container/PropertyBag.h"
#include "runtime/com/Errors.h"
#include "runtime/com/MakeCom.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

namespace kiv::test
{

namespace
{

class AmountEntryTest : public AmountTest
{
protected:
    // The extremes.
    static constexpr Currency Largest = Currency::FromUnits(999'999'999'999'999'999);
    static constexpr Currency Smallest = Currency::FromUnits(-999'999'999'999'999'999);

    static HRESULT ErrorOf(const CallOutcome& outcome)
    {
        return outcome.Result == DISP_E_EXCEPTION ? outcome.ErrorCode : outcome.Result;
    }
    static void ExpectRefused(const HostedBox& box, const wchar_t* property, const Variant& value)
    {
        const std::string before = Show(box.Site().Get(property));
        EXPECT_EQ(Hr(ErrorOf(PutByName(box.Site().Control(), property, value))), Hr(RunTimeError(380)))
            << Narrow(property);
        EXPECT_EQ(Show(box.Site().Get(property)), before);
    }
    static Currency Amount(std::int64_t units) { return Currency::FromUnits(units * 10000); }
};

TEST_F(AmountEntryTest, CurrencyIsAssignedAsTheRowsSay)
{
    HostedBox box = ShownCurrencyBox();
    Leave(box);
    box.Site().Move({20, 20, 290, 45}); // room for the longest
    ExpectRows(CurrencyLetRows, [&](const CurrencyLetRow& row, const NumberLocale& locale) {
        box.Site().Put(L"AllowRounding", Variant(row.AllowRounding));
        box.Site().Put(L"NumDecDigits", Variant(row.NumDecDigits));
        const std::wstring before = box.Text();
        box.TakeEvents();
        RecordOf(box.Site()).ClearNotifications();
        EXPECT_EQ(Hr(box.Assign(TextOrNull(row.Value, locale))), Hr(S_OK));
        const std::wstring after = Localized(row.Text, locale);
        EXPECT_EQ(box.Text(), after);
        EXPECT_EQ(box.Site().Get(L"Text").Text(), Localized(row.Label, locale));
        ExpectLabel(box, Localized(row.Label, locale));
        EXPECT_EQ(box.TakeEvents(), after == before ? Texts() : Texts{L"Change " + after});
        EXPECT_EQ(RecordOf(box.Site()).Notifications(), Texts(after == before ? 1 : 2, L"Value"));
    });
}

// Numbers of any type, as a host's program has them.
TEST_F(AmountEntryTest, CurrencyTakesNumbersOfEveryType)
{
    HostedBox box = ShownCurrencyBox();
    box.Site().Put(L"AllowRounding", Variant(false));
    const std::pair<Variant, const wchar_t*> rows[] = {
        {Variant(short{12}), L"12.00"},
        {Variant(123456L), L"123456.00"},
        {Variant(12.345), L"12.35"},
        {Variant(0.5F), L".50"},
        {Variant(Largest), L"100000000000000.00"},
        {Variant(L"1,234.5"), L"1234.50"},
        {Variant(true), L"-1.00"},
        {Variant(), L""},
        {Variant(L"twelve"), L""},
    };
    for (const auto& [value, text] : rows)
    {
        SCOPED_TRACE(Show(value));
        box.Show({L"1", 0, 0});
        EXPECT_EQ(Hr(box.Assign(value)), Hr(S_OK));
        EXPECT_EQ(box.Text(), text);
    }
}

TEST_F(AmountEntryTest, CurrencyReadsAsTheRowsSay)
{
    HostedBox box = ShownCurrencyBox();
    box.Site().Put(L"MaxValue", Variant(Largest));
    box.Site().Put(L"MinValue", Variant(Smallest));
    ExpectRows(CurrencyReadRows, [&](const CurrencyReadRow& row, const NumberLocale& locale) {
        box.Show({Localized(row.Text, locale), 0, 0});
        const Variant value = box.Site().Get(L"Value");
        EXPECT_EQ(Show(value), Show(row.Units ? Variant(Currency::FromUnits(*row.Units)) : Variant::Null()));
        EXPECT_EQ(box.IsValidInput(), row.Valid);
        EXPECT_EQ(box.TakeEvents(), Texts());
    });
}

TEST_F(AmountEntryTest, CurrencyComplainsWithItsRange)
{
    HostedBox box = ShownCurrencyBox();
    box.Show({L"999999999999999", 0, 0});
    box.ExpectComplaint(L"Please enter a value between -99999999999999 and 99999999999999");
    box.Show({L"", 0, 0});
    box.ExpectComplaint(L"");
    box.Show({L"-", 0, 0});
    box.ExpectComplaint(L"");
    box.Show({L"99999999999999", 0, 0});
    box.ExpectComplaint(L"");
    // The message takes the focus, and leaving rounds.
    box.Site().Put(L"AllowRounding", Variant(false));
    box.Site().Put(L"MaxValue", Variant(Currency::FromUnits(1'005'000)));
    box.Show({L"100.51", 0, 0});
    box.ExpectComplaint(L"Please enter a value between -99999999999999 and 100.5");
    const UserLocale german(NumberLocales[1]);
    box.Show({L"100,51", 0, 0});
    box.ExpectComplaint(L"Please enter a value between -99999999999999 and 100,5");
    box.Show({L"100,5", 0, 0});
    box.ExpectComplaint(L"");
}

TEST_F(AmountEntryTest, CurrencyRefusesBoundsAndCounts)
{
    HostedBox box = ShownCurrencyBox();
    for (const short digits : {short{-1}, short{5}})
        ExpectRefused(box, L"NumDecDigits", Variant(digits));
    for (const short digits : {short{0}, short{15}, short{-1}})
        ExpectRefused(box, L"NumIntDigits", Variant(digits));
    box.Site().Put(L"MinValue", Variant(Amount(100)));
    ExpectRefused(box, L"MaxValue", Variant(Amount(100)));
    box.Site().Put(L"MaxValue", Variant(Currency::FromUnits(1'000'001)));
    ExpectRefused(box, L"MinValue", Variant(Currency::FromUnits(1'000'001)));
    box.Site().Put(L"MaxValue", Variant(Largest));
    ExpectRefused(box, L"MaxValue", Variant(Currency::FromUnits(Largest.Units() + 1)));
    box.Site().Put(L"MinValue", Variant(Smallest));
    ExpectRefused(box, L"MinValue", Variant(Currency::FromUnits(Smallest.Units() - 1)));
    box.Site().Put(L"NumIntDigits", Variant(short{5}));
    ExpectRefused(box, L"MaxValue", Variant(Amount(654321)));
    ExpectRefused(box, L"MinValue", Variant(Amount(-654321)));
    box.Site().Put(L"MaxValue", Variant(Amount(54321)));
}

TEST_F(AmountEntryTest, CurrencyResetsItsRangeWithItsCounts)
{
    HostedBox box = ShownCurrencyBox();
    box.Site().Put(L"MaxValue", Variant(Amount(500)));
    RecordOf(box.Site()).ClearNotifications();
    box.Site().Put(L"NumIntDigits", Variant(short{5}));
    EXPECT_EQ(Show(box.Site().Get(L"MaxValue")), Show(Variant(Currency::FromUnits(999'999'900))));
    EXPECT_EQ(Show(box.Site().Get(L"MinValue")), Show(Variant(Currency::FromUnits(-999'999'900))));
    EXPECT_EQ(RecordOf(box.Site()).Notifications(), (Texts{L"NumIntDigits", L"MaxValue", L"MinValue"}));
    box.Site().Put(L"NumDecDigits", Variant(short{0}));
    EXPECT_EQ(Show(box.Site().Get(L"MaxValue")), Show(Variant(Amount(99999))));
}

TEST_F(AmountEntryTest, CurrencyHasNoValueWhileItIsDesigned)
{
    host::SiteOptions options = Placed();
    options.userMode = false;
    HostedBox box = AddCurrencyBox(options);
    ShowForm();
    const CallOutcome outcome = GetByName(box.Site().Control(), L"Value");
    EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_EXCEPTION));
    EXPECT_EQ(Hr(outcome.ErrorCode), Hr(RunTimeError(383)));
    EXPECT_EQ(outcome.ErrorSource, L"CurrencyBox");
    EXPECT_EQ(outcome.ErrorDescription, L"");
    EXPECT_EQ(Hr(box.Assign(Variant(short{5}))), Hr(S_OK));
    EXPECT_EQ(box.Site().Get(L"Text").Text(), L"5");
    box.Site().SetUserMode(true);
    EXPECT_EQ(Show(box.Site().Get(L"Value")), Show(Variant(Amount(5))));
}

TEST_F(AmountEntryTest, PercentIsAssignedAsTheRowsSay)
{
    HostedBox box = ShownPercentBox();
    Leave(box);
    ExpectRows(PercentLetRows, [&](const PercentLetRow& row, const NumberLocale& locale) {
        SetUp(box, row.Settings);
        const std::wstring before = box.Text();
        box.TakeEvents();
        RecordOf(box.Site()).ClearNotifications();
        EXPECT_EQ(Hr(box.Assign(TextOrNull(row.Value, locale))), Hr(S_OK));
        const std::wstring after = Localized(row.Text, locale);
        EXPECT_EQ(box.Text(), after);
        EXPECT_EQ(box.Site().Get(L"Text").Text(), after);
        ExpectLabel(box, after);
        EXPECT_EQ(box.TakeEvents(), after == before ? Texts() : Texts{L"Change " + after});
        EXPECT_EQ(RecordOf(box.Site()).Notifications(), Texts(after == before ? 1 : 2, L"Value"));
    });
}

TEST_F(AmountEntryTest, PercentTakesNumbersOfEveryType)
{
    HostedBox box = ShownPercentBox();
    const std::pair<Variant, const wchar_t*> rows[] = {
        {Variant(short{1}), L"100."}, {Variant(0.075), L"7.5"},
        {Variant(0.1F), L"10."},      {Variant(Currency::FromUnits(725)), L"7.25"},
        {Variant(L".5"), L"50."},     {Variant(), L""},
        {Variant(L"half"), L""},
    };
    for (const auto& [value, text] : rows)
    {
        SCOPED_TRACE(Show(value));
        box.Show({L"1", 0, 0});
        EXPECT_EQ(Hr(box.Assign(value)), Hr(S_OK));
        EXPECT_EQ(box.Text(), text);
    }
}

TEST_F(AmountEntryTest, PercentReadsAsTheRowsSay)
{
    HostedBox box = ShownPercentBox();
    ExpectRows(PercentReadRows, [&](const PercentReadRow& row, const NumberLocale& locale) {
        SetUp(box, row.Settings);
        box.Show({Localized(row.Text, locale), 0, 0});
        EXPECT_EQ(Show(box.Site().Get(L"Value")), Show(TextOrNull(row.Value, locale)));
        EXPECT_EQ(box.IsValidInput(), row.Valid);
        EXPECT_EQ(box.TakeEvents(), Texts());
    });
}

// A lone point passes as valid and is no number.
TEST_F(AmountEntryTest, PercentRefusesToReadALonePoint)
{
    HostedBox box = ShownPercentBox();
    for (const NumberLocale& locale : NumberLocales)
    {
        const UserLocale user(locale);
        box.Show({});
        Type(L".");
        EXPECT_EQ(box.Text(), Localized(L".", locale));
        const CallOutcome outcome = GetByName(box.Site().Control(), L"Value");
        EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_EXCEPTION));
        EXPECT_EQ(Hr(outcome.ErrorCode), Hr(RunTimeError(13)));
        EXPECT_EQ(outcome.ErrorSource, L"PercentBox");
        box.ExpectComplaint(L"");
    }
}

TEST_F(AmountEntryTest, PercentComplainsWithItsRange)
{
    HostedBox box = ShownPercentBox();
    Type(L"150");
    EXPECT_EQ(box.Text(), L"150");
    EXPECT_EQ(box.Value(), L"Null");
    box.ExpectComplaint(L"Please enter a value within the range 0 to 100.");
    box.Show({L"", 0, 0});
    box.ExpectComplaint(L"");
    box.Site().Put(L"MaxValue", Variant(12.5F));
    box.Site().Put(L"MinValue", Variant(0.1F));
    box.Show({L"12.6", 0, 0});
    box.ExpectComplaint(L"Please enter a value within the range 0.1 to 12.5.");
    const UserLocale german(NumberLocales[1]);
    box.Show({L"12,6", 0, 0});
    box.ExpectComplaint(L"Please enter a value within the range 0,1 to 12,5.");
    box.Show({L"12,5", 0, 0});
    box.ExpectComplaint(L"");
}

TEST_F(AmountEntryTest, PercentRefusesBoundsAndCounts)
{
    HostedBox box = ShownPercentBox();
    for (const short digits : {short{0}, short{7}, short{-1}})
        ExpectRefused(box, L"MaxDigits", Variant(digits));
    for (const short digits : {short{-1}, short{7}})
        ExpectRefused(box, L"MaxDecimals", Variant(digits));
    box.Site().Put(L"MaxDigits", Variant(short{6}));
    box.Site().Put(L"MaxDecimals", Variant(short{6}));
    ExpectRefused(box, L"MaxValue", Variant(100.5F));
    ExpectRefused(box, L"MaxValue", Variant(0.0F));
    ExpectRefused(box, L"MinValue", Variant(-1.0F));
    ExpectRefused(box, L"MinValue", Variant(100.0F));
    box.Site().Put(L"MaxDigits", Variant(short{1}));
    ExpectRefused(box, L"MaxValue", Variant(50.0F));
    ExpectRefused(box, L"MinValue", Variant(50.0F));
    box.Site().Put(L"MaxValue", Variant(9.5F));
}

// Neither setting touches the text that is there.
TEST_F(AmountEntryTest, PercentKeepsItsTextWhenItsMeaningChanges)
{
    HostedBox box = ShownPercentBox();
    Type(L"75");
    box.TakeEvents();
    box.Site().Put(L"Complement", Variant(true));
    EXPECT_EQ(box.Text(), L"75");
    EXPECT_EQ(box.Value(), L"0.25");
    box.Site().Put(L"DisplayPercent", Variant(false));
    EXPECT_EQ(box.Text(), L"75");
    EXPECT_EQ(box.Value(), L"-74.");
    EXPECT_EQ(box.TakeEvents(), Texts());
}

} // namespace

} // namespace kiv::test
