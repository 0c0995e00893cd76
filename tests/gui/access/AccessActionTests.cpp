// What assistive tools do to the controls, and what becomes of their objects when the controls are gone.

#include "tests/gui/access/AccessTest.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Thread.h"

#include <map>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// Windows whose procedures have been replaced: one that asks, as a client in the same process may at any
// moment, whenever a window is about to go.
struct Asking
{
    std::map<HWND, WNDPROC> Former;
    std::vector<ComPtr<IAccessible>> Held;
    int Asked = 0;
};
Asking asking;

void AskAll(IAccessible& object)
{
    Reading(object);
    long count = 0;
    object.get_accChildCount(&count);
    ++asking.Asked;
}

LRESULT CALLBACK AskingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC former = asking.Former[window];
    if (message == WM_DESTROY || message == WM_NCDESTROY || message == WM_SHOWWINDOW)
    {
        for (const auto& [each, procedure] : asking.Former)
            if (const ComPtr<IAccessible> object = AccessibleOf(each))
                AskAll(*object.Get());
        for (const ComPtr<IAccessible>& object : asking.Held)
            AskAll(*object.Get());
    }
    return CallWindowProcA(former, window, message, wParam, lParam);
}

class AccessActionTest : public AccessTest
{
protected:
    static HRESULT Act(HWND window, long part = CHILDID_SELF)
    {
        return AccessibleOf(window)->accDoDefaultAction(Part(part));
    }
    static HRESULT PutValue(HWND window, const wchar_t* text)
    {
        return AccessibleOf(window)->put_accValue(Part(CHILDID_SELF), Bstr(text).Get());
    }
};

} // namespace

TEST_F(AccessActionTest, SelectAndClearAskTheHostAsAClickDoes)
{
    AddElsewhere();
    HostedYesNo control(TheForm());
    ShowForm();
    control.TakeTrace();
    EXPECT_EQ(Act(control.Window(), 1), S_OK);
    EXPECT_EQ(control.TakeOutcome(), "1 Y @Yes | Click 1, Value, Text, Change 1");
    EXPECT_EQ(Act(control.Window(), 1), S_OK);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes | Click 0, Value, Text, Change 0");
    EXPECT_EQ(Act(control.Window(), 2), S_OK);
    EXPECT_EQ(control.TakeOutcome(), "2 N @No | Click 2, Value, Text, Change 2");
    control.CancelClicks();
    EXPECT_EQ(Act(control.Window(), 1), S_OK);
    EXPECT_EQ(control.Value(), 2);
    // As a whole it does nothing, and neither does one that is disabled.
    EXPECT_EQ(Act(control.Window()), DISP_E_MEMBERNOTFOUND);
    control.Site().Put(L"Enabled", Variant(false));
    EXPECT_EQ(Act(control.Window(), 1), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Act(control.Window(), 3), E_INVALIDARG);
    EXPECT_EQ(Act(control.Window(), -1), E_INVALIDARG);
}

TEST_F(AccessActionTest, NothingIsDoneWhileTheFormIsDesigned)
{
    host::SiteOptions options = Placed();
    options.userMode = false;
    host::ControlSite& site = TheForm().Add(CLSID_YesNo, options);
    ShowForm();
    EXPECT_EQ(Act(site.Window(), 1), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(site.Get(L"Value").Long(), 0);
}

TEST_F(AccessActionTest, ButtonsArePressedAndListsOpened)
{
    host::ControlSite& button = AddLabelled(L"", CLSID_PicCommand);
    host::ControlSite& combo = AddLabelled(L"Forms:", CLSID_ChkCombo);
    combo.Call(L"AddItem", {Variant(L"One")});
    combo.Call(L"AddItem", {Variant(L"Two")});
    ShowForm();
    EXPECT_EQ(Act(button.Window()), S_OK);
    Settle();
    EXPECT_EQ(Act(combo.Window()), S_OK);
    Settle();
    EXPECT_NE(ReadingsOf(combo.Window()).front().find(L"expanded"), std::wstring::npos);
    EXPECT_EQ(Act(combo.Window()), S_OK);
    Settle();
    EXPECT_NE(ReadingsOf(combo.Window()).front().find(L"collapsed"), std::wstring::npos);
    // Its list is an object, whose items can be selected.
    ComPtr<IDispatch> child;
    ASSERT_EQ(AccessibleOf(combo.Window())->get_accChild(Part(1), &child), S_OK);
    ComPtr<IAccessible> list;
    ASSERT_EQ(child.As(&list), S_OK);
    EXPECT_EQ(list->accSelect(SELFLAG_TAKESELECTION, Part(2)), S_OK);
    EXPECT_EQ(combo.Get(L"Text").Text(), L"Two");
    EXPECT_EQ(list->accDoDefaultAction(Part(1)), S_OK);
    EXPECT_EQ(combo.Get(L"Text").Text(), L"One");
    EXPECT_EQ(list->accDoDefaultAction(Part(3)), E_INVALIDARG);
    // It knows what it is a part of.
    ComPtr<IDispatch> parent;
    ASSERT_EQ(list->get_accParent(&parent), S_OK);
    ComPtr<IAccessible> whole;
    ASSERT_EQ(parent.As(&whole), S_OK);
    EXPECT_NE(Reading(*whole.Get()).find(L"combo box"), std::wstring::npos);
}

TEST_F(AccessActionTest, AValueIsTakenByTheControlsOwnRules)
{
    host::ControlSite& number = AddLabelled(L"SSN:", CLSID_NumberBox);
    host::ControlSite& amount = AddLabelled(L"Wages:", CLSID_CurrencyBox);
    ShowForm();
    EXPECT_EQ(PutValue(number.Window(), L"123-45-6789"), S_OK);
    EXPECT_EQ(number.Get(L"Value").Text(), L"123-45-6789");
    EXPECT_EQ(PutValue(number.Window(), L"123-45-678"), RunTimeError(380));
    EXPECT_EQ(number.Get(L"Value").Text(), L"123-45-6789");
    EXPECT_EQ(PutValue(amount.Window(), L"1,234"), S_OK);
    EXPECT_EQ(amount.Get(L"Text").Text(), L"1,234");
    EXPECT_EQ(PutValue(amount.Window(), L"much"), RunTimeError(380));
    amount.Put(L"Enabled", Variant(false));
    EXPECT_EQ(PutValue(amount.Window(), L"5"), DISP_E_MEMBERNOTFOUND);
}

TEST_F(AccessActionTest, TheFocusCanBeTakenAndIsFound)
{
    host::ControlSite& site = AddLabelled(L"Resident?", CLSID_YesNo);
    ShowForm();
    const ComPtr<IAccessible> object = AccessibleOf(site.Window());
    Variant focused;
    EXPECT_EQ(object->get_accFocus(focused.Receive()), S_FALSE);
    EXPECT_EQ(focused.Type(), VT_EMPTY);
    EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, Part(CHILDID_SELF)), S_OK);
    EXPECT_EQ(TheForm().FocusedItem(), &site);
    EXPECT_EQ(object->get_accFocus(focused.Receive()), S_OK);
    EXPECT_EQ(focused.Long(), 1);
    EXPECT_EQ(object->accSelect(SELFLAG_EXTENDSELECTION, Part(CHILDID_SELF)), E_INVALIDARG);
}

TEST_F(AccessActionTest, APlaceLeadsToTheOptionThere)
{
    host::ControlSite& site = AddLabelled(L"Resident?", CLSID_YesNo);
    ShowForm();
    RECT place = {};
    GetWindowRect(site.Window(), &place);
    for (const auto& [x, part] : {std::pair(place.left + 3, 1L), std::pair(place.right - 3, 2L)})
    {
        ComPtr<IAccessible> object;
        Variant child;
        ASSERT_EQ(AccessibleObjectFromPoint({x, (place.top + place.bottom) / 2}, &object, child.Receive()),
                  S_OK);
        EXPECT_EQ(child.Long(), part);
        EXPECT_NE(Reading(*object.Get(), part).find(L"radio button"), std::wstring::npos);
    }
    const ComPtr<IAccessible> object = AccessibleOf(site.Window());
    Variant found;
    EXPECT_EQ(object->accHitTest(place.left - 1, place.top, found.Receive()), S_FALSE);
    // From one to the other, and no further.
    EXPECT_EQ(object->accNavigate(NAVDIR_FIRSTCHILD, Part(CHILDID_SELF), found.Receive()), S_OK);
    EXPECT_EQ(found.Long(), 1);
    EXPECT_EQ(object->accNavigate(NAVDIR_NEXT, Part(1), found.Receive()), S_OK);
    EXPECT_EQ(found.Long(), 2);
    EXPECT_EQ(object->accNavigate(NAVDIR_NEXT, Part(2), found.Receive()), S_FALSE);
}

TEST_F(AccessActionTest, APlaceInAFrameLeadsToWhatStandsThere)
{
    host::FrameOptions frame;
    frame.name = L"fraOne";
    frame.caption = L"About you";
    frame.bounds = {10, 5, 250, 110};
    TheForm().AddFrame(frame);
    host::ControlSite& site = AddLabelled(L"Wages:", CLSID_CurrencyBox);
    ShowForm();
    const HWND page = GetParent(site.Window());
    const auto at = [&](POINT place) {
        ClientToScreen(page, &place);
        ComPtr<IAccessible> object;
        Variant child;
        EXPECT_EQ(AccessibleObjectFromPoint(place, &object, child.Receive()), S_OK);
        return object ? Reading(*object.Get(), child.Long()) : std::wstring();
    };
    EXPECT_EQ(at({150, 30}), L"text \"Wages:\" = \"\" [focusable]");
    EXPECT_EQ(at({30, 30}), L"label \"Wages:\" []");
    EXPECT_EQ(at({30, 100}), L"grouping \"About you\" []");
}

TEST_F(AccessActionTest, AnObjectMayBeHeldLongerThanTheControlLives)
{
    std::vector<ComPtr<IAccessible>> objects;
    std::vector<ComPtr<IAccessible>> lists;
    for (const CLSID* id :
         {&CLSID_YesNo, &CLSID_NumberBox, &CLSID_DateBox, &CLSID_CurrencyBox, &CLSID_PercentBox,
          &CLSID_ChkCombo, &CLSID_EnumList, &CLSID_PicCommand, &CLSID_PicLite})
    {
        host::ControlSite& site = TheForm().Add(*id, Placed());
        objects.push_back(AccessibleOf(site.Window()));
        if (const HWND inner = GetWindow(site.Window(), GW_CHILD))
            objects.push_back(AccessibleOf(inner));
        ComPtr<IDispatch> child;
        ComPtr<IAccessible> list;
        if (objects.back()->get_accChild(Part(1), &child) == S_OK && child.As(&list) == S_OK)
            objects.push_back(list);
        TheForm().Remove(site);
    }
    DestroyForm();
    for (const ComPtr<IAccessible>& object : objects)
    {
        Bstr text;
        Variant value;
        long number = 0;
        ComPtr<IDispatch> child;
        EXPECT_EQ(object->get_accName(Part(0), text.Receive()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accValue(Part(0), text.Receive()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accState(Part(0), value.Receive()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accChildCount(&number), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accChild(Part(1), &child), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accParent(&child), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->accDoDefaultAction(Part(0)), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->accHitTest(0, 0, value.Receive()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->put_accName(Part(0), nullptr), CO_E_OBJNOTCONNECTED);
        ComPtr<IOleWindow> window;
        HWND found = nullptr;
        ASSERT_EQ(object.As(&window), S_OK);
        EXPECT_EQ(window->GetWindow(&found), CO_E_OBJNOTCONNECTED);
    }
    StartAnew();
}

TEST_F(AccessActionTest, TheControlsMayBeAskedWhileTheyGo)
{
    for (const CLSID* id :
         {&CLSID_YesNo, &CLSID_NumberBox, &CLSID_DateBox, &CLSID_CurrencyBox, &CLSID_PercentBox,
          &CLSID_ChkCombo, &CLSID_EnumList, &CLSID_PicCommand, &CLSID_PicLite})
    {
        asking = {};
        host::ControlSite& site = TheForm().Add(*id, Placed());
        std::vector<HWND> windows = {site.Window()};
        for (HWND child = GetWindow(site.Window(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            windows.push_back(child);
        for (const HWND window : windows)
        {
            asking.Held.push_back(AccessibleOf(window));
            asking.Former[window] = reinterpret_cast<WNDPROC>(
                SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AskingProcedure)));
        }
        TheForm().Remove(site);
        EXPECT_GT(asking.Asked, 0);
        for (const ComPtr<IAccessible>& object : asking.Held)
        {
            long count = 0;
            EXPECT_EQ(object->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
        }
        asking = {};
    }
}

TEST_F(AccessActionTest, AnObjectOnAnotherThreadRefusesInsteadOfBreaking)
{
    host::ControlSite& site = AddLabelled(L"Resident?", CLSID_YesNo);
    ShowForm();
    const ComPtr<IAccessible> object = AccessibleOf(site.Window());
    HRESULT result = S_OK;
    {
        const Thread thread([&] {
            Bstr name;
            result = object->get_accName(Part(0), name.Receive());
        });
    }
    EXPECT_EQ(result, RPC_E_WRONG_THREAD);
}

TEST_F(AccessActionTest, LateBoundClientsAreServedToo)
{
    host::ControlSite& site = AddLabelled(L"Resident?", CLSID_YesNo);
    ShowForm();
    const ComPtr<IAccessible> object = AccessibleOf(site.Window());
    EXPECT_EQ(Invoke(object.Get(), DISPID_ACC_NAME, DISPATCH_PROPERTYGET, {Variant(0L)}).Value.Text(),
              L"Resident?");
    EXPECT_EQ(Invoke(object.Get(), DISPID_ACC_CHILDCOUNT, DISPATCH_PROPERTYGET).Value.Long(), 2);
}

} // namespace kiv::test
