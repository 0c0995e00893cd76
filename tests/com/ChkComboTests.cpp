// ChkCombo as COM sees it: its members by name, its errors, and what a container keeps of it.

#include "tests/com/PublishedClasses.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/RecordingSite.h"
#include "tests/support/TestFont.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"
#include "tests/support/WindowClass.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr long DefaultBackColor = static_cast<long>(0x80000005);
constexpr long DefaultForeColor = static_cast<long>(0x80000012);

class ChkComboComTest : public LibraryTest
{
protected:
    ComPtr<IDispatch> Create() const
    {
        ComPtr<IDispatch> control;
        Check(TheLibrary().Create(CLSID_ChkCombo).As(&control));
        return control;
    }
    template<class Interface>
    static ComPtr<Interface> As(const ComPtr<IDispatch>& control)
    {
        ComPtr<Interface> found;
        Check(control.As(&found));
        return found;
    }
    static Variant Property(const ComPtr<IDispatch>& control, const wchar_t* name)
    {
        CallOutcome outcome = GetByName(control.Get(), name);
        EXPECT_EQ(Hr(outcome.Result), Hr(S_OK)) << Narrow(name);
        return std::move(outcome.Value);
    }
    static CallOutcome ItemProperty(const ComPtr<IDispatch>& control, const wchar_t* name,
                                    const Variant& index)
    {
        return Invoke(control.Get(), IdOfName(control.Get(), name), DISPATCH_PROPERTYGET, {index});
    }
    // Index and value, as a script assigns to List(1).
    static CallOutcome PutItemProperty(const ComPtr<IDispatch>& control, const wchar_t* name,
                                       const Variant& index, const Variant& value)
    {
        VARIANT arguments[] = {value.Get(), index.Get()};
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {arguments, &named, 2, 1};
        CallOutcome outcome;
        EXCEPINFO exception = {};
        outcome.Result =
            control->Invoke(IdOfName(control.Get(), name), IID_NULL, LOCALE_USER_DEFAULT,
                            DISPATCH_PROPERTYPUT, &parameters, nullptr, &exception, &outcome.ArgumentInError);
        outcome.ErrorCode = exception.scode;
        outcome.ErrorSource = Bstr::ViewOf(exception.bstrSource);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        return outcome;
    }
    static void Add(const ComPtr<IDispatch>& control, const wchar_t* text)
    {
        EXPECT_EQ(Hr(CallByName(control.Get(), L"AddItem", {Variant(text)}).Result), Hr(S_OK));
    }
    static void ExpectError(const CallOutcome& outcome, int number)
    {
        EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_EXCEPTION));
        EXPECT_EQ(Hr(outcome.ErrorCode), Hr(RunTimeError(number)));
        EXPECT_EQ(outcome.ErrorSource, L"ChkCombo");
    }
};

TEST_F(ChkComboComTest, IsEmptyAtFirst)
{
    const ComPtr<IDispatch> control = Create();
    EXPECT_EQ(Show(Property(control, L"ListCount")), Show(Variant(short{0})));
    for (const wchar_t* index : {L"ListIndex", L"NewIndex", L"PreviousIndex"})
        EXPECT_EQ(Show(Property(control, index)), Show(Variant(short{-1}))) << Narrow(index);
    EXPECT_EQ(Show(Property(control, L"Text")), Show(Variant(L"")));
    EXPECT_EQ(Property(control, L"BackColor").Long(), DefaultBackColor);
    EXPECT_EQ(Property(control, L"ForeColor").Long(), DefaultForeColor);
    EXPECT_TRUE(Property(control, L"Enabled").Bool());
    const auto combo = static_cast<HWND>(LongToHandle(Property(control, L"hwnd").Long()));
    EXPECT_TRUE(IsOfClass(combo, "ComboBox"));
    // A combo box hands the scroll bar that it is made with on to its list.
    EXPECT_EQ(GetWindowLongA(combo, GWL_STYLE), 0x50210213 & ~WS_VSCROLL);
    EXPECT_EQ(GetWindowLongA(combo, GWL_EXSTYLE), 0);
}

TEST_F(ChkComboComTest, AnswersByName)
{
    const ComPtr<IDispatch> control = Create();
    Add(control, L"b");
    EXPECT_EQ(Hr(CallByName(control.Get(), L"AddItem", {Variant(L"a"), Variant(short{0})}).Result), Hr(S_OK));
    EXPECT_EQ(Hr(CallByName(control.Get(), L"AddItem", {Variant(L"c"), Missing()}).Result), Hr(S_OK));
    EXPECT_EQ(Property(control, L"ListCount").Short(), 3);
    EXPECT_EQ(Property(control, L"NewIndex").Short(), 2);
    EXPECT_EQ(Show(ItemProperty(control, L"List", Variant(1L)).Value), Show(Variant(L"b")));
    EXPECT_EQ(Show(ItemProperty(control, L"List", Variant(L"2")).Value), Show(Variant(L"c")));
    EXPECT_EQ(Hr(PutItemProperty(control, L"List", Variant(1L), Variant(L"B")).Result), Hr(S_OK));
    EXPECT_EQ(Show(ItemProperty(control, L"List", Variant(1L)).Value), Show(Variant(L"B")));
    EXPECT_EQ(Hr(PutItemProperty(control, L"ItemData", Variant(1L), Variant(-5L)).Result), Hr(S_OK));
    EXPECT_EQ(Show(ItemProperty(control, L"ItemData", Variant(1L)).Value), Show(Variant(-5L)));
    EXPECT_EQ(Hr(PutItemProperty(control, L"ListCompletionStatus", Variant(1L), Variant(2L)).Result),
              Hr(S_OK));
    EXPECT_EQ(ItemProperty(control, L"ListCompletionStatus", Variant(1L)).Value.Long(), 2);
    EXPECT_EQ(ItemProperty(control, L"ListCompletionStatus", Variant(0L)).Value.Long(), 0);
    EXPECT_EQ(Hr(PutByName(control.Get(), L"ListIndex", Variant(1L)).Result), Hr(S_OK));
    EXPECT_EQ(Show(Property(control, L"Text")), Show(Variant(L"B")));
    EXPECT_EQ(Show(Invoke(control.Get(), DISPID_VALUE, DISPATCH_PROPERTYGET).Value), Show(Variant(L"B")));
    EXPECT_EQ(Hr(CallByName(control.Get(), L"RemoveItem", {Variant(0L)}).Result), Hr(S_OK));
    EXPECT_EQ(Property(control, L"ListIndex").Short(), 0);
    EXPECT_EQ(Hr(CallByName(control.Get(), L"Refresh").Result), Hr(S_OK));
    EXPECT_EQ(Hr(CallByName(control.Get(), L"Clear").Result), Hr(S_OK));
    EXPECT_EQ(Property(control, L"ListCount").Short(), 0);
}

// Letters that the code page lacks, and those that take two units, too.
TEST_F(ChkComboComTest, GivesTextsBackAsItTookThem)
{
    const ComPtr<IDispatch> control = Create();
    const std::wstring texts[] = {L"\u0141\u00F3d\u017A", L"\u65E5\u672C \U0001F600", L"",
                                  std::wstring(65535, L'x') + L"\u0142"};
    for (const std::wstring& text : texts)
        Add(control, text.c_str());
    for (long index = 0; index < 4; ++index)
    {
        EXPECT_TRUE(ItemProperty(control, L"List", Variant(index)).Value.Text() == texts[index]) << index;
        EXPECT_EQ(Hr(PutByName(control.Get(), L"ListIndex", Variant(index)).Result), Hr(S_OK));
        EXPECT_TRUE(Property(control, L"Text").Text() == texts[index]) << index;
    }
    EXPECT_EQ(Hr(PutItemProperty(control, L"List", Variant(2L), Variant(L"\u017Bory")).Result), Hr(S_OK));
    EXPECT_EQ(ItemProperty(control, L"List", Variant(2L)).Value.Text(), L"\u017Bory");
}

TEST_F(ChkComboComTest, RaisesItsErrors)
{
    const ComPtr<IDispatch> control = Create();
    Add(control, L"a");
    for (const wchar_t* name : {L"List", L"ItemData", L"ListCompletionStatus"})
    {
        SCOPED_TRACE(Narrow(name));
        for (const long index : {-1L, 1L})
        {
            ExpectError(ItemProperty(control, name, Variant(index)), 381);
            ExpectError(PutItemProperty(control, name, Variant(index), Variant(1L)), 381);
        }
        EXPECT_EQ(Hr(ItemProperty(control, name, Variant(40000L)).Result), Hr(DISP_E_OVERFLOW));
        EXPECT_EQ(Hr(ItemProperty(control, name, Variant(L"first")).Result), Hr(DISP_E_TYPEMISMATCH));
    }
    ExpectError(CallByName(control.Get(), L"AddItem", {Variant(L"b"), Variant(-2L)}), 381);
    ExpectError(CallByName(control.Get(), L"AddItem", {Variant(L"b"), Variant(2L)}), 381);
    ExpectError(CallByName(control.Get(), L"RemoveItem", {Variant(1L)}), 381);
    ExpectError(CallByName(control.Get(), L"RemoveItem", {Variant(-1L)}), 381);
    ExpectError(PutByName(control.Get(), L"ListIndex", Variant(1L)), 380);
    ExpectError(PutByName(control.Get(), L"ListIndex", Variant(-2L)), 380);
    EXPECT_EQ(Hr(PutByName(control.Get(), L"Text", Variant(L"a")).Result), Hr(DISP_E_MEMBERNOTFOUND));
    EXPECT_EQ(Property(control, L"ListCount").Short(), 1);
}

TEST_F(ChkComboComTest, RefusesStatusesAtDesignTime)
{
    const auto site = MakeCom<RecordingSite>();
    const ComPtr<IDispatch> control = Create();
    Check(As<IOleObject>(control)->SetClientSite(site.Get()));
    Check(As<IPersistStreamInit>(control)->InitNew());
    Add(control, L"a");
    site->SetAmbient(DISPID_AMBIENT_USERMODE, Variant(false));
    ExpectError(ItemProperty(control, L"ListCompletionStatus", Variant(0L)), 387);
    ExpectError(PutItemProperty(control, L"ListCompletionStatus", Variant(9L), Variant(1L)), 387);
    ExpectError(PutItemProperty(control, L"ItemData", Variant(9L), Variant(1L)), 387);
    ExpectError(ItemProperty(control, L"ItemData", Variant(9L)), 381);
    site->SetAmbient(DISPID_AMBIENT_USERMODE, Variant(true));
    EXPECT_EQ(ItemProperty(control, L"ListCompletionStatus", Variant(0L)).Value.Long(), 0);
    Check(As<IOleObject>(control)->SetClientSite(nullptr));
}

TEST_F(ChkComboComTest, IsLoadedWithoutItemsAndAsEnabledAsItWas)
{
    const ComPtr<IDispatch> first = Create();
    Check(As<IPersistPropertyBag>(first)->InitNew());
    Add(first, L"a");
    EXPECT_EQ(Hr(PutByName(first.Get(), L"Enabled", Variant(false)).Result), Hr(S_OK));
    const auto stream = MakeCom<TestStream>();
    Check(As<IPersistStreamInit>(first)->Save(stream.Get(), TRUE));
    stream->Rewind();
    const ComPtr<IDispatch> second = Create();
    Check(As<IPersistStreamInit>(second)->Load(stream.Get()));
    EXPECT_EQ(Property(second, L"ListCount").Short(), 0);
    const auto combo = static_cast<HWND>(LongToHandle(Property(second, L"hwnd").Long()));
    EXPECT_FALSE(IsWindowEnabled(GetParent(combo))) << "the mouse does not reach it either";
    EXPECT_FALSE(IsWindowEnabled(combo)) << "and it looks so";
    EXPECT_TRUE(FAILED(As<IPersistStreamInit>(second)->Load(stream.Get()))) << "at its end";
    EXPECT_TRUE(IsWindowEnabled(combo));
}

TEST_F(ChkComboComTest, DisablesItsComboBox)
{
    const ComPtr<IDispatch> control = Create();
    const auto combo = static_cast<HWND>(LongToHandle(Property(control, L"hwnd").Long()));
    for (const bool enabled : {true, false, false, true})
    {
        EXPECT_EQ(Hr(PutByName(control.Get(), L"Enabled", Variant(enabled)).Result), Hr(S_OK));
        EXPECT_EQ(IsWindowEnabled(combo) != FALSE, enabled);
        EXPECT_EQ(IsWindowEnabled(GetParent(combo)) != FALSE, enabled);
        EXPECT_EQ(Property(control, L"Enabled").Bool(), enabled);
    }
}

TEST_F(ChkComboComTest, TellsWhatChanges)
{
    const ComPtr<IDispatch> control = Create();
    Check(As<IPersistStreamInit>(control)->InitNew());
    const auto changes = MakeCom<PropertyNotifyRecorder>();
    const Connection connection(control.Get(), IID_IPropertyNotifySink, changes.Get());
    PutByName(control.Get(), L"BackColor", Variant(1L));
    PutByName(control.Get(), L"ForeColor", Variant(2L));
    PutByName(control.Get(), L"Enabled", Variant(false));
    PutRefByName(control.Get(), L"Font", Variant(static_cast<IDispatch*>(MakeFont().Get())));
    EXPECT_EQ(changes->TakeChanges(),
              (std::vector<DISPID>{DISPID_BACKCOLOR, DISPID_FORECOLOR, DISPID_ENABLED, DISPID_FONT}));
    Add(control, L"a");
    PutByName(control.Get(), L"ListIndex", Variant(0L));
    EXPECT_EQ(changes->TakeChanges(), std::vector<DISPID>()) << "nothing of the list is kept";
}

} // namespace

} // namespace kiv::test
