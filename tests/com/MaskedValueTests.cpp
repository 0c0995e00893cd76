// What a host may assign to number and date boxes, by every kind of value, and the errors that it gets.

#include "tests/com/MaskedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>
#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using MaskedValueTest = LibraryTest;

constexpr HRESULT Invalid = RunTimeError(380);
constexpr HRESULT NotAtDesignTime = RunTimeError(383);

struct AssignedRow
{
    const char* What;
    Variant Value;
    bool Refused;
    const wchar_t* After;
};

void ExpectRows(const MaskedControl& control, const std::vector<AssignedRow>& rows, const wchar_t* source)
{
    for (const AssignedRow& row : rows)
    {
        SCOPED_TRACE(row.What);
        const CallOutcome outcome = PutByName(control.Get(), L"Value", row.Value);
        if (row.Refused)
            ExpectError(outcome, Invalid, source);
        else
            EXPECT_EQ(Hr(outcome.Result), Hr(S_OK));
        EXPECT_EQ(control.BoxText(), row.After);
    }
}

TEST_F(MaskedValueTest, ANumberTakesWhatReadsAsOne)
{
    const MaskedControl control(CLSID_NumberBox);
    control.InitNew();
    ExpectRows(control,
               {{"a text", Variant(L"123-45-6789"), false, L"123-45-6789"},
                {"digits without dashes", Variant(L"123456789"), true, L"123-45-6789"},
                {"a number without dashes", Variant(123456789L), true, L"123-45-6789"},
                {"words", Variant(L"unknown"), true, L"123-45-6789"},
                {"True", Variant(true), true, L"123-45-6789"},
                {"a date", Variant::Date(36896), true, L"123-45-6789"},
                {"an error", Missing(), true, L"123-45-6789"},
                {"no object", Variant(static_cast<IDispatch*>(nullptr)), true, L"123-45-6789"},
                {"Null", Variant::Null(), false, L"___-__-____"},
                {"a text again", Variant(L"123-45-6789"), false, L"123-45-6789"},
                {"Empty", Variant(), false, L"___-__-____"},
                {"a text again", Variant(L"123-45-6789"), false, L"123-45-6789"},
                {"an empty text", Variant(L""), false, L"___-__-____"}},
               L"NumberBox");
    control.Put(L"Style", Variant(3L));
    control.Put(L"MaxLength", Variant(short{4}));
    ExpectRows(control,
               {{"short", Of(VT_I2, 12), false, L"12"},
                {"long", Variant(1234L), false, L"1234"},
                {"byte", Of(VT_UI1, 7), false, L"7"},
                {"double", Variant(42.0), false, L"42"},
                {"currency", Of(VT_CY, 43), false, L"43"},
                {"decimal", Of(VT_DECIMAL, 44), false, L"44"},
                {"too long", Variant(12345L), true, L"44"},
                {"negative", Variant(-1L), true, L"44"},
                {"a fraction", Variant(1.5), true, L"44"},
                {"Empty", Variant(), false, L""}},
               L"NumberBox");
}

TEST_F(MaskedValueTest, ADateTakesWhatReadsAsOne)
{
    const MaskedControl control(CLSID_DateBox);
    control.InitNew();
    control.Put(L"Style", Variant(2L));
    ExpectRows(control,
               {{"a date", Variant::Date(36896), false, L"01/05/2001"},
                {"a date with a time", Variant::Date(36896.75), false, L"01/05/2001"},
                {"Null", Variant::Null(), false, L"__/__/____"},
                {"the first of the period", Variant::Date(1828), false, L"01/01/1905"},
                {"the day before", Variant::Date(1827), false, L"__/__/____"},
                {"the last of the period", Variant::Date(38352), false, L"12/31/2004"},
                {"the day after", Variant::Date(38353), false, L"__/__/____"},
                {"a date before 1899", Variant::Date(-1.5), false, L"__/__/____"},
                {"a date text", Variant(L"3/15/2001"), false, L"03/15/2001"},
                {"Empty", Variant(), false, L"__/__/____"},
                {"no date", Variant(L"soon"), true, L"soon"},
                {"Null", Variant::Null(), false, L"__/__/____"},
                {"an empty text", Variant(L""), true, L""},
                {"a date again", Variant::Date(36896), false, L"01/05/2001"},
                {"a number is no date", Variant(36896L), true, L"36896"},
                {"a fraction is no date", Variant(1.5), true, L"1.5"}},
               L"DateBox");
    // It reads as no text at all: nothing is put into the box.
    control.Put(L"Value", Variant::Null());
    for (const Variant& value : {Missing(), Variant(static_cast<IDispatch*>(nullptr))})
    {
        ExpectError(PutByName(control.Get(), L"Value", value), Invalid, L"DateBox");
        EXPECT_EQ(control.BoxText(), L"__/__/____");
    }
}

TEST_F(MaskedValueTest, ErrorsReachEveryKindOfCaller)
{
    const MaskedControl number(CLSID_NumberBox);
    number.InitNew();
    EXPECT_EQ(Hr(number.Query<_NumberBox>()->put_Value(Variant(L"no").Get())), Hr(Invalid));
    ExpectErrorInfo(L"NumberBox");
    EXPECT_EQ(Hr(number.Query<_NumberBox>()->put_Text(Bstr(L"no").Get())), Hr(Invalid));
    ExpectErrorInfo(L"NumberBox");
    ExpectError(PutByName(number.Get(), L"Text", Variant(L"no")), Invalid, L"NumberBox");
    const MaskedControl date(CLSID_DateBox);
    date.InitNew();
    EXPECT_EQ(Hr(date.Query<_DateBox>()->put_Value(Variant(L"no").Get())), Hr(Invalid));
    ExpectErrorInfo(L"DateBox");
    EXPECT_EQ(Hr(number.Query<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(_NumberBox))),
              Hr(S_OK));
    EXPECT_EQ(Hr(date.Query<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(_DateBox))), Hr(S_OK));
}

TEST_F(MaskedValueTest, ANumberHasNoValueWhileTheFormIsDesigned)
{
    const MaskedControl number(CLSID_NumberBox);
    number.Site().SetAmbient(DISPID_AMBIENT_USERMODE, Variant(false));
    number.InitNew();
    number.Put(L"Value", Variant(L"123-45-6789"));
    EXPECT_EQ(number.BoxText(), L"123-45-6789") << "it may be set";
    for (const wchar_t* property : {L"Value", L"Text"})
        ExpectError(GetByName(number.Get(), property), NotAtDesignTime, L"NumberBox");
    EXPECT_EQ(Show(CallByName(number.Get(), L"IsValidInput").Value), "VT 11 True");
    const MaskedControl date(CLSID_DateBox);
    date.Site().SetAmbient(DISPID_AMBIENT_USERMODE, Variant(false));
    date.InitNew();
    EXPECT_EQ(date.Shown(L"Text"), "VT 8 \"__/__/__\"");
    EXPECT_EQ(date.Shown(L"Value"), "VT 1");
}

// A host without ambient properties is one at run time.
TEST_F(MaskedValueTest, NeedsNoAmbientProperties)
{
    const MaskedControl number(CLSID_NumberBox);
    number.Site().FailAmbients();
    number.InitNew();
    EXPECT_EQ(number.Shown(L"Value"), "VT 1");
    EXPECT_EQ(number.Shown(L"Text"), "VT 8 \"\"");
}

TEST_F(MaskedValueTest, AreTextOrNull)
{
    const MaskedControl number(CLSID_NumberBox);
    number.InitNew();
    EXPECT_EQ(number.Shown(L"Value"), "VT 1");
    number.Put(L"Value", Variant(L"123-45-6789"));
    EXPECT_EQ(number.Shown(L"Value"), "VT 8 \"123-45-6789\"");
    EXPECT_EQ(Show(Invoke(number.Get(), DISPID_VALUE, DISPATCH_PROPERTYGET).Value), "VT 8 \"123-45-6789\"");
    const MaskedControl date(CLSID_DateBox);
    date.InitNew();
    EXPECT_EQ(date.Shown(L"Value"), "VT 1");
    date.Put(L"Value", Variant::Date(36896));
    EXPECT_EQ(date.Shown(L"Value"), "VT 8 \"01/05/01\"");
    EXPECT_EQ(Show(Invoke(date.Get(), DISPID_VALUE, DISPATCH_PROPERTYGET).Value), "VT 8 \"01/05/01\"");
}

TEST_F(MaskedValueTest, IsValidInputTakesItsArgumentInEveryWay)
{
    for (const CLSID* classId : {&CLSID_NumberBox, &CLSID_DateBox})
    {
        const MaskedControl control(*classId);
        control.InitNew();
        for (const std::vector<Variant>& arguments :
             {std::vector<Variant>(), {Variant(false)}, {Missing()}, {Variant(0L)}, {Variant(L"False")}})
            EXPECT_EQ(Show(CallByName(control.Get(), L"IsValidInput", arguments).Value), "VT 11 True");
        EXPECT_TRUE(FAILED(CallByName(control.Get(), L"IsValidInput", {Variant(L"perhaps")}).Result));
    }
}

TEST_F(MaskedValueTest, ADateHasItsTextToReadOnly)
{
    const MaskedControl date(CLSID_DateBox);
    date.InitNew();
    EXPECT_TRUE(FAILED(PutByName(date.Get(), L"Text", Variant(L"01/05/01")).Result));
    EXPECT_EQ(date.BoxText(), L"__/__/__");
}

// A bound keeps only what the layout shows.
TEST_F(MaskedValueTest, BoundsAreCutDownToTheLayout)
{
    const MaskedControl date(CLSID_DateBox);
    date.InitNew();
    const struct
    {
        long Style;
        double Set;
        double Kept;
    } rows[] = {
        {2, 36896.75, 36896},   // the time goes
        {0, 36896, 36892},      // 01/05/2001 becomes the first of its month
        {5, 36950, 36892},      // and of its year
        {2, -36522.25, -36522}, // 01/01/1800, 06:00
        {2, -0.5, 0},           // 12/30/1899, 12:00
        {2, 2958465, 2958465},  // 12/31/9999
        {2, -657434, -657434},  // 01/01/0100
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::to_string(row.Style) + " " + std::to_string(row.Set));
        date.Put(L"Style", Variant(row.Style));
        for (const wchar_t* bound : {L"MaxDate", L"MinDate"})
        {
            date.Put(bound, Variant::Date(row.Set));
            EXPECT_EQ(V_DATE(&date.Property(bound).Get()), row.Kept);
        }
    }
}

TEST_F(MaskedValueTest, LengthsAreForFreeDigitsOnly)
{
    const MaskedControl number(CLSID_NumberBox);
    number.InitNew();
    number.Put(L"Value", Variant(L"123-45-6789"));
    const auto changes = MakeCom<PropertyNotifyRecorder>();
    const Connection connection(number.Get(), IID_IPropertyNotifySink, changes.Get());
    for (const long style : {0L, 1L, 2L})
    {
        number.Put(L"Style", Variant(style));
        const std::string before = number.Shown(L"MaxLength");
        static_cast<void>(changes->TakeChanges());
        number.Put(L"MaxLength", Variant(short{3}));
        EXPECT_EQ(number.Shown(L"MaxLength"), before);
        EXPECT_EQ(changes->TakeChanges(), std::vector<DISPID>());
    }
    number.Put(L"Style", Variant(3L));
    number.Put(L"Value", Variant(L"12"));
    static_cast<void>(changes->TakeChanges());
    number.Put(L"MaxLength", Variant(short{3}));
    EXPECT_EQ(number.Shown(L"MaxLength"), "VT 2 3");
    EXPECT_EQ(number.BoxText(), L"") << "the entry goes";
    const DISPID length = IdOfName(number.Get(), L"MaxLength");
    const DISPID value = IdOfName(number.Get(), L"Value");
    EXPECT_EQ(changes->TakeChanges(), (std::vector<DISPID>{value, length}));
}

// Who hears first of a change: the property's listeners of a number, the event's of a date.
TEST_F(MaskedValueTest, ChangesAreToldInTheirOrder)
{
    for (const bool isNumber : {true, false})
    {
        const MaskedControl control(isNumber ? CLSID_NumberBox : CLSID_DateBox);
        control.InitNew();
        std::string heard;
        const auto changes = MakeCom<PropertyNotifyRecorder>();
        changes->OnChange([&](DISPID) { heard += "property "; });
        const auto events = MakeCom<EventRecorder>(isNumber ? __uuidof(__NumberBox) : __uuidof(__DateBox));
        events->OnEvent([&](DISPID, DISPPARAMS&) { heard += "event "; });
        const Connection toChanges(control.Get(), IID_IPropertyNotifySink, changes.Get());
        const Connection toEvents(control.Get(), isNumber ? __uuidof(__NumberBox) : __uuidof(__DateBox),
                                  events.Get());
        SetWindowTextW(static_cast<HWND>(LongToHandle(control.Property(L"hwnd").Long())), L"1");
        EXPECT_EQ(heard, isNumber ? "property event " : "event property ");
    }
}

// Loading tells nobody anything.
TEST_F(MaskedValueTest, LoadingIsQuiet)
{
    for (const bool isNumber : {true, false})
    {
        const MaskedControl control(isNumber ? CLSID_NumberBox : CLSID_DateBox);
        const auto changes = MakeCom<PropertyNotifyRecorder>();
        const auto events = MakeCom<EventRecorder>(isNumber ? __uuidof(__NumberBox) : __uuidof(__DateBox));
        const Connection toChanges(control.Get(), IID_IPropertyNotifySink, changes.Get());
        const Connection toEvents(control.Get(), isNumber ? __uuidof(__NumberBox) : __uuidof(__DateBox),
                                  events.Get());
        control.InitNew();
        EXPECT_EQ(changes->TakeChanges(), std::vector<DISPID>());
        EXPECT_EQ(events->TakeEvents(), std::vector<DISPID>());
    }
}

} // namespace

} // namespace kiv::test
