// A host may do away with a box while the box tells it something.

#include "tests/gui/Blow.h"
#include "tests/gui/masked/MaskedTest.h"

#include "runtime/com/Errors.h"

namespace kiv::test
{

namespace
{

class MaskedBlow : public MaskedTest, public testing::WithParamInterface<BlowRow>
{
protected:
    // Each box of its own, since it does not survive. Strikes in the first event of that name that act
    // causes.
    void ExpectSurvival(const wchar_t* event, bool isNumber, long style,
                        const std::function<void(HostedBox&)>& act, const BoxLook& before = {})
    {
        // The form is struck once only.
        if (TheForm().Closed())
            return;
        SCOPED_TRACE((isNumber ? "number box of style " : "date box of style ") + std::to_string(style));
        HostedBox box = isNumber ? AddNumberBox() : AddDateBox();
        box.SetStyle(style);
        ShowForm();
        box.Site().Focus();
        box.Select(0, 0);
        if (!before.Text.empty())
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

const auto TypeADigit = [](HostedBox&) { TapKey('1'); };
const auto TypeDelete = [](HostedBox&) { TapKey(VK_DELETE); };

TEST_P(MaskedBlow, ByAKeyInAMaskedNumberIsSurvived)
{
    for (const wchar_t* event : {L"Change", L"KeyPress", L"KeyDown", L"KeyUp"})
        ExpectSurvival(event, true, 0, TypeADigit);
}

TEST_P(MaskedBlow, InKeyPressOfAMaskedNumberIsSurvived)
{
    ExpectSurvival(L"KeyPress", true, 0, TypeADigit);
}

TEST_P(MaskedBlow, InKeyPressOfAFreeNumberIsSurvived)
{
    ExpectSurvival(L"KeyPress", true, 3, TypeADigit);
}

TEST_P(MaskedBlow, ByAKeyInAFreeNumberIsSurvived)
{
    for (const wchar_t* event : {L"Change", L"KeyPress", L"KeyDown", L"KeyUp"})
        ExpectSurvival(event, true, 3, TypeADigit);
}

TEST_P(MaskedBlow, ByAKeyInARoutingNumberIsSurvived)
{
    for (const wchar_t* event : {L"Change", L"KeyPress", L"KeyDown", L"KeyUp"})
        ExpectSurvival(event, true, 2, TypeADigit);
}

TEST_P(MaskedBlow, ByAKeyInADateIsSurvived)
{
    for (const wchar_t* event : {L"Change", L"KeyPress", L"KeyDown", L"KeyUp"})
        ExpectSurvival(event, false, 1, TypeADigit);
}

TEST_P(MaskedBlow, InKeyPressOfADateIsSurvived)
{
    ExpectSurvival(L"KeyPress", false, 1, TypeADigit);
}

TEST_P(MaskedBlow, ByDeleteIsSurvived)
{
    ExpectSurvival(L"KeyDown", true, 0, TypeDelete, {L"123-45-6789", 0, 0});
    ExpectSurvival(L"Change", true, 0, TypeDelete, {L"123-45-6789", 0, 0});
    ExpectSurvival(L"KeyDown", false, 1, TypeDelete, {L"01/05/01", 0, 0});
    ExpectSurvival(L"Change", true, 3, TypeDelete, {L"12", 0, 0});
}

// The digit is still to come when the selection has turned blank.
TEST_P(MaskedBlow, InTheFirstOfTwoChangesIsSurvived)
{
    ExpectSurvival(L"Change", true, 0, TypeADigit, {L"123-45-6789", 0, 11});
    ExpectSurvival(L"Change", false, 1, TypeADigit, {L"01/05/01", 0, 8});
}

TEST_P(MaskedBlow, ByAMessageIsSurvived)
{
    for (const UINT message : {WM_CLEAR, WM_CUT})
    {
        const auto send = [=](HostedBox& box) { SendMessageW(box.Edit(), message, 0, 0); };
        ExpectSurvival(L"Change", true, 0, send, {L"123-45-6789", 0, 3});
        ExpectSurvival(L"Change", false, 1, send, {L"01/05/01", 0, 3});
    }
}

TEST_P(MaskedBlow, ByTheHostsOwnAssignmentIsSurvived)
{
    ExpectSurvival(L"Change", true, 0,
                   [](HostedBox& box) { box.Site().Put(L"Value", Variant(L"123-45-6789")); });
    ExpectSurvival(L"Change", false, 1,
                   [](HostedBox& box) { box.Site().Put(L"Value", Variant(L"01/05/01")); });
}

TEST_P(MaskedBlow, InAChangeOfStyleIsSurvived)
{
    ExpectSurvival(L"Change", true, 0, [](HostedBox& box) { box.SetStyle(1); }, {L"123-45-6789", 0, 0});
}

// Completing a date changes it, while the focus is on its way elsewhere.
TEST_P(MaskedBlow, OnLeavingADateIsSurvived)
{
    AddElsewhere();
    ExpectSurvival(L"Change", false, 1, [](HostedBox&) { TapKey(VK_TAB); }, {L"1_/5_/1_", 0, 0});
}

TEST_P(MaskedBlow, InAClickIsSurvived)
{
    ExpectSurvival(L"Click", false, 1, [](HostedBox& box) {
        POINT place = {30, 8};
        ClientToScreen(box.Edit(), &place);
        PointAt(place);
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
    });
}

INSTANTIATE_TEST_SUITE_P(Rows, MaskedBlow, testing::ValuesIn(BlowRows), RowName());

} // namespace

} // namespace kiv::test
