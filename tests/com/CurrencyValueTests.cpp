// What a host may assign to a currency box, by every kind of value, its bounds to the ten-thousandth, and the
// errors that it gets.

#include "tests/com/AmountControl.h"
#include "tests/com/ControlProperties.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr HRESULT Invalid = RunTimeError(380);
constexpr HRESULT NotAtDesignTime = RunTimeError(383);
constexpr LONGLONG Largest = 999'999'999'999'999'999;
constexpr LONGLONG DefaultBound = 999'999'999'999'990'000;

class CurrencyValueTest : public LibraryTest
{
protected:
    static LONGLONG Units(const AmountControl& control, const wchar_t* name)
    {
        const Variant amount = control.Property(name);
        EXPECT_EQ(amount.Type(), VT_CY) << Narrow(name);
        return V_CY(&amount.Get()).int64;
    }
    static std::string IsValid(const AmountControl& control)
    {
        return Show(CallByName(control.Get(), L"IsValidInput").Value);
    }
};

struct AssignedRow
{
    const char* What;
    Variant Value;
    const wchar_t* Entry;
    const wchar_t* Text;
    const char* Read;
};

void ExpectRows(const AmountControl& control, const std::vector<AssignedRow>& rows)
{
    for (const AssignedRow& row : rows)
    {
        SCOPED_TRACE(row.What);
        control.Enter(L"7");
        control.Put(L"Value", row.Value);
        EXPECT_EQ(control.Entry(), row.Entry);
        EXPECT_EQ(control.Property(L"Text").Text(), row.Text);
        EXPECT_EQ(control.Shown(L"Value"), row.Read);
    }
}

Variant LargestDecimal()
{
    DECIMAL number = {};
    number.Hi32 = 0xFFFFFFFFU;
    number.Lo64 = 0xFFFFFFFFFFFFFFFFULL;
    VARIANT value = {};
    V_DECIMAL(&value) = number;
    V_VT(&value) = VT_DECIMAL;
    return Variant(value);
}

TEST_F(CurrencyValueTest, TakesEveryKindOfNumberAndRoundsIt)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    ExpectRows(control,
               {
                   {"short", Of(VT_I2, 12), L"12", L"12", "VT 6 12"},
                   {"long", Variant(-1234L), L"-1234", L"-1,234", "VT 6 -1234"},
                   {"byte", Of(VT_UI1, 255), L"255", L"255", "VT 6 255"},
                   {"unsigned", Of(VT_UI4, 4294967295.0), L"4294967295", L"4,294,967,295", "VT 6 4294967295"},
                   {"wide", Of(VT_I8, -5e9), L"-5000000000", L"-5,000,000,000", "VT 6 -5000000000"},
                   {"single", Of(VT_R4, 0.5), L"1", L"1", "VT 6 1"},
                   {"half", Variant(0.5), L"1", L"1", "VT 6 1"},
                   {"one and a half", Variant(1.5), L"2", L"2", "VT 6 2"},
                   {"two and a half", Variant(2.5), L"3", L"3", "VT 6 3"},
                   {"minus a half", Variant(-0.5), L"-1", L"-1", "VT 6 -1"},
                   {"minus two and a half", Variant(-2.5), L"-3", L"-3", "VT 6 -3"},
                   {"currency half", Money(5000), L"1", L"1", "VT 6 1"},
                   {"currency below half", Money(4999), L"0", L"0", "VT 6 0"},
                   {"currency minus half", Money(-25000), L"-3", L"-3", "VT 6 -3"},
                   {"decimal", Of(VT_DECIMAL, 44.5), L"45", L"45", "VT 6 45"},
                   {"True", Variant(true), L"-1", L"-1", "VT 6 -1"},
                   {"False", Variant(false), L"0", L"0", "VT 6 0"},
                   {"text", Variant(L"1,000"), L"1000", L"1,000", "VT 6 1000"},
                   {"text in parentheses", Variant(L"(5)"), L"-5", L"-5", "VT 6 -5"},
                   {"dollars", Variant(L"$5"), L"5", L"5", "VT 6 5"},
               });
}

TEST_F(CurrencyValueTest, IsClearedByWhatIsNoNumber)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    for (const Variant& value : {Variant::Null(), Variant(), Variant(L""), Variant(L"many"), Variant(L"5%"),
                                 Variant(L"-"), Variant(L"."), Variant::Date(36896), Missing()})
    {
        SCOPED_TRACE(Show(value));
        ExpectRows(control, {{"cleared", value, L"", L"", "VT 1"}});
        EXPECT_EQ(IsValid(control), "VT 11 True");
    }
    control.Enter(L"7");
    EXPECT_EQ(Hr(PutByName(control.Get(), L"Value", Variant(static_cast<IDispatch*>(nullptr))).Result),
              Hr(S_OK));
    EXPECT_EQ(control.Entry(), L"");
}

TEST_F(CurrencyValueTest, KeepsCentsThatAreNotRounded)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    control.Put(L"AllowRounding", Variant(false));
    ExpectRows(control, {
                            {"half", Variant(0.5), L".50", L".50", "VT 6 0.5"},
                            {"whole", Variant(12L), L"12.00", L"12", "VT 6 12"},
                            {"thousands", Variant(1234.567), L"1234.57", L"1,234.57", "VT 6 1234.57"},
                            {"half a cent", Money(50), L".01", L".01", "VT 6 0.01"},
                            {"less", Money(49), L".00", L"0", "VT 6 0"},
                            {"minus half a cent", Money(-150), L"-.02", L"-.02", "VT 6 -0.02"},
                        });
    control.Put(L"NumDecDigits", Variant(short{0}));
    ExpectRows(control, {{"no decimals", Variant(2.5), L"3", L"3", "VT 6 3"}});
}

// Neither range nor digit counts are looked at, and more than a currency value holds is none. Decimals are
// shown where the plain text of the number has a point, as one in scientific notation does.
TEST_F(CurrencyValueTest, TakesAmountsOfAnySize)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    control.Put(L"NumIntDigits", Variant(short{1}));
    ExpectRows(control, {{"long", Variant(123456L), L"123456", L"123,456", "VT 6 123456"},
                         {"too large", LargestDecimal(), L"79228162514264337593543950335",
                          L"79,228,162,514,264,337,593,543,950,335.00", "VT 1"}});
    EXPECT_EQ(IsValid(control), "VT 11 False");
}

TEST_F(CurrencyValueTest, KeepsEveryTenThousandth)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    control.Put(L"AllowRounding", Variant(false));
    control.Put(L"NumDecDigits", Variant(short{4}));
    for (const LONGLONG units : {LONGLONG{1}, LONGLONG{-1}, LONGLONG{9999}, LONGLONG{-10001}, Largest,
                                 Largest - 1, -Largest, -Largest + 1, LONGLONG{123'456'789'012'345'678}})
    {
        SCOPED_TRACE(units);
        control.Put(L"Value", Money(units));
        EXPECT_EQ(Units(control, L"Value"), units);
        Variant read;
        EXPECT_EQ(Hr(control.Query<_CurrencyBox>()->get_Value(read.Receive())), Hr(S_OK));
        EXPECT_EQ(V_CY(&read.Get()).int64, units);
    }
}

TEST_F(CurrencyValueTest, HasNoValueWhileTheFormIsDesigned)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.Site().SetAmbient(DISPID_AMBIENT_USERMODE, Variant(false));
    control.InitNew();
    control.Put(L"Value", Variant(5L));
    EXPECT_EQ(control.Shown(L"Text"), "VT 8 \"5\"");
    ExpectError(GetByName(control.Get(), L"Value"), NotAtDesignTime, L"CurrencyBox");
    Variant read;
    EXPECT_EQ(Hr(control.Query<_CurrencyBox>()->get_Value(read.Receive())), Hr(NotAtDesignTime));
    ExpectErrorInfo(L"CurrencyBox");
}

// One unit at each side of both limits, by vtable and late-bound.
TEST_F(CurrencyValueTest, ItsBoundsAreExact)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    const auto box = control.Query<_CurrencyBox>();
    EXPECT_EQ(Units(control, L"MaxValue"), DefaultBound);
    EXPECT_EQ(Units(control, L"MinValue"), -DefaultBound);
    CY bound = {};
    for (const LONGLONG units : {Largest, Largest - 1})
    {
        EXPECT_EQ(Hr(box->put_MaxValue(Cy(units))), Hr(S_OK));
        EXPECT_EQ(Hr(box->get_MaxValue(&bound)), Hr(S_OK));
        EXPECT_EQ(bound.int64, units);
        EXPECT_EQ(Hr(box->put_MinValue(Cy(-units))), Hr(S_OK));
        EXPECT_EQ(Hr(box->get_MinValue(&bound)), Hr(S_OK));
        EXPECT_EQ(bound.int64, -units);
        control.Put(L"MaxValue", Money(units));
        EXPECT_EQ(Units(control, L"MaxValue"), units);
        control.Put(L"MinValue", Money(-units));
        EXPECT_EQ(Units(control, L"MinValue"), -units);
    }
    EXPECT_EQ(Hr(box->put_MaxValue(Cy(Largest + 1))), Hr(Invalid));
    ExpectErrorInfo(L"CurrencyBox");
    EXPECT_EQ(Hr(box->put_MinValue(Cy(-Largest - 1))), Hr(Invalid));
    ExpectErrorInfo(L"CurrencyBox");
    ExpectError(PutByName(control.Get(), L"MaxValue", Money(Largest + 1)), Invalid, L"CurrencyBox");
    ExpectError(PutByName(control.Get(), L"MinValue", Money(-Largest - 1)), Invalid, L"CurrencyBox");
    EXPECT_EQ(Units(control, L"MaxValue"), Largest - 1) << "kept";
    EXPECT_EQ(Units(control, L"MinValue"), -Largest + 1) << "kept";
}

TEST_F(CurrencyValueTest, ItsBoundsMayNotMeet)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    const auto box = control.Query<_CurrencyBox>();
    EXPECT_EQ(Hr(box->put_MinValue(Cy(1'000'000))), Hr(S_OK));
    EXPECT_EQ(Hr(box->put_MaxValue(Cy(1'000'000))), Hr(Invalid));
    EXPECT_EQ(Hr(box->put_MaxValue(Cy(999'999))), Hr(Invalid));
    EXPECT_EQ(Hr(box->put_MaxValue(Cy(1'000'001))), Hr(S_OK));
    EXPECT_EQ(Hr(box->put_MinValue(Cy(1'000'001))), Hr(Invalid));
    EXPECT_EQ(Hr(box->put_MinValue(Cy(999'999))), Hr(S_OK));
    EXPECT_EQ(Units(control, L"MaxValue"), 1'000'001);
    EXPECT_EQ(Units(control, L"MinValue"), 999'999);
}

TEST_F(CurrencyValueTest, IsValidBetweenItsBoundsInclusive)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    control.Put(L"AllowRounding", Variant(false));
    control.Put(L"NumDecDigits", Variant(short{4}));
    for (const LONGLONG bound : {LONGLONG{1}, LONGLONG{1'000'001}, Largest - 1})
    {
        control.Put(L"MaxValue", Money(bound));
        control.Put(L"MinValue", Money(-bound));
        const struct
        {
            LONGLONG Units;
            const char* Valid;
        } rows[] = {
            {bound, "VT 11 True"},         {bound - 1, "VT 11 True"},      {bound + 1, "VT 11 False"},
            {-bound, "VT 11 True"},        {-bound + 1, "VT 11 True"},     {-bound - 1, "VT 11 False"},
            {bound + 9999, "VT 11 False"}, {-bound - 9999, "VT 11 False"}, {0, "VT 11 True"}};
        for (const auto& row : rows)
        {
            control.Put(L"Value", Money(row.Units));
            EXPECT_EQ(IsValid(control), row.Valid) << row.Units;
        }
    }
}

struct RefusedRow
{
    const wchar_t* Name;
    Variant Value;
};

TEST_F(CurrencyValueTest, RefusesCountsAndBoundsWithError380)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    control.Put(L"NumIntDigits", Variant(short{5}));
    const ControlState before = StateOf(control.Get());
    const RefusedRow rows[] = {
        {L"NumDecDigits", Variant(short{-1})},    {L"NumDecDigits", Variant(short{5})},
        {L"NumDecDigits", Variant(short{32767})}, {L"NumIntDigits", Variant(short{0})},
        {L"NumIntDigits", Variant(short{15})},    {L"NumIntDigits", Variant(short{-32768})},
        {L"MaxValue", Variant(654321L)},          {L"MinValue", Variant(-654321L)},
        {L"MaxValue", Money(1'000'000'000)},      {L"MaxValue", Variant(-99999.99)},
        {L"MinValue", Variant(99999.99)},
    };
    const auto changes = MakeCom<PropertyNotifyRecorder>();
    const Connection connection(control.Get(), IID_IPropertyNotifySink, changes.Get());
    for (const RefusedRow& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Name) + " " + Show(row.Value));
        ExpectError(PutByName(control.Get(), row.Name, row.Value), Invalid, L"CurrencyBox");
        EXPECT_EQ(StateOf(control.Get()), before);
    }
    EXPECT_EQ(changes->TakeChanges(), std::vector<DISPID>());
    const auto box = control.Query<_CurrencyBox>();
    EXPECT_EQ(Hr(box->put_NumDecDigits(5)), Hr(Invalid));
    ExpectErrorInfo(L"CurrencyBox");
    EXPECT_EQ(Hr(box->put_NumIntDigits(15)), Hr(Invalid));
    ExpectErrorInfo(L"CurrencyBox");
}

TEST_F(CurrencyValueTest, DigitCountsResetTheRange)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    const auto changes = MakeCom<PropertyNotifyRecorder>();
    const Connection connection(control.Get(), IID_IPropertyNotifySink, changes.Get());
    const DISPID decDigits = IdOfName(control.Get(), L"NumDecDigits");
    const DISPID intDigits = IdOfName(control.Get(), L"NumIntDigits");
    const DISPID maxValue = IdOfName(control.Get(), L"MaxValue");
    const DISPID minValue = IdOfName(control.Get(), L"MinValue");
    control.Put(L"MaxValue", Variant(500L));
    EXPECT_EQ(changes->TakeChanges(), std::vector<DISPID>{maxValue});
    const struct
    {
        const wchar_t* Name;
        short Count;
        LONGLONG Bound;
    } rows[] = {
        {L"NumIntDigits", 5, 999'999'900},
        {L"NumDecDigits", 0, 999'990'000},
        {L"NumDecDigits", 4, 999'999'999},
        {L"NumIntDigits", 14, Largest},
        {L"NumDecDigits", 1, 999'999'999'999'999'000},
        {L"NumIntDigits", 1, 99'000},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.Bound);
        control.Put(row.Name, Variant(row.Count));
        EXPECT_EQ(Units(control, L"MaxValue"), row.Bound);
        EXPECT_EQ(Units(control, L"MinValue"), -row.Bound);
        const DISPID count = row.Name == std::wstring_view(L"NumDecDigits") ? decDigits : intDigits;
        EXPECT_EQ(changes->TakeChanges(), (std::vector<DISPID>{count, maxValue, minValue}));
    }
}

TEST_F(CurrencyValueTest, ReadsWhatIsTypedAsCurrencyOrNull)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    const struct
    {
        const wchar_t* Typed;
        const char* Value;
        const wchar_t* Text;
    } rows[] = {
        {L"", "VT 1", L""},
        {L"-", "VT 1", L""},
        {L".", "VT 1", L""},
        {L"--5", "VT 1", L""},
        {L"5.", "VT 6 5", L"5"},
        {L".5", "VT 6 0.5", L".50"},
        {L"-.5", "VT 6 -0.5", L"-.50"},
        {L"1234.5", "VT 6 1234.5", L"1,234.50"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Typed));
        control.Enter(row.Typed);
        EXPECT_EQ(control.Shown(L"Value"), row.Value);
        EXPECT_EQ(control.Property(L"Text").Text(), row.Text);
    }
}

TEST_F(CurrencyValueTest, TellsOfChangesInTheirOrder)
{
    const AmountControl control(CLSID_CurrencyBox);
    std::string heard;
    const auto changes = MakeCom<PropertyNotifyRecorder>();
    changes->OnChange([&](DISPID property) { heard += property == DISPID_VALUE ? "value " : "property "; });
    const auto events = MakeCom<EventRecorder>(__uuidof(__CurrencyBox));
    events->OnEvent([&](DISPID, DISPPARAMS&) { heard += "event "; });
    const Connection toChanges(control.Get(), IID_IPropertyNotifySink, changes.Get());
    const Connection toEvents(control.Get(), __uuidof(__CurrencyBox), events.Get());
    control.InitNew();
    EXPECT_EQ(heard, "") << "loading is quiet";
    control.Put(L"Value", Variant(5L));
    EXPECT_EQ(heard, "event value value ");
    heard.clear();
    control.Put(L"Value", Variant(5L));
    EXPECT_EQ(heard, "value ") << "the same text again";
    heard.clear();
    control.Put(L"AllowRounding", Variant(false));
    EXPECT_EQ(heard, "property ");
}

TEST_F(CurrencyValueTest, GivesTheHandleOfItsOwnWindow)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    const auto window = static_cast<HWND>(LongToHandle(control.Property(L"hwnd").Long()));
    EXPECT_EQ(GetParent(control.Box()), window);
}

// As for any control that asks for a message: the argument may be left out in every way that scripts know.
TEST_F(CurrencyValueTest, IsValidInputTakesItsArgumentInEveryWay)
{
    for (const CLSID* classId : {&CLSID_CurrencyBox, &CLSID_PercentBox})
    {
        const AmountControl control(*classId);
        control.InitNew();
        for (const std::vector<Variant>& arguments :
             {std::vector<Variant>(), {Variant(false)}, {Missing()}, {Variant(0L)}, {Variant(L"False")}})
            EXPECT_EQ(Show(CallByName(control.Get(), L"IsValidInput", arguments).Value), "VT 11 True");
        EXPECT_TRUE(FAILED(CallByName(control.Get(), L"IsValidInput", {Variant(L"perhaps")}).Result));
    }
}

} // namespace

} // namespace kiv::test
