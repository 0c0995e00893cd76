// Late binding: what scripts and forms do through IDispatch.

#include "runtime/com/TypeDescription.h"
#include "tests/com/DispatchTest.h"
#include "tests/support/TestFont.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>

#include <limits>
#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// A value put late-bound, and what is read back.
struct PutRow
{
    const char* What;
    const wchar_t* Property;
    Variant Value;
    std::string ReadBack; // what Show says

    friend std::ostream& operator<<(std::ostream& out, const PutRow& row) { return out << row.What; }
};

Variant Of(VARTYPE type, long value)
{
    Variant converted;
    Check(VariantChangeType(converted.Receive(), Variant(value).Borrow(), 0, type));
    return converted;
}

class PutTest : public DispatchTest, public testing::WithParamInterface<PutRow>
{
};

TEST_P(PutTest, ReadsBack)
{
    const CallOutcome outcome = PutByName(control_.Get(), GetParam().Property, GetParam().Value);
    EXPECT_EQ(Hr(outcome.Result), Hr(S_OK));
    EXPECT_EQ(Read(GetParam().Property), GetParam().ReadBack);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PutTest,
    testing::Values(
        PutRow{"BackColor", L"BackColor", Variant(0x00FF00L), "VT 3 65280"},
        PutRow{"SystemBackColor", L"BackColor", Variant(static_cast<long>(0x80000005)), "VT 3 -2147483643"},
        PutRow{"ForeColorAsDouble", L"ForeColor", Variant(255.0), "VT 3 255"},
        PutRow{"ForeColorAsText", L"foreCOLOR", Variant(L"77"), "VT 3 77"},
        PutRow{"EnabledFalse", L"Enabled", Variant(false), "VT 11 False"},
        PutRow{"EnabledAsNumber", L"Enabled", Variant(7L), "VT 11 True"},
        PutRow{"EnabledAsText", L"Enabled", Variant(L"False"), "VT 11 False"},
        PutRow{"YesText", L"YesText", Variant(L"Oui"), "VT 8 \"Oui\""},
        PutRow{"YesTextAsNumber", L"YesText", Variant(12L), "VT 8 \"12\""},
        PutRow{"YesTextEmpty", L"YesText", Variant(L""), "VT 8 \"\""},
        PutRow{"NoText", L"NoText", Variant(L"Non"), "VT 8 \"Non\""},
        PutRow{"NoTextWithNul", L"NoText", Variant(std::wstring_view(L"a\0b", 3)),
               std::string("VT 8 \"a\0b\"", 10)},
        PutRow{"ValueYes", L"Value", Variant(1L), "VT 3 1"},
        PutRow{"ValueAsShort", L"Value", Of(VT_I2, 2), "VT 3 2"},
        PutRow{"ValueAsText", L"Value", Variant(L"2"), "VT 3 2"},
        PutRow{"ValueAsDouble", L"value", Variant(1.0), "VT 3 1"},
        // No range check: any number is kept.
        PutRow{"ValueBeyond", L"Value", Variant(5L), "VT 3 5"},
        PutRow{"ValueBelow", L"Value", Variant(-1L), "VT 3 -1"},
        PutRow{"ValueLargest", L"Value", Variant(std::numeric_limits<long>::max()), "VT 3 2147483647"},
        PutRow{"ValueSmallest", L"Value", Variant(std::numeric_limits<long>::min()), "VT 3 -2147483648"},
        PutRow{"TextYes", L"Text", Variant(L"Y"), "VT 8 \"Y\""},
        PutRow{"TextNo", L"Text", Variant(L"N"), "VT 8 \"N\""},
        PutRow{"TextOfOtherCase", L"Text", Variant(L"y"), "VT 1"},
        PutRow{"TextNull", L"Text", Variant::Null(), "VT 1"}, PutRow{"TextEmpty", L"Text", Variant(), "VT 1"},
        PutRow{"TextEmptyString", L"Text", Variant(L""), "VT 1"},
        PutRow{"TextNumber", L"Text", Variant(1L), "VT 1"},
        PutRow{"TextMissing", L"Text", Missing(), "VT 1"}),
    [](const auto& row) { return std::string(row.param.What); });

TEST_F(DispatchTest, ReadsTheDefaultsOfANewObject)
{
    const std::pair<const wchar_t*, const char*> rows[] = {
        {L"BackColor", "VT 3 -2147483633"},
        {L"ForeColor", "VT 3 -2147483630"},
        {L"Enabled", "VT 11 True"},
        {L"Text", "VT 1"},
        {L"Value", "VT 3 0"},
    };
    for (const auto& [name, value] : rows)
        EXPECT_EQ(Read(name), value) << Narrow(name);
    EXPECT_EQ(GetByName(control_.Get(), L"Font").Value.Type(), VT_DISPATCH);
    EXPECT_NE(GetByName(control_.Get(), L"Font").Value.Object(), nullptr);
}

TEST_F(DispatchTest, TellsItsWindow)
{
    const CallOutcome outcome = GetByName(control_.Get(), L"hwnd");
    ASSERT_EQ(Hr(outcome.Result), Hr(S_OK));
    const HWND window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(outcome.Value.Long()));
    EXPECT_TRUE(IsWindow(window));
    EXPECT_EQ(ControlWindows(), 1);
    long early = 0;
    EXPECT_HRESULT_SUCCEEDED(control_->get_hwnd(&early));
    EXPECT_EQ(early, outcome.Value.Long());
}

TEST_F(DispatchTest, ReadsAndWritesThroughTheDefaultMember)
{
    EXPECT_EQ(Hr(Invoke(control_.Get(), DISPID_VALUE, DISPATCH_PROPERTYPUT, {Variant(2L)}).Result), Hr(S_OK));
    const CallOutcome outcome = Invoke(control_.Get(), DISPID_VALUE, DISPATCH_PROPERTYGET);
    EXPECT_EQ(Show(outcome.Value), "VT 3 2");
    // As a script evaluates "control": property or method, it does not know.
    EXPECT_EQ(Show(Invoke(control_.Get(), DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET).Value),
              "VT 3 2");
}

// What is put early-bound is read late-bound and the other way round.
TEST_F(DispatchTest, ShowsOneStateThroughBothSides)
{
    EXPECT_HRESULT_SUCCEEDED(control_->put_BackColor(0x123456));
    EXPECT_HRESULT_SUCCEEDED(control_->put_ForeColor(0x654321));
    EXPECT_HRESULT_SUCCEEDED(control_->put_Enabled(VARIANT_FALSE));
    EXPECT_HRESULT_SUCCEEDED(control_->put_YesText(Bstr(L"Ja").Get()));
    EXPECT_HRESULT_SUCCEEDED(control_->put_NoText(Bstr(L"Nein").Get()));
    EXPECT_HRESULT_SUCCEEDED(control_->put_Value(Yes));
    EXPECT_EQ(Read(L"BackColor"), "VT 3 1193046");
    EXPECT_EQ(Read(L"ForeColor"), "VT 3 6636321");
    EXPECT_EQ(Read(L"Enabled"), "VT 11 False");
    EXPECT_EQ(Read(L"YesText"), "VT 8 \"Ja\"");
    EXPECT_EQ(Read(L"NoText"), "VT 8 \"Nein\"");
    EXPECT_EQ(Read(L"Text"), "VT 8 \"Ja\"");

    PutByName(control_.Get(), L"Text", Variant(L"Nein"));
    Variant text;
    AnswerEnums value = Neither;
    EXPECT_HRESULT_SUCCEEDED(control_->get_Text(text.Receive()));
    EXPECT_HRESULT_SUCCEEDED(control_->get_Value(&value));
    EXPECT_EQ(Show(text), "VT 8 \"Nein\"");
    EXPECT_EQ(value, No);
}

TEST_F(DispatchTest, TakesTextInAVariableOfAScript)
{
    Variant variable(L"N");
    const CallOutcome outcome =
        PutByName(control_.Get(), L"Text", Variant::ByReference(VT_VARIANT, variable.Borrow()));
    EXPECT_EQ(Hr(outcome.Result), Hr(S_OK));
    EXPECT_EQ(Read(L"Value"), "VT 3 2");
    EXPECT_EQ(Show(variable), "VT 8 \"N\"") << "the caller's variable stays as it is";

    BSTR text = SysAllocString(L"Y");
    EXPECT_EQ(Hr(PutByName(control_.Get(), L"Text", Variant::ByReference(VT_BSTR, &text)).Result), Hr(S_OK));
    SysFreeString(text);
    EXPECT_EQ(Read(L"Value"), "VT 3 1");

    Variant nothing = Variant::Null();
    EXPECT_EQ(
        Hr(PutByName(control_.Get(), L"Text", Variant::ByReference(VT_VARIANT, nothing.Borrow())).Result),
        Hr(S_OK));
    EXPECT_EQ(Read(L"Value"), "VT 3 0");
}

// The same through the vtable, where the variable arrives as it is.
TEST_F(DispatchTest, TakesTextInAVariableEarlyBound)
{
    Variant variable(L"N");
    const Variant reference = Variant::ByReference(VT_VARIANT, variable.Borrow());
    EXPECT_HRESULT_SUCCEEDED(control_->put_Text(reference.Get()));
    EXPECT_EQ(Read(L"Value"), "VT 3 2");
}

TEST_F(DispatchTest, ComparesTextWithNoTextFirst)
{
    PutByName(control_.Get(), L"YesText", Variant(L"X"));
    PutByName(control_.Get(), L"NoText", Variant(L"X"));
    PutByName(control_.Get(), L"Text", Variant(L"X"));
    EXPECT_EQ(Read(L"Value"), "VT 3 2");
}

// ByReference keeps storage of the caller: Variant's copy would resolve it.
CallOutcome MoveFocus(_YesNo* control, VARTYPE type, void* storage)
{
    VARIANT argument = {};
    V_VT(&argument) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&argument) = storage;
    DISPPARAMS parameters = {&argument, nullptr, 1, 0};
    CallOutcome outcome;
    EXCEPINFO exception = {};
    outcome.Result =
        control->Invoke(IdOfName(control, L"DrawFocusState"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                        &parameters, nullptr, &exception, &outcome.ArgumentInError);
    return outcome;
}

TEST_F(DispatchTest, MovesTheFocusHoweverItsArgumentIsGiven)
{
    EXPECT_EQ(Hr(CallByName(control_.Get(), L"DrawFocusState").Result), Hr(S_OK)) << "left out";
    EXPECT_EQ(Hr(CallByName(control_.Get(), L"DrawFocusState", {Missing()}).Result), Hr(S_OK))
        << "marked missing";
    EXPECT_EQ(Hr(CallByName(control_.Get(), L"DrawFocusState", {Variant(2L)}).Result), Hr(S_OK))
        << "by value";
    EXPECT_EQ(Hr(CallByName(control_.Get(), L"DrawFocusState", {Of(VT_I2, 1)}).Result), Hr(S_OK))
        << "as a short";
    EXPECT_EQ(Hr(CallByName(control_.Get(), L"DrawFocusState", {Variant(L"2")}).Result), Hr(S_OK))
        << "as text";

    long number = 2;
    EXPECT_EQ(Hr(MoveFocus(control_.Get(), VT_I4, &number).Result), Hr(S_OK))
        << "a variable of the right type";
    EXPECT_EQ(number, 2);
    short shortNumber = 1;
    EXPECT_EQ(Hr(MoveFocus(control_.Get(), VT_I2, &shortNumber).Result), Hr(S_OK))
        << "a variable of another type";
    for (const Variant& content : {Variant(2L), Of(VT_I2, 1), Variant(L"2"), Variant()})
    {
        Variant variable = content;
        EXPECT_EQ(Hr(MoveFocus(control_.Get(), VT_VARIANT, variable.Borrow()).Result), Hr(S_OK))
            << "a script's variable holding " << Show(content);
        EXPECT_EQ(variable.Text(), content.Type() == VT_EMPTY ? variable.Text() : content.Text());
    }
    EXPECT_HRESULT_SUCCEEDED(control_->DrawFocusState(nullptr)) << "left out early-bound";
}

TEST_F(DispatchTest, RefusesAnArgumentThatIsNoOption)
{
    const CallOutcome outcome = CallByName(control_.Get(), L"DrawFocusState", {Variant(L"left")});
    EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_TYPEMISMATCH));
    EXPECT_EQ(outcome.ArgumentInError, 0U);
    Variant variable(L"left");
    EXPECT_EQ(Hr(MoveFocus(control_.Get(), VT_VARIANT, variable.Borrow()).Result), Hr(DISP_E_TYPEMISMATCH));
    EXPECT_EQ(Show(variable), "VT 8 \"left\"");
}

TEST_F(DispatchTest, KnowsItsMembersWhateverTheCaseOfTheirNames)
{
    const std::pair<const wchar_t*, DISPID> rows[] = {
        {L"BackColor", -501},   {L"backcolor", -501}, {L"FORECOLOR", -513}, {L"Enabled", -514},
        {L"Font", -512},        {L"hwnd", -515},      {L"hWnd", -515},      {L"YesText", 1},
        {L"NoText", 2},         {L"Text", 3},         {L"Value", 0},        {L"drawfocusstate", 4},
        {L"ShowAboutBox", -552}};
    for (const auto& [name, id] : rows)
        EXPECT_EQ(IdOfName(control_.Get(), name), id) << Narrow(name);
}

TEST_F(DispatchTest, KnowsTheParametersOfItsMethodsByName)
{
    wchar_t method[] = L"DrawFocusState";
    wchar_t parameter[] = L"targetfocus";
    LPOLESTR names[] = {method, parameter};
    DISPID ids[2] = {};
    EXPECT_HRESULT_SUCCEEDED(control_->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids));
    EXPECT_EQ(ids[0], 4);
    EXPECT_EQ(ids[1], 0);
}

TEST_F(DispatchTest, KeepsTheFontObjectThatItIsGiven)
{
    const FontFacts facts = {L"Tahoma", {{120000, 0}}, 700, 0, true, true, false};
    const ComPtr<IFontDisp> font = MakeFont(facts);
    const CallOutcome outcome =
        PutRefByName(control_.Get(), L"Font", Variant(static_cast<IDispatch*>(font.Get())));
    EXPECT_EQ(Hr(outcome.Result), Hr(S_OK));
    ComPtr<IFontDisp> kept;
    EXPECT_HRESULT_SUCCEEDED(control_->get_Font(&kept));
    EXPECT_EQ(kept.Get(), font.Get()) << "the object itself, not a copy";
    EXPECT_EQ(FactsOf(kept.Get()), facts);
}

// No property raises an error: with no font given, the control takes one of its own.
TEST_F(DispatchTest, NeverIsWithoutAFont)
{
    const ComPtr<IFontDisp> font = MakeFont();
    const ULONG before = References(font.Get());
    for (const bool early : {true, false})
    {
        EXPECT_HRESULT_SUCCEEDED(control_->putref_Font(font.Get()));
        const HRESULT result =
            early ? control_->putref_Font(nullptr)
                  : PutRefByName(control_.Get(), L"Font", Variant(static_cast<IDispatch*>(nullptr))).Result;
        EXPECT_EQ(Hr(result), Hr(S_OK));
        ComPtr<IFontDisp> kept;
        EXPECT_HRESULT_SUCCEEDED(control_->get_Font(&kept));
        EXPECT_NE(kept.Get(), nullptr);
        EXPECT_NE(kept.Get(), font.Get());
        EXPECT_EQ(References(font.Get()), before);
    }
}

TEST_F(DispatchTest, LetsGoOfAFontThatIsReplaced)
{
    const ComPtr<IFontDisp> font = MakeFont();
    const ULONG before = References(font.Get());
    EXPECT_HRESULT_SUCCEEDED(control_->putref_Font(font.Get()));
    EXPECT_GT(References(font.Get()), before);
    EXPECT_HRESULT_SUCCEEDED(control_->putref_Font(MakeFont().Get()));
    EXPECT_EQ(References(font.Get()), before);
}

TEST_F(DispatchTest, OffersErrorObjectsForItsOwnMembers)
{
    ComPtr<ISupportErrorInfo> support;
    ASSERT_HRESULT_SUCCEEDED(control_.As(&support));
    EXPECT_EQ(Hr(support->InterfaceSupportsErrorInfo(IID__YesNo)), Hr(S_OK));
    EXPECT_EQ(Hr(support->InterfaceSupportsErrorInfo(IID_IOleObject)), Hr(S_FALSE));
}

TEST_F(DispatchTest, DescribesItself)
{
    UINT count = 0;
    EXPECT_HRESULT_SUCCEEDED(control_->GetTypeInfoCount(&count));
    EXPECT_EQ(count, 1U);
    ComPtr<ITypeInfo> info;
    ASSERT_HRESULT_SUCCEEDED(control_->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info));
    const TypeAttributes attributes(info.Get());
    EXPECT_EQ(GuidText(attributes->guid), GuidText(IID__YesNo));
    info.Reset();
    EXPECT_EQ(Hr(control_->GetTypeInfo(1, LOCALE_USER_DEFAULT, &info)), Hr(DISP_E_BADINDEX));
}

// The message interface is an automation object of its own beside the control's.
TEST_F(DispatchTest, DescribesItsMessageInterfaceApart)
{
    ComPtr<ISubClass> subClass;
    ASSERT_HRESULT_SUCCEEDED(control_.As(&subClass));
    EXPECT_EQ(IdOfName(subClass.Get(), L"WndProc"), 0x60030000);
    EXPECT_EQ(IdOfName(subClass.Get(), L"Value"), DISPID_UNKNOWN);
    ComPtr<IDispatch> main;
    ASSERT_HRESULT_SUCCEEDED(subClass.As(&main));
    EXPECT_EQ(IdOfName(main.Get(), L"Value"), 0)
        << "asked for IDispatch, the control answers with its own members";
}

} // namespace

} // namespace kiv::test
