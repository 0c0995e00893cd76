// A host may do away with a box while the box tells it something.

#include "tests/gui/Blow.h"
#include "tests/gui/ClipboardUse.h"
#include "tests/gui/amount/AmountTest.h"

#include "runtime/com/Errors.h"

#include <functional>
#include <utility>

namespace kiv::test
{

namespace
{

class AmountBlow : public AmountTest, public testing::WithParamInterface<BlowRow>
{
protected:
    using Act = std::function<void(HostedBox&)>;

    // For both boxes, each of its own, since it does not survive: strikes in the first event of that name
    // that act causes.
    void ExpectSurvival(const wchar_t* event, const Act& act, const BoxLook& before = {})
    {
        for (const bool isCurrency : {true, false})
            ExpectSurvivalOf(isCurrency, event, act, before);
    }

    void ExpectSurvivalOf(bool isCurrency, const wchar_t* event, const Act& act, const BoxLook& before = {})
    {
        SCOPED_TRACE(isCurrency ? "currency box" : "percent box");
        StartAnew();
        HostedBox box = isCurrency ? ShownCurrencyBox() : ShownPercentBox();
        box.Show(before);
        bool struck = false;
        box.On(event, [&](const host::EventRecord&, DISPPARAMS&) {
            if (!std::exchange(struck, true))
                Strike(GetParam().What, TheForm(), box.Site());
        });
        act(box);
        EXPECT_TRUE(PumpUntil(TheForm(), [&] { return struck; }));
        PumpPending(TheForm());
    }
};

TEST_P(AmountBlow, ByADigitIsSurvived)
{
    for (const wchar_t* event : {L"KeyDown", L"KeyPress", L"Change", L"KeyUp"})
        ExpectSurvival(event, [](HostedBox&) { TapKey('1'); });
}

// The character is still to come when the selection has given way.
TEST_P(AmountBlow, InTheFirstOfTwoChangesIsSurvived)
{
    ExpectSurvival(L"Change", [](HostedBox&) { TapKey('1'); }, {L"12345678901234", 0, 14});
    ExpectSurvivalOf(false, L"Change", [](HostedBox&) { TapKey(VK_BACK); }, {L"1234", 1, 2});
}

TEST_P(AmountBlow, ByTheHostsOwnAssignmentIsSurvived)
{
    ExpectSurvival(L"Change", [](HostedBox& box) { box.Site().Put(L"Value", Variant(short{1})); });
}

TEST_P(AmountBlow, ByAPasteIsSurvived)
{
    ExpectSurvival(L"Change", [this](HostedBox& box) {
        PutTextOnClipboard(TheForm().Window(), L"1");
        SendMessageW(box.Edit(), WM_PASTE, 0, 0);
    });
}

// Rounding changes the amount while the focus is on its way elsewhere.
TEST_P(AmountBlow, OnLeavingIsSurvived)
{
    ExpectSurvivalOf(true, L"Change", [](HostedBox&) { TapKey(VK_TAB); }, {L"12.5", 0, 0});
    ExpectSurvival(L"Change", [](HostedBox&) { TapKey(VK_TAB); }, {L".", 0, 0});
}

TEST_P(AmountBlow, InAClickIsSurvived)
{
    ExpectSurvivalOf(true, L"Click", [](HostedBox& box) {
        POINT place = {0, 8};
        ClientToScreen(box.Site().Window(), &place);
        PointAt(place);
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
    });
}

INSTANTIATE_TEST_SUITE_P(Rows, AmountBlow, testing::ValuesIn(BlowRows), RowName());

} // namespace

} // namespace kiv::test
