// Any call, with any part, on objects of controls that are there and of others that are gone.

#include "tests/gui/access/AccessTest.h"

#include <random>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using AccessFuzzTest = AccessTest;

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
            VARIANT part =
                Part(random() % 8 == 0 ? static_cast<long>(random()) : static_cast<long>(random() % 4));
            if (random() % 8 == 0)
                V_VT(&part) = VT_EMPTY;
            // A button that is pressed may open what waits for its user.
            const std::size_t member = random() % MembersOfAccessible;
            if (member != DefaultActionMember)
                CallMember(*objects[random() % objects.size()].Get(), member, part, L"12", [&](long limit) {
                    return static_cast<long>(random() % static_cast<unsigned long>(limit));
                });
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
