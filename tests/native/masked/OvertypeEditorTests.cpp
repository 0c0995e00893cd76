#include "controls/masked/DateRules.h"
#include "controls/masked/NumberRules.h"

#include "tests/native/masked/DateBoxKeyRows.h"
#include "tests/native/masked/NumberBoxKeyRows.h"
#include "tests/native/masked/RowName.h"

namespace kiv::test
{

namespace
{

NumberRules RulesOf(NumberFormat style)
{
    NumberRules rules;
    rules.SetStyle(style);
    return rules;
}

DateRules RulesOf(DateFormat style)
{
    DateRules rules;
    rules.SetStyle(style);
    return rules;
}

// As a control asks its rules: Delete is a key, all else a character.
template<class Rules>
KeyOutcome Press(const Rules& rules, const BoxState& box, Stroke key)
{
    return key.KeyCode != 0 ? rules.KeyDown(box, key.KeyCode) : rules.KeyPress(box, key.KeyAscii);
}

template<class Rules>
void ExpectRow(const Rules& rules, const KeyRow& row)
{
    const KeyOutcome outcome = Press(rules, {std::wstring(row.Text), row.SelStart, row.SelLength}, row.Key);
    EXPECT_EQ(outcome.Box.Text, row.After);
    EXPECT_EQ(outcome.Box.SelStart, row.SelStartAfter);
    EXPECT_EQ(outcome.Box.SelLength, row.SelLengthAfter);
    EXPECT_EQ(outcome.Edits, Changes(row));
    EXPECT_FALSE(outcome.PassedOn);
}

template<class Rules>
void ExpectTyping(const Rules& rules, const TypingRow& row)
{
    BoxState box = {std::wstring(row.Text), row.SelStart, 0};
    std::size_t changes = 0;
    for (const wchar_t key : row.Keys)
    {
        const Stroke stroke = key == DeleteInKeys ? DeleteStroke : Typed(static_cast<char>(key));
        const KeyOutcome outcome = Press(rules, box, stroke);
        ASSERT_FALSE(outcome.PassedOn);
        changes += outcome.Edits.size();
        box = outcome.Box;
    }
    EXPECT_EQ(box, (BoxState{std::wstring(row.After), row.SelStartAfter, 0}));
    EXPECT_EQ(changes, static_cast<std::size_t>(row.Changes));
}

class NumberKeyTest : public testing::TestWithParam<KeyRow>
{
};

TEST_P(NumberKeyTest, DoesWhatTheRowSays)
{
    ExpectRow(RulesOf(static_cast<NumberFormat>(GetParam().Style)), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberKeyTest, testing::ValuesIn(NumberKeyRows), NameOfRow);

class NumberTypingTest : public testing::TestWithParam<TypingRow>
{
};

TEST_P(NumberTypingTest, EndsAsTheRowSays)
{
    ExpectTyping(RulesOf(static_cast<NumberFormat>(GetParam().Style)), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberTypingTest, testing::ValuesIn(NumberTypingRows), NameOfRow);

class NumberPassedKeyTest : public testing::TestWithParam<PassedKeyRow>
{
};

TEST_P(NumberPassedKeyTest, IsLeftToTheBox)
{
    const BoxState box = {std::wstring(GetParam().Text), GetParam().SelStart, GetParam().SelLength};
    EXPECT_EQ(Press(RulesOf(static_cast<NumberFormat>(GetParam().Style)), box, GetParam().Key), PassOn(box));
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberPassedKeyTest, testing::ValuesIn(NumberPassedKeyRows), NameOfRow);

class DateKeyTest : public testing::TestWithParam<KeyRow>
{
};

TEST_P(DateKeyTest, DoesWhatTheRowSays)
{
    ExpectRow(RulesOf(static_cast<DateFormat>(GetParam().Style)), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, DateKeyTest, testing::ValuesIn(DateKeyRows), NameOfRow);

class DateTypingTest : public testing::TestWithParam<TypingRow>
{
};

TEST_P(DateTypingTest, EndsAsTheRowSays)
{
    ExpectTyping(RulesOf(static_cast<DateFormat>(GetParam().Style)), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, DateTypingTest, testing::ValuesIn(DateTypingRows), NameOfRow);

class PassedCharacters : public testing::TestWithParam<int>
{
protected:
    const BoxState Number = {L"123-45-6789", 2, 3};
    const BoxState Digits = {L"1234", 1, 2};
    const BoxState Date = {L"01/05/01", 2, 3};
};

TEST_P(PassedCharacters, AreTheClipboardsInEveryBox)
{
    const auto key = static_cast<short>(GetParam());
    const bool passed = key == 3 || key == 22 || key == 24;
    const bool edits = key == 8 || (key >= '0' && key <= '9');
    for (const NumberFormat style : {NumberFormat::SSN, NumberFormat::FederalId})
        EXPECT_EQ(RulesOf(style).KeyPress(Number, key).PassedOn, passed);
    for (const NumberFormat style : {NumberFormat::Routing, NumberFormat::Custom, NumberFormat(9)})
        EXPECT_EQ(RulesOf(style).KeyPress(Digits, key), passed || edits ? PassOn(Digits) : Swallow(Digits));
    for (const int style : {0, 1, 2, 3, 4, 5, 6, 7, 9})
        EXPECT_EQ(RulesOf(DateFormat(style)).KeyPress(Date, key).PassedOn, passed);
    if (!passed && !edits)
    {
        EXPECT_EQ(RulesOf(NumberFormat::SSN).KeyPress(Number, key), Swallow(Number));
        if (key != ' ' && key != '/')
        {
            EXPECT_EQ(RulesOf(DateFormat::MonthDayYear).KeyPress(Date, key), Swallow(Date));
        }
    }
}

// A cancelled key is 0; a host may have put anything in its place.
INSTANTIATE_TEST_SUITE_P(All, PassedCharacters, testing::Range(-1, 0x180));
INSTANTIATE_TEST_SUITE_P(Extremes, PassedCharacters, testing::Values(-32768, -200, 0x660, 32767));

TEST(OvertypeEditorTest, LeavesEveryKeyButDeleteToTheBox)
{
    const BoxState number = {L"123-45-6789", 3, 2};
    const BoxState date = {L"01/05/01", 2, 3};
    for (short key = 0; key < 256; ++key)
    {
        EXPECT_EQ(RulesOf(NumberFormat::SSN).KeyDown(number, key).PassedOn, key != 46);
        EXPECT_TRUE(RulesOf(NumberFormat::Custom).KeyDown(number, key).PassedOn);
        EXPECT_TRUE(RulesOf(NumberFormat::Routing).KeyDown(number, key).PassedOn);
        EXPECT_TRUE(RulesOf(NumberFormat(9)).KeyDown(number, key).PassedOn);
        EXPECT_EQ(RulesOf(DateFormat::MonthDayYear).KeyDown(date, key).PassedOn, key != 46);
    }
}

TEST(OvertypeEditorTest, TakesSelectionsThatReachBeyondTheText)
{
    const NumberRules rules = RulesOf(NumberFormat::SSN);
    const std::vector<std::wstring> cleared = {L"123-45-67__"};
    EXPECT_EQ(rules.KeyPress({L"123-45-6789", 9, 50}, 8),
              (KeyOutcome{{L"123-45-67__", 9, 0}, cleared, false}));
    EXPECT_EQ(rules.KeyPress({L"123-45-6789", 11, 5}, 8),
              (KeyOutcome{{L"123-45-678_", 10, 0}, {L"123-45-678_"}, false}))
        << "nothing is selected there";
    EXPECT_EQ(rules.KeyPress({L"123-45-6789", 99, 5}, '1'), (KeyOutcome{{L"123-45-6789", 11, 0}, {}, false}));
    EXPECT_EQ(rules.KeyPress({L"123-45-6789", -5, -5}, 8), (KeyOutcome{{L"123-45-6789", 0, 0}, {}, false}));
}

TEST(OvertypeEditorTest, TakesAnyCharacterForAKeyOfATemplate)
{
    const OvertypeTemplate places = {
        .Blank = L"__-__", .Separator = L'-', .ClearingKey = L'\x1', .JumpKey = L'\x2'};
    EXPECT_EQ(OvertypeCharacter(places, {L"12-34", 0, 0}, 1).Box, (BoxState{L"_2-34", 1, 0}));
    EXPECT_EQ(OvertypeCharacter(places, {L"12-34", 0, 0}, 2).Box, (BoxState{L"12-34", 3, 0}));
}

// At every place of an entry, for every selection: what lies outside the selection and beside the caret
// stays.
TEST(OvertypeEditorTest, TouchesOnePlaceBesideTheSelectionAtMost)
{
    const NumberRules rules = RulesOf(NumberFormat::SSN);
    const std::wstring full = L"123-45-6789";
    for (int start = 0; start <= 11; ++start)
    {
        for (int length = 0; start + length <= 11; ++length)
        {
            for (const Stroke key : {Typed('0'), EraseKey, DeleteStroke})
            {
                const std::wstring after = Press(rules, {full, start, length}, key).Box.Text;
                ASSERT_EQ(after.size(), full.size());
                int changedOutside = 0;
                for (int place = 0; place < 11; ++place)
                {
                    const auto at = static_cast<std::size_t>(place);
                    const bool outside = place < start || place >= start + length;
                    if (full[at] == L'-')
                        ASSERT_EQ(after[at], L'-');
                    else if (outside)
                        changedOutside += after[at] != full[at];
                    else
                        ASSERT_NE(after[at], full[at]);
                }
                ASSERT_LE(changedOutside, 1) << start << ' ' << length;
            }
        }
    }
}

} // namespace

} // namespace kiv::test
