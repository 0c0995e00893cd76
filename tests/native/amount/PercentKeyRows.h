#pragma once

#include "tests/native/amount/AmountRow.h"

namespace kiv::test
{

inline const std::vector<PercentKeyRow> PercentKeyRows = {
    {"DigitsAndPoint", 4, L"", L"7.5", L"7.5", 3},
    {"OutOfRangeIsTypedAllTheSame", 4, L"", L"150", L"150", 3},
    {"NoLimitBeforeThePoint", 4, L"", L"1234567890", L"1234567890", 10},
    {"NoLimitBehindThePoint", 2, L".", L"123456789", L".123456789", 9},
    {"NoSecondPoint", 4, L"1.5", L".", L"1.5", 0},
    {"NoPointWithoutDecimals", 0, L"15", L".", L"15", 0},
    {"NeverAMinus", 4, L"", L"-", L"", 0},
    {"NoMinusInFront", 4, L"|5", L"-", L"|5", 0},
    {"NoMinusOverASelection", 4, L"[5]", L"-", L"[5]", 0},
    {"LettersAreRefused", 4, L"1", L"xeE +%", L"1", 0},
    {"RefusedCharacterLeavesTheSelection", 4, L"1[23]", L"x", L"1[23]", 0},
    {"CopyLeavesTheSelection", 4, L"1[23]", std::wstring(1, CtrlCKey), L"1[23]", 0},

    // A selection is deleted first; the host hears of that and of the character.
    {"DigitOverASelection", 4, L"1[23]4", L"9", L"19|4", 2},
    {"DigitOverAll", 4, L"[12.5]", L"9", L"9", 2},
    {"PointOverASelection", 4, L"1[23]4", L".", L"1.|4", 2},
    {"PointOverAPoint", 4, L"1[.]5", L".", L"1.|5", 2},
    {"SecondPointDeletesTheSelectionOnly", 4, L"1.[5]", L".", L"1.", 1},
    {"RefusedPointDeletesTheSelection", 0, L"[1]2", L".", L"|2", 1},

    {"BackspaceDeletesOne", 4, L"12", L"\b", L"1", 1},
    {"BackspaceAtTheStart", 4, L"|12", L"\b", L"|12", 0},
    // Over a selection it deletes the character in front as well.
    {"BackspaceDeletesOneMore", 4, L"12[34]5", L"\b", L"1|5", 2},
    {"BackspaceDeletesOneMoreAtTheEnd", 4, L"12.[5]", L"\b", L"12", 2},
    {"BackspaceOverTheStart", 4, L"[12]3", L"\b", L"|3", 1},
    {"BackspaceOverAll", 4, L"[123]", L"\b", L"", 1},
};

} // namespace kiv::test
