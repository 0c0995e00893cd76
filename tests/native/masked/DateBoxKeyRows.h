#pragma once

#include "tests/native/masked/MaskedRow.h"

namespace kiv::test
{

// Styles: 0 mm/yy, 1 mm/dd/yy, 2 mm/dd/yyyy, 3 mm/dd, 4 yy, 5 yyyy, 6 mm/yyyy, 7 mm/dd/yy with only the year
// required.

inline constexpr KeyRow DateKeyRows[] = {
    // Digits.
    {"DigitFillsTheFirstPlace", 1, L"__/__/__", 0, 0, Typed('1'), L"1_/__/__", 1},
    {"DigitReplacesADigit", 1, L"01/05/01", 1, 0, Typed('2'), L"02/05/01", 2},
    {"DigitHopsOverASlash", 1, L"01/__/__", 2, 0, Typed('3'), L"01/3_/__", 4},
    {"DigitHopsOverTheSecondSlash", 1, L"01/05/__", 5, 0, Typed('9'), L"01/05/9_", 7},
    {"DigitJustAfterASlash", 1, L"01/__/__", 3, 0, Typed('3'), L"01/3_/__", 4},
    {"DigitAtTheEnd", 1, L"01/05/01", 8, 0, Typed('3'), L"01/05/01", 8},
    {"DigitInFourDigitYear", 2, L"01/05/200_", 9, 0, Typed('4'), L"01/05/2004", 10},
    {"DigitInMonthAndYear", 0, L"12/__", 2, 0, Typed('0'), L"12/0_", 4},
    {"DigitInMonthAndDay", 3, L"__/__", 5, 0, Typed('0'), L"__/__", 5},
    {"DigitInYear", 4, L"__", 1, 0, Typed('4'), L"_4", 2},
    {"DigitInFullYear", 5, L"200_", 3, 0, Typed('4'), L"2004", 4},
    {"DigitInMonthAndFullYear", 6, L"03/____", 2, 0, Typed('2'), L"03/2___", 4},
    {"DigitWhereOnlyTheYearIsRequired", 7, L"__/__/__", 6, 0, Typed('0'), L"__/__/0_", 7},
    {"DigitOverASelection", 1, L"01/05/01", 0, 2, Typed('1'), L"1_/05/01", 1, L"__/05/01"},
    {"DigitOverAll", 1, L"01/05/01", 0, 8, Typed('1'), L"1_/__/__", 1, L"__/__/__"},
    {"DigitOverASelectionThatBeginsWithASlash", 1, L"01/05/01", 2, 2, Typed('9'), L"01/95/01", 4,
     L"01/_5/01"},

    // Space clears a place and moves on.
    {"SpaceClearsADigit", 1, L"01/05/01", 0, 0, Typed(' '), L"_1/05/01", 1},
    {"SpaceOverABlankPlaceMovesOn", 1, L"__/__/__", 0, 0, Typed(' '), L"__/__/__", 1},
    {"SpaceHopsOverASlash", 1, L"01/05/01", 2, 0, Typed(' '), L"01/_5/01", 4},
    {"SpaceAtTheEnd", 1, L"01/05/01", 8, 0, Typed(' '), L"01/05/01", 8},
    {"SpaceOverASelection", 1, L"01/05/01", 3, 2, Typed(' '), L"01/__/01", 4},
    {"SpaceOverASlashAlone", 1, L"01/05/01", 2, 1, Typed(' '), L"01/_5/01", 4},

    // "/" moves to the next part, whatever is selected.
    {"SlashMovesToTheDay", 1, L"1_/__/__", 1, 0, Typed('/'), L"1_/__/__", 3},
    {"SlashBeforeASlashMovesOverIt", 1, L"01/__/__", 2, 0, Typed('/'), L"01/__/__", 3},
    {"SlashAfterASlashMovesToTheYear", 1, L"01/__/__", 3, 0, Typed('/'), L"01/__/__", 6},
    {"SlashInTheLastPartMovesToTheEnd", 1, L"01/05/__", 6, 0, Typed('/'), L"01/05/__", 8},
    {"SlashAtTheEndStays", 1, L"01/05/01", 8, 0, Typed('/'), L"01/05/01", 8},
    {"SlashCollapsesASelection", 1, L"01/05/01", 0, 8, Typed('/'), L"01/05/01", 3},
    {"SlashCountsFromTheSelectionsStart", 1, L"01/05/01", 3, 4, Typed('/'), L"01/05/01", 6},
    {"SlashWithoutSeparatorsMovesToTheEnd", 5, L"____", 1, 0, Typed('/'), L"____", 4},

    // Backspace and Delete as in number boxes.
    {"BackspaceAtTheEnd", 1, L"01/05/01", 8, 0, EraseKey, L"01/05/0_", 7},
    {"BackspaceAtTheStart", 1, L"01/05/01", 0, 0, EraseKey, L"01/05/01", 0},
    {"BackspaceAfterASlashOnlyMoves", 1, L"01/05/01", 6, 0, EraseKey, L"01/05/01", 5},
    {"BackspaceBeforeASlashClears", 1, L"01/05/01", 5, 0, EraseKey, L"01/0_/01", 4},
    {"BackspaceOverASelection", 1, L"01/05/01", 1, 4, EraseKey, L"0_/__/01", 1},
    {"BackspaceOverABlankSelectionOnlyCollapsesIt", 1, L"01/__/01", 3, 2, EraseKey, L"01/__/01", 3},
    {"BackspaceInYear", 4, L"01", 2, 0, EraseKey, L"0_", 1},
    {"DeleteAtTheStart", 1, L"01/05/01", 0, 0, DeleteStroke, L"_1/05/01", 0},
    {"DeleteJustBeforeASlash", 1, L"01/05/01", 2, 0, DeleteStroke, L"0_/05/01", 1},
    {"DeleteJustAfterASlash", 1, L"01/05/01", 3, 0, DeleteStroke, L"01/_5/01", 3},
    {"DeleteAtTheEnd", 1, L"01/05/01", 8, 0, DeleteStroke, L"01/05/01", 8},
    {"DeleteASelection", 1, L"01/05/01", 0, 4, DeleteStroke, L"__/_5/01", 0},
    {"DeleteASelectionThatBeginsWithASlash", 1, L"01/05/01", 2, 2, DeleteStroke, L"0_/_5/01", 1, L"01/_5/01"},
    {"DeleteInMonthAndDay", 3, L"12/31", 2, 0, DeleteStroke, L"1_/31", 1},
    {"DeleteInYear", 4, L"01", 1, 0, DeleteStroke, L"0_", 1},
    {"DeleteInMonthAndFullYear", 6, L"03/2001", 6, 0, DeleteStroke, L"03/200_", 6},
    {"DeleteWhereOnlyTheYearIsRequired", 7, L"01/05/01", 5, 0, DeleteStroke, L"01/0_/01", 4},

    // All else is swallowed.
    {"LetterIsSwallowed", 1, L"01/05/01", 0, 0, Typed('a'), L"01/05/01", 0},
    {"LetterLeavesTheSelection", 1, L"01/05/01", 0, 8, Typed('a'), L"01/05/01", 0, {}, 8},
    {"DashIsSwallowed", 1, L"01/05/01", 2, 0, Typed('-'), L"01/05/01", 2},
    {"PointIsSwallowed", 1, L"01/05/01", 2, 0, Typed('.'), L"01/05/01", 2},
    {"UnderscoreIsSwallowed", 1, L"01/05/01", 0, 0, Typed('_'), L"01/05/01", 0},

    // A box that was given no text, or the blank of a shorter layout, is completed by the first key that
    // edits.
    {"DigitInAnEmptyBox", 1, L"", 0, 0, Typed('1'), L"1_/__/__", 1},
    {"SpaceInAnEmptyBox", 1, L"", 0, 0, Typed(' '), L"__/__/__", 1},
    {"DeleteInAnEmptyBox", 1, L"", 0, 0, DeleteStroke, L"__/__/__", 0},
    {"BackspaceInAnEmptyBox", 1, L"", 0, 0, EraseKey, L"", 0},
    {"SlashInAnEmptyBox", 1, L"", 0, 0, Typed('/'), L"", 0},
    {"LetterInAnEmptyBox", 1, L"", 0, 0, Typed('a'), L"", 0},
    {"DigitAtTheEndOfAShorterLayout", 1, L"01/05", 5, 0, Typed('9'), L"01/05/9_", 7},
    {"DigitInsideAShorterLayout", 2, L"__/__", 1, 0, Typed('9'), L"_9/__/____", 2},
    // One longer than the layout loses what is too much where it is removed.
    {"DigitPastTheLayout", 3, L"01/05/01", 6, 0, Typed('9'), L"01/05/01", 6},
    {"DigitOverALongerLayout", 3, L"01/05/01", 0, 8, Typed('9'), L"9_/__", 1, L"__/__"},
    {"BackspacePastTheLayout", 3, L"01/05/01", 8, 0, EraseKey, L"01/05/0", 7},
    {"DeletePastTheLayout", 3, L"01/05/01", 6, 0, DeleteStroke, L"01/05/01", 6},
};

inline constexpr TypingRow DateTypingRows[] = {
    {"WholeDate", 1, L"__/__/__", 0, L"123104", L"12/31/04", 8, 6},
    {"WholeDateWithItsSlashes", 1, L"__/__/__", 0, L"12/31/04", L"12/31/04", 8, 6},
    {"SeventhDigitIsSwallowed", 1, L"__/__/__", 0, L"1231049", L"12/31/04", 8, 6},
    {"SlashesSkipPlaces", 1, L"__/__/__", 0, L"1/5/1", L"1_/5_/1_", 7, 3},
    {"SpacesPad", 1, L"__/__/__", 0, L" 1 5 1", L"_1/_5/_1", 8, 3},
    {"WholeDateWithFullYear", 2, L"__/__/____", 0, L"12312004", L"12/31/2004", 10, 8},
    {"MonthAndYear", 0, L"__/__", 0, L"1204", L"12/04", 5, 4},
    {"MonthAndFullYear", 6, L"__/____", 0, L"032001", L"03/2001", 7, 6},
    {"SecondBackspaceClearsBeforeTheSlash", 1, L"01/05/01", 6, L"\b\b", L"01/0_/01", 4, 1},
    {"BackspaceToTheStart", 1, L"01/05/01", 8, L"\b\b\b\b\b\b\b\b\b", L"__/__/__", 0, 6},
    {"DeleteStaysWhereItCleared", 1, L"01/05/01", 2, L"\x7F\x7F", L"0_/05/01", 1, 1},
    {"OnlyAYear", 7, L"__/__/__", 0, L"//03", L"__/__/03", 8, 2},
};

} // namespace kiv::test
