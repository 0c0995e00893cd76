// What the members that take values make of objects, and of Booleans where they want a text.

#include "tests/com/each/EachTest.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/NamedRow.h"
#include "tests/support/ScriptedObject.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/com/MakeCom.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// A member that takes a value, one that it has to begin with, one that it is given, and how that then reads.
struct MemberRow : NamedRow
{
    const CLSID* Class = nullptr;
    const wchar_t* Member = nullptr;
    Variant Before;
    Variant Given;
    const wchar_t* After = nullptr;
};

const std::vector<MemberRow> MemberRows = {
    {{"YesNoValue"}, &CLSID_YesNo, L"Value", Variant(1L), Variant(2L), L"2"},
    {{"YesNoText"}, &CLSID_YesNo, L"Text", Variant(L"Y"), Variant(L"N"), L"N"},
    {{"YesNoYesText"}, &CLSID_YesNo, L"YesText", Variant(L"a"), Variant(L"b"), L"b"},
    {{"YesNoBackColor"}, &CLSID_YesNo, L"BackColor", Variant(1L), Variant(2L), L"2"},
    {{"YesNoEnabled"}, &CLSID_YesNo, L"Enabled", Variant(true), Variant(false), L"False"},
    {{"NumberBoxValue"},
     &CLSID_NumberBox,
     L"Value",
     Variant(L"123-45-6789"),
     Variant(L"987-65-4321"),
     L"987-65-4321"},
    {{"NumberBoxText"},
     &CLSID_NumberBox,
     L"Text",
     Variant(L"123-45-6789"),
     Variant(L"987-65-4321"),
     L"987-65-4321"},
    {{"NumberBoxStyle"}, &CLSID_NumberBox, L"Style", Variant(1L), Variant(2L), L"2"},
    {{"DateBoxValue"}, &CLSID_DateBox, L"Value", Variant(L"01/05/01"), Variant(L"12/31/99"), L"12/31/99"},
    {{"DateBoxMaxDate"}, &CLSID_DateBox, L"MaxDate", Variant::Date(36526), Variant::Date(36892), L"36892"},
    {{"CurrencyBoxValue"}, &CLSID_CurrencyBox, L"Value", Variant(5L), Variant(12.0), L"12"},
    {{"CurrencyBoxMaxValue"}, &CLSID_CurrencyBox, L"MaxValue", Variant(5L), Variant(12L), L"12"},
    {{"CurrencyBoxNumDecDigits"}, &CLSID_CurrencyBox, L"NumDecDigits", Variant(1L), Variant(3L), L"3"},
    {{"PercentBoxValue"}, &CLSID_PercentBox, L"Value", Variant(0.5), Variant(0.25), L"0.25"},
    {{"PercentBoxMaxValue"}, &CLSID_PercentBox, L"MaxValue", Variant(50L), Variant(25L), L"25"},
    {{"EnumListBoundEnumCode"}, &CLSID_EnumList, L"BoundEnumCode", Variant(L"7"), Variant(L"10"), L"10"},
    {{"EnumListEnumCode"}, &CLSID_EnumList, L"EnumCode", Variant(L"7"), Variant(L"10"), L"10"},
    {{"EnumListDisplayStyle"}, &CLSID_EnumList, L"DisplayStyle", Variant(0L), Variant(1L), L"1"},
    {{"PicCommandBoundDetailStatus"},
     &CLSID_PicCommand,
     L"BoundDetailStatus",
     Variant(1L),
     Variant(2L),
     L"2"},
    {{"PicCommandDetailStatus"}, &CLSID_PicCommand, L"DetailStatus", Variant(1L), Variant(2L), L"2"},
    {{"PicCommandCaption"}, &CLSID_PicCommand, L"Caption", Variant(L"a"), Variant(L"b"), L"b"},
    {{"PicLiteMaskColor"}, &CLSID_PicLite, L"MaskColor", Variant(1L), Variant(2L), L"2"},
};

Variant Object(const ComPtr<ScriptedObject>& object)
{
    return Variant(static_cast<IDispatch*>(object.Get()));
}

// An object that stands for a value, as a field of a record set does.
Variant StandingFor(const Variant& value, WORD kind = DISPATCH_PROPERTYGET)
{
    const auto object = MakeCom<ScriptedObject>();
    object->AddDefault(L"Value", kind, 0, [value](const auto&) { return value; });
    return Object(object);
}

class ObjectAsValue : public LibraryTest, public testing::WithParamInterface<MemberRow>
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = std::make_unique<HeldControl>(*GetParam().Class);
        control_->Site().Log().AllowAll();
        control_->InitNew();
    }
    void TearDown() override
    {
        control_.reset();
        LibraryTest::TearDown();
    }

    const HeldControl& Control() const { return *control_; }
    CallOutcome Put(const Variant& value) const
    {
        return PutByName(Control().Get(), GetParam().Member, value);
    }
    std::wstring Reads() const
    {
        return Control().Property(GetParam().Member).As(VT_BSTR).value_or(Variant(L"?")).Text();
    }
    std::wstring ReadsAsNumberOrText() const
    {
        const Variant value = Control().Property(GetParam().Member);
        return value.Type() == VT_DATE ? Variant(V_DATE(&value.Get())).Text() : Reads();
    }

    std::wstring ControlName() const
    {
        ComPtr<ITypeInfo> info;
        Bstr name;
        Check(Control().Query<IProvideClassInfo>()->GetClassInfo(&info));
        Check(info->GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr));
        return name.String();
    }

    // Takes the value before, then the object, and reads as the object's value; nothing is in error.
    void ExpectTaken(const Variant& object, const std::string& what) const
    {
        SCOPED_TRACE(what);
        EXPECT_EQ(Hr(Put(GetParam().Before).Result), Hr(S_OK));
        const std::wstring before = ReadsAsNumberOrText();
        EXPECT_EQ(Hr(Put(object).Result), Hr(S_OK));
        EXPECT_NE(ReadsAsNumberOrText(), before);
        EXPECT_EQ(ReadsAsNumberOrText(), GetParam().After);
    }
    void ExpectRefused(const Variant& object, HRESULT error, const wchar_t* source,
                       const std::string& what) const
    {
        SCOPED_TRACE(what);
        EXPECT_EQ(Hr(Put(GetParam().Before).Result), Hr(S_OK));
        const std::wstring before = ReadsAsNumberOrText();
        const CallOutcome outcome = Put(object);
        EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_EXCEPTION));
        EXPECT_EQ(Hr(outcome.ErrorCode), Hr(error));
        EXPECT_EQ(outcome.ErrorSource, source);
        EXPECT_EQ(ReadsAsNumberOrText(), before) << "what was there stays";
    }

    std::unique_ptr<HeldControl> control_;
};

TEST_P(ObjectAsValue, IsWhatItsDefaultMemberIs)
{
    const Variant& given = GetParam().Given;
    ExpectTaken(StandingFor(given), "a property");
    ExpectTaken(StandingFor(given, DISPATCH_METHOD), "a method");
    ExpectTaken(StandingFor(StandingFor(given)), "an object that stands for another");
    const Variant object = StandingFor(given);
    VARIANT variable = {};
    V_VT(&variable) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&variable) = object.Borrow();
    EXPECT_EQ(Hr(Put(GetParam().Before).Result), Hr(S_OK));
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments = {&variable, &put, 1, 1};
    EXPECT_EQ(Hr(Control().Get()->Invoke(IdOfName(Control().Get(), GetParam().Member), IID_NULL, 0,
                                         DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr, nullptr)),
              Hr(S_OK));
    EXPECT_EQ(ReadsAsNumberOrText(), GetParam().After) << "a script's variable";
}

TEST_P(ObjectAsValue, IsRefusedWithoutADefaultMember)
{
    const std::wstring name = ControlName();
    ExpectRefused(Object(MakeCom<ScriptedObject>()), RunTimeError(438), name.c_str(), "without one");
    const auto endless = MakeCom<ScriptedObject>();
    endless->AddDefault(L"Value", DISPATCH_PROPERTYGET, 0, [self = endless.Get()](const auto&) {
        return Variant(static_cast<IDispatch*>(self));
    });
    ExpectRefused(Object(endless), RunTimeError(438), name.c_str(), "one that stands for itself");
}

// The object's own error arrives as it raised it.
TEST_P(ObjectAsValue, MayFail)
{
    const auto failing = MakeCom<ScriptedObject>();
    failing->AddDefault(L"Value", DISPATCH_PROPERTYGET, 0,
                        [](const auto&) -> Variant { throw ComError(RunTimeError(3021)); });
    ExpectRefused(Object(failing), RunTimeError(3021), L"ScriptedObject",
                  "an object with an error of its own");
    EXPECT_EQ(Put(Object(failing)).ErrorDescription, L"as the test wants it");
}

// The last thing that an object does before it answers may be to take the control away.
TEST_P(ObjectAsValue, MayTakeTheControlAway)
{
    const auto object = MakeCom<ScriptedObject>();
    ComPtr<IDispatch> control = Control().Get();
    object->AddDefault(L"Value", DISPATCH_PROPERTYGET, 0, [&](const auto&) {
        control_.reset();
        return GetParam().Given;
    });
    IDispatch* const called = control.Get();
    const DISPID member = IdOfName(called, GetParam().Member);
    control.Reset();
    const Variant value = Object(object);
    VARIANT given = value.Get();
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments = {&given, &put, 1, 1};
    called->Invoke(member, IID_NULL, 0, DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr, nullptr);
    EXPECT_EQ(control_, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Rows, ObjectAsValue, testing::ValuesIn(MemberRows), RowName());

using ValueTest = LibraryTest;

// One control's value given to another.
TEST_F(ValueTest, AControlStandsForItsValue)
{
    const HeldControl from(CLSID_CurrencyBox);
    const HeldControl to(CLSID_PercentBox);
    for (const HeldControl* each : {&from, &to})
    {
        each->Site().Log().AllowAll();
        each->InitNew();
    }
    from.Put(L"AllowRounding", Variant(false));
    from.Put(L"Value", Variant(0.25));
    EXPECT_EQ(Hr(PutByName(to.Get(), L"Value", Variant(from.Get())).Result), Hr(S_OK));
    EXPECT_EQ(to.Shown(L"Value"), Show(Variant(L"0.25")));
}

// Early-bound callers hand a VARIANT over as it is.
TEST_F(ValueTest, AnObjectIsTakenEarlyBoundToo)
{
    const HeldControl control(CLSID_NumberBox);
    control.Site().Log().AllowAll();
    control.InitNew();
    const auto box = control.Query<_NumberBox>();
    EXPECT_EQ(Hr(box->put_Value(StandingFor(Variant(L"123-45-6789")).Get())), Hr(S_OK));
    EXPECT_EQ(control.Shown(L"Value"), Show(Variant(L"123-45-6789")));
    EXPECT_EQ(Hr(box->put_Value(Object(MakeCom<ScriptedObject>()).Get())), Hr(RunTimeError(438)));
    ExpectErrorInfo(L"NumberBox");
    EXPECT_EQ(control.Shown(L"Value"), Show(Variant(L"123-45-6789")));
}

// --- Booleans as text ---

TEST_F(ValueTest, TheTextOfABooleanIsAWord)
{
    const HeldControl yesNo(CLSID_YesNo);
    const HeldControl combo(CLSID_ChkCombo);
    const HeldControl list(CLSID_EnumList);
    const HeldControl button(CLSID_PicCommand);
    for (const HeldControl* each : {&yesNo, &combo, &list, &button})
    {
        each->Site().Log().AllowAll();
        each->InitNew();
    }
    yesNo.Put(L"YesText", Variant(L"True"));
    yesNo.Put(L"NoText", Variant(L"False"));
    yesNo.Put(L"Text", Variant(true));
    EXPECT_EQ(yesNo.Shown(L"Value"), Show(Variant(1L)));
    yesNo.Put(L"Text", Variant(false));
    EXPECT_EQ(yesNo.Shown(L"Value"), Show(Variant(2L)));
    yesNo.Put(L"YesText", Variant(true));
    EXPECT_EQ(yesNo.Shown(L"YesText"), Show(Variant(L"True")));
    yesNo.Put(L"NoText", Variant(false));
    EXPECT_EQ(yesNo.Shown(L"NoText"), Show(Variant(L"False")));

    EXPECT_EQ(Hr(CallByName(combo.Get(), L"AddItem", {Variant(true)}).Result), Hr(S_OK));
    combo.Put(L"ListIndex", Variant(0L));
    EXPECT_EQ(combo.Shown(L"Text"), Show(Variant(L"True")));

    for (const wchar_t* member : {L"BoundEnumCode", L"EnumCode", L"TableName"})
    {
        list.Put(member, Variant(true));
        EXPECT_EQ(list.Shown(member), Show(Variant(L"True")));
        list.Put(member, Variant(false));
        EXPECT_EQ(list.Shown(member), Show(Variant(L"False")));
    }
    button.Put(L"Caption", Variant(false));
    EXPECT_EQ(button.Shown(L"Caption"), Show(Variant(L"False")));
}

// --- Colours ---

class EachColour : public EachTest
{
};

// Late-bound hosts compare a colour with constants of their own, which are signed.
TEST_P(EachColour, ReadsAsASignedNumber)
{
    const HeldControl control(ClassId());
    control.Site().Log().AllowAll();
    control.InitNew();
    const bool isPicture = GetParam().Name == std::wstring(L"PicLite");
    for (const wchar_t* member :
         {isPicture ? L"MaskColor" : L"BackColor", isPicture ? L"ReplaceColor" : L"ForeColor"})
    {
        if (IdOfName(control.Get(), member) == DISPID_UNKNOWN)
            continue; // a button has the system's colours
        for (const long color : {static_cast<long>(0x80000005), 0xFF00L})
        {
            control.Put(member, Variant(color));
            EXPECT_EQ(control.Shown(member), Show(Variant(color))) << Narrow(member);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, EachColour, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
