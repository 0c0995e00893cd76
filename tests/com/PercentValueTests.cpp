// What a host may assign to a percent box and read from it, and the errors that it gets.

#include "tests/com/AmountControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

#include <limits>

namespace kiv::test
{

namespace
{

constexpr HRESULT Mismatch = RunTimeError(13);
constexpr HRESULT Invalid = RunTimeError(380);

using PercentValueTest = LibraryTest;

// The box's text after an assignment, and what Value then reads as.
struct AssignedRow
{
    bool DisplayPercent;
    bool Complement;
    Variant Value;
    const wchar_t* Entry;
    const char* Read;
};

TEST_F(PercentValueTest, TakesFractionsAndGivesThemBackAsText)
{
    const AmountControl control(CLSID_PercentBox);
    control.InitNew();
    const AssignedRow rows[] = {
        {true, false, Variant(0.075), L"7.5", "VT 8 \"0.075\""},
        {true, false, Variant(L"0.075"), L"7.5", "VT 8 \"0.075\""},
        {true, false, Money(750), L"7.5", "VT 8 \"0.075\""},
        {true, false, Of(VT_R4, 0.1F), L"10.", "VT 8 \"0.1\""},
        {true, false, Variant(1L), L"100.", "VT 8 \"1.\""},
        {true, false, Variant(0L), L"0.", "VT 8 \"0.\""},
        {true, false, Variant(0.12345678), L"12.3457", "VT 8 \"0.123457\""},
        {true, false, Variant(5L), L"500.", "VT 1"},
        {true, false, Variant(-0.5), L"-50.", "VT 1"},
        {true, true, Variant(0.25), L"75.", "VT 8 \"0.25\""},
        {true, true, Variant(1L), L"0.", "VT 8 \"1.\""},
        {false, true, Variant(0.25), L"0.75", "VT 8 \"0.25\""},
        {false, false, Variant(0.25), L"0.25", "VT 8 \"0.25\""},
        {false, false, Variant(true), L"-1.", "VT 1"},
    };
    for (const AssignedRow& row : rows)
    {
        SCOPED_TRACE(Show(row.Value));
        control.Put(L"DisplayPercent", Variant(row.DisplayPercent));
        control.Put(L"Complement", Variant(row.Complement));
        control.Put(L"Value", row.Value);
        EXPECT_EQ(control.Entry(), row.Entry);
        EXPECT_EQ(control.Property(L"Text").Text(), row.Entry) << "the label's";
        EXPECT_EQ(control.Shown(L"Value"), row.Read);
    }
}

TEST_F(PercentValueTest, IsClearedByWhatIsNoNumber)
{
    const AmountControl control(CLSID_PercentBox);
    control.InitNew();
    for (const Variant& value :
         {Variant::Null(), Variant(), Variant(L""), Variant(L"some"), Variant(L"7.5%"), Variant::Date(36896),
          Missing(), Variant(std::numeric_limits<double>::infinity())})
    {
        SCOPED_TRACE(Show(value));
        control.Enter(L"7");
        control.Put(L"Value", value);
        EXPECT_EQ(control.Entry(), L"");
        EXPECT_EQ(control.Shown(L"Value"), "VT 1");
        EXPECT_EQ(Show(CallByName(control.Get(), L"IsValidInput").Value), "VT 11 True");
    }
    control.Enter(L"7");
    EXPECT_EQ(Hr(PutByName(control.Get(), L"Value", Variant(static_cast<IDispatch*>(nullptr))).Result),
              Hr(S_OK));
    EXPECT_EQ(control.Entry(), L"");
}

TEST_F(PercentValueTest, ReadsWhatIsTyped)
{
    const AmountControl control(CLSID_PercentBox);
    control.InitNew();
    const struct
    {
        const wchar_t* Typed;
        const char* Value;
        const char* Valid;
    } rows[] = {
        {L"", "VT 1", "VT 11 True"},           {L"7.5", "VT 8 \"0.075\"", "VT 11 True"},
        {L"100", "VT 8 \"1.\"", "VT 11 True"}, {L"150", "VT 1", "VT 11 False"},
        {L"100.0001", "VT 1", "VT 11 False"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Typed));
        control.Enter(row.Typed);
        EXPECT_EQ(control.Property(L"Text").Text(), row.Typed);
        EXPECT_EQ(control.Shown(L"Value"), row.Value);
        EXPECT_EQ(Show(CallByName(control.Get(), L"IsValidInput").Value), row.Valid);
    }
}

TEST_F(PercentValueTest, ALonePointIsValidButNoNumber)
{
    const AmountControl control(CLSID_PercentBox);
    control.InitNew();
    control.Enter(L".");
    EXPECT_EQ(Show(CallByName(control.Get(), L"IsValidInput").Value), "VT 11 True");
    ExpectError(GetByName(control.Get(), L"Value"), Mismatch, L"PercentBox");
    Variant read;
    EXPECT_EQ(Hr(control.Query<_PercentBox>()->get_Value(read.Receive())), Hr(Mismatch));
    ExpectErrorInfo(L"PercentBox");
    EXPECT_EQ(control.Entry(), L".") << "leaving the field clears it, reading does not";
}

// Unlike a currency box's.
TEST_F(PercentValueTest, HasItsValueWhileTheFormIsDesignedToo)
{
    const AmountControl control(CLSID_PercentBox);
    control.Site().SetAmbient(DISPID_AMBIENT_USERMODE, Variant(false));
    control.InitNew();
    control.Put(L"Value", Variant(0.5));
    EXPECT_EQ(control.Shown(L"Value"), "VT 8 \"0.5\"");
}

struct LetRow
{
    const wchar_t* Name;
    Variant Value;
    bool Accepted;
};

TEST_F(PercentValueTest, RefusesCountsAndBoundsWithError380)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const LetRow rows[] = {
        {L"MaxDigits", Variant(short{0}), false},    {L"MaxDigits", Variant(short{1}), true},
        {L"MaxDigits", Variant(short{6}), true},     {L"MaxDigits", Variant(short{7}), false},
        {L"MaxDecimals", Variant(short{-1}), false}, {L"MaxDecimals", Variant(short{0}), true},
        {L"MaxDecimals", Variant(short{6}), true},   {L"MaxDecimals", Variant(short{7}), false},
        {L"MaxValue", Variant(100.5F), false},       {L"MaxValue", Variant(100.0F), true},
        {L"MaxValue", Variant(0.0F), false},         {L"MaxValue", Variant(0.5F), true},
        {L"MaxValue", Variant(-1.0F), false},        {L"MaxValue", Variant(nan), false},
        {L"MinValue", Variant(-1.0F), false},        {L"MinValue", Variant(0.0F), true},
        {L"MinValue", Variant(99.5F), true},         {L"MinValue", Variant(100.0F), false},
        {L"MinValue", Variant(nan), false},
    };
    for (const LetRow& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Name) + " " + Show(row.Value));
        const AmountControl control(CLSID_PercentBox);
        control.InitNew();
        const std::string before = control.Shown(row.Name);
        const auto changes = MakeCom<PropertyNotifyRecorder>();
        const Connection connection(control.Get(), IID_IPropertyNotifySink, changes.Get());
        const CallOutcome outcome = PutByName(control.Get(), row.Name, row.Value);
        if (row.Accepted)
        {
            EXPECT_EQ(Hr(outcome.Result), Hr(S_OK));
            EXPECT_EQ(control.Shown(row.Name), Show(row.Value));
            EXPECT_EQ(changes->TakeChanges(), std::vector<DISPID>{IdOfName(control.Get(), row.Name)});
        }
        else
        {
            ExpectError(outcome, Invalid, L"PercentBox");
            EXPECT_EQ(control.Shown(row.Name), before);
            EXPECT_EQ(changes->TakeChanges(), std::vector<DISPID>());
        }
    }
}

TEST_F(PercentValueTest, ItsBoundsCountTheirDigits)
{
    const AmountControl control(CLSID_PercentBox);
    control.InitNew();
    control.Put(L"MaxValue", Variant(50.0F));
    control.Put(L"MaxDigits", Variant(short{1}));
    EXPECT_EQ(control.Shown(L"MaxValue"), "VT 4 50") << "stays as it is";
    ExpectError(PutByName(control.Get(), L"MaxValue", Variant(10.0F)), Invalid, L"PercentBox");
    ExpectError(PutByName(control.Get(), L"MinValue", Variant(10.0F)), Invalid, L"PercentBox");
    control.Put(L"MaxValue", Variant(9.5F));
    EXPECT_EQ(control.Shown(L"MaxValue"), "VT 4 9.5");
}

// The current text is not converted; what is read and set from then on is.
TEST_F(PercentValueTest, SettingsApplyToTheNextReading)
{
    const AmountControl control(CLSID_PercentBox);
    control.InitNew();
    control.Put(L"Value", Variant(0.25));
    control.Put(L"Complement", Variant(true));
    EXPECT_EQ(control.Entry(), L"25.");
    EXPECT_EQ(control.Shown(L"Value"), "VT 8 \"0.75\"");
    control.Put(L"DisplayPercent", Variant(false));
    EXPECT_EQ(control.Entry(), L"25.");
    EXPECT_EQ(control.Shown(L"Value"), "VT 8 \"-24.\"");
}

// The label follows before anybody is told.
TEST_F(PercentValueTest, TellsOfChangesInTheirOrder)
{
    const AmountControl control(CLSID_PercentBox);
    std::string heard;
    const auto changes = MakeCom<PropertyNotifyRecorder>();
    changes->OnChange([&](DISPID property) { heard += property == DISPID_VALUE ? "value " : "property "; });
    const auto events = MakeCom<EventRecorder>(__uuidof(__PercentBox));
    events->OnEvent(
        [&](DISPID, DISPPARAMS&) { heard += "event " + Narrow(control.Property(L"Text").Text()) + " "; });
    const Connection toChanges(control.Get(), IID_IPropertyNotifySink, changes.Get());
    const Connection toEvents(control.Get(), __uuidof(__PercentBox), events.Get());
    control.InitNew();
    EXPECT_EQ(heard, "") << "loading is quiet";
    control.Put(L"Value", Variant(0.5));
    EXPECT_EQ(heard, "event 50. value value ");
    heard.clear();
    control.Put(L"Complement", Variant(true));
    EXPECT_EQ(heard, "property ");
}

} // namespace

} // namespace kiv::test
