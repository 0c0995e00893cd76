// A YesNo answered from the keyboard.

#include "tests/gui/HostedTest.h"
#include "tests/support/NamedRow.h"

#include "host/container/Button.h"
#include "host/container/PropertyBag.h"
#include "runtime/com/MakeCom.h"

namespace kiv::test
{

namespace
{

struct KeyRow : NamedRow
{
    long Before;
    AnswerEnums FocusBefore;
    WORD Key;
    std::initializer_list<WORD> Held;
    const char* Outcome;
};

struct CharacterRow : NamedRow
{
    wchar_t Character;
    const char* Outcome;
};

const KeyRow KeyRows[] = {
    {"SmallY", 0, Yes, 'Y', {}, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"LargeY", 0, Yes, 'Y', {VK_SHIFT}, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"SmallN", 0, Yes, 'N', {}, "2 N @No | Click 2, Value, Text, Change 2"},
    {"LargeN", 0, Yes, 'N', {VK_SHIFT}, "2 N @No | Click 2, Value, Text, Change 2"},
    {"YDoesNotClearYes", 1, Yes, 'Y', {}, "1 Y @Yes"},
    {"NDoesNotClearNo", 2, No, 'N', {}, "2 N @No"},
    {"YMovesTheFocusToASelectedYes", 1, No, 'Y', {}, "1 Y @Yes"},
    {"NMovesTheFocusToASelectedNo", 2, Yes, 'N', {}, "2 N @No"},
    {"YInsteadOfNo", 2, No, 'Y', {}, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"NInsteadOfYes", 1, Yes, 'N', {}, "2 N @No | Click 2, Value, Text, Change 2"},
    {"YInsteadOfWhatIsNoAnswer", -1, Yes, 'Y', {}, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"SpaceSelectsYes", 0, Yes, VK_SPACE, {}, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"SpaceClearsYes", 1, Yes, VK_SPACE, {}, "0 Null @Yes | Click 0, Value, Text, Change 0"},
    {"SpaceSelectsNo", 0, No, VK_SPACE, {}, "2 N @No | Click 2, Value, Text, Change 2"},
    {"SpaceClearsNo", 2, No, VK_SPACE, {}, "0 Null @No | Click 0, Value, Text, Change 0"},
    {"SpaceSelectsNoInsteadOfYes", 1, No, VK_SPACE, {}, "2 N @No | Click 2, Value, Text, Change 2"},
    {"SpaceSelectsYesInsteadOfNo", 2, Yes, VK_SPACE, {}, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"SpaceSelectsYesInsteadOfWhatIsNoAnswer",
     5,
     Yes,
     VK_SPACE,
     {},
     "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"ShiftSpaceIsSpace", 0, Yes, VK_SPACE, {VK_SHIFT}, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"RightGoesToNo", 0, Yes, VK_RIGHT, {}, "0 Null @No"},
    {"RightStaysAtNo", 1, No, VK_RIGHT, {}, "1 Y @No"},
    {"LeftGoesToYes", 2, No, VK_LEFT, {}, "2 N @Yes"},
    {"LeftStaysAtYes", 0, Yes, VK_LEFT, {}, "0 Null @Yes"},
    {"ShiftRightIsRight", 0, Yes, VK_RIGHT, {VK_SHIFT}, "0 Null @No"},
    {"ControlRightIsRight", 0, Yes, VK_RIGHT, {VK_CONTROL}, "0 Null @No"},
    {"AltRightIsRight", 0, Yes, VK_RIGHT, {VK_MENU}, "0 Null @No"},
    {"ControlShiftLeftIsLeft", 0, No, VK_LEFT, {VK_CONTROL, VK_SHIFT}, "0 Null @Yes"},
    {"UpDoesNothing", 0, No, VK_UP, {}, "0 Null @No"},
    {"DownDoesNothing", 0, Yes, VK_DOWN, {}, "0 Null @Yes"},
    {"HomeDoesNothing", 1, No, VK_HOME, {}, "1 Y @No"},
    {"EndDoesNothing", 1, Yes, VK_END, {}, "1 Y @Yes"},
    {"DeleteDoesNothing", 1, Yes, VK_DELETE, {}, "1 Y @Yes"},
    {"BackspaceDoesNothing", 1, Yes, VK_BACK, {}, "1 Y @Yes"},
    {"OtherLettersDoNothing", 0, Yes, 'X', {}, "0 Null @Yes"},
    {"DigitsDoNothing", 0, Yes, '9', {}, "0 Null @Yes"},
    {"ControlYDoesNothing", 0, No, 'Y', {VK_CONTROL}, "0 Null @No"},
    {"ControlNDoesNothing", 0, Yes, 'N', {VK_CONTROL}, "0 Null @Yes"},
};

// Bit 7 is dropped with the fold to upper case.
const CharacterRow CharacterRows[] = {
    {"Code217IsY", 217, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"Code249IsY", 249, "1 Y @Yes | Click 1, Value, Text, Change 1"},
    {"Code206IsN", 206, "2 N @No | Click 2, Value, Text, Change 2"},
    {"Code238IsN", 238, "2 N @No | Click 2, Value, Text, Change 2"},
    {"Code160IsNoSpace", 160, "0 Null @Yes"},
    {"Code216IsNothing", 216, "0 Null @Yes"},
    {"Code205IsNothing", 205, "0 Null @Yes"},
    {"Code255IsNothing", 255, "0 Null @Yes"},
};

class YesNoKey : public HostedTest, public testing::WithParamInterface<KeyRow>
{
};

TEST_P(YesNoKey, Answers)
{
    const KeyRow& row = GetParam();
    HostedYesNo control(TheForm(), Placed());
    control.SetValue(row.Before);
    ShowForm();
    AnswerEnums focus = row.FocusBefore;
    EXPECT_HRESULT_SUCCEEDED(control.Control()->DrawFocusState(&focus));
    ASSERT_EQ(control.FocusShown(), row.FocusBefore == Yes ? "Yes" : "No");
    control.TakeTrace();
    Key(row.Key, row.Held);
    EXPECT_EQ(control.TakeOutcome(), row.Outcome);
    EXPECT_EQ(GetFocus(), control.Window());
}

INSTANTIATE_TEST_SUITE_P(Rows, YesNoKey, testing::ValuesIn(KeyRows), RowName());

class YesNoCharacter : public HostedTest, public testing::WithParamInterface<CharacterRow>
{
};

TEST_P(YesNoCharacter, Answers)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    Character(GetParam().Character);
    EXPECT_EQ(control.TakeOutcome(), GetParam().Outcome);
}

INSTANTIATE_TEST_SUITE_P(Rows, YesNoCharacter, testing::ValuesIn(CharacterRows), RowName());

using YesNoKeyboardTest = HostedTest;

TEST_F(YesNoKeyboardTest, AnswersASeriesOfKeys)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const WORD keys[] = {VK_SPACE, VK_RIGHT, VK_SPACE, VK_SPACE, VK_LEFT, 'N'};
    for (const WORD key : keys)
        TapKey(key);
    Settle();
    EXPECT_EQ(control.TakeOutcome(),
              "2 N @No | Click 1, Value, Text, Change 1, Click 2, Value, Text, Change 2, "
              "Click 0, Value, Text, Change 0, Click 2, Value, Text, Change 2");
}

TEST_F(YesNoKeyboardTest, GetsNothingWithoutTheFocus)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    for (const WORD key : {WORD{'Y'}, WORD{'N'}})
        Key(key);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @None");
}

// Loading leaves the window enabled, so it can be given the focus.
TEST_F(YesNoKeyboardTest, IsDeafWhenLoadedDisabled)
{
    const auto bag = MakeCom<host::PropertyBag>();
    bag->Set(L"Enabled", Variant(false));
    host::SiteOptions options = Placed();
    options.load = bag.Get();
    AddElsewhere();
    HostedYesNo control(TheForm(), options);
    ShowForm();
    SetFocus(control.Window());
    for (const WORD key : {WORD{'Y'}, WORD{VK_SPACE}, WORD{VK_RIGHT}})
        Key(key);
    EXPECT_EQ(control.TakeOutcome(), "0 Null @Yes");
}

} // namespace

} // namespace kiv::test
