// Any call, with any part, on objects of controls that are there and of others that are gone.

#include "tests/gui/access/AccessTest.h"

#include <random>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using AccessFuzzTest = AccessTest;

void Ask(IAccessible& asked, unsigned member, const VARIANT& part, long number)
{
    Bstr text;
    Variant answer;
    ComPtr<IDispatch> object;
    long place[4] = {};
    switch (member % 16)
    {
    case 0:
        asked.get_accName(part, text.Receive());
        break;
    case 1:
        asked.get_accValue(part, text.Receive());
        break;
    case 2:
        asked.get_accDescription(part, text.Receive());
        break;
    case 3:
        asked.get_accRole(part, answer.Receive());
        break;
    case 4:
        asked.get_accState(part, answer.Receive());
        break;
    case 5:
        asked.get_accKeyboardShortcut(part, text.Receive());
        break;
    case 6:
        asked.get_accDefaultAction(part, text.Receive());
        break;
    case 7:
        asked.accLocation(&place[0], &place[1], &place[2], &place[3], part);
        break;
    case 8:
        asked.accNavigate(number, part, answer.Receive());
        break;
    case 9:
        asked.accHitTest(number, number / 2, answer.Receive());
        break;
    case 10:
        asked.get_accChild(part, &object);
        break;
    case 11:
        asked.get_accParent(&object);
        break;
    case 12:
        asked.accSelect(number, part);
        break;
    case 13:
        asked.get_accFocus(answer.Receive());
        break;
    case 14:
        asked.get_accSelection(answer.Receive());
        break;
    default:
        asked.put_accValue(part, Bstr(L"12").Get());
        asked.get_accChildCount(place);
        break;
    }
}

} // namespace

TEST_F(AccessFuzzTest, AHundredThousandCallsBreakNothing)
{
    constexpr int Rounds = 20;
    constexpr int Calls = 5000;
    std::mt19937 random(1);
    std::vector<ComPtr<IAccessible>> objects;
    for (int round = 0; round < Rounds; ++round)
    {
        StartAnew();
        AddElsewhere();
        std::vector<host::ControlSite*> sites;
        for (const CLSID* id :
             {&CLSID_YesNo, &CLSID_NumberBox, &CLSID_DateBox, &CLSID_CurrencyBox, &CLSID_PercentBox,
              &CLSID_ChkCombo, &CLSID_EnumList, &CLSID_PicCommand, &CLSID_PicLite})
        {
            sites.push_back(&TheForm().Add(*id, Placed()));
            objects.push_back(AccessibleOf(sites.back()->Window()));
            if (const HWND inner = GetWindow(sites.back()->Window(), GW_CHILD))
                objects.push_back(AccessibleOf(inner));
        }
        sites[5]->Call(L"AddItem", {Variant(L"One")});
        ShowForm();
        for (int call = 0; call < Calls; ++call)
        {
            // One after the other they go.
            if (call % 1000 == 999)
            {
                TheForm().Remove(*sites.back());
                sites.pop_back();
            }
            VARIANT part = {};
            V_VT(&part) = random() % 8 == 0 ? static_cast<VARTYPE>(VT_EMPTY) : static_cast<VARTYPE>(VT_I4);
            V_I4(&part) = random() % 8 == 0 ? static_cast<LONG>(random()) : static_cast<LONG>(random() % 4);
            Ask(*objects[random() % objects.size()].Get(), static_cast<unsigned>(random()), part,
                static_cast<long>(random() % 1024));
        }
        // Some are held on.
        while (objects.size() > 20)
            objects.erase(objects.begin() + static_cast<std::ptrdiff_t>(random() % objects.size()));
        Settle();
    }
    objects.clear();
    // What is left answers as before.
    StartAnew();
    host::ControlSite& site = AddLabelled(L"Resident?", CLSID_YesNo);
    ShowForm();
    EXPECT_EQ(ReadingsOf(site.Window()).size(), 3U);
}

} // namespace kiv::test
