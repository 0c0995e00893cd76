#pragma once

#include "controls/amount/AmountFilter.h"

#include <string_view>

namespace kiv::test
{

// The box that a row's text draws: "1[23]4" with "23" selected, "1|2" with the caret between.
BoxState BoxOf(std::wstring_view drawn);

// A text box behind a filter.
struct TypedBox
{
    BoxState Box;
    int Changes = 0;

    // What the filter left, and then what a text box does with the character.
    void Take(const FilteredKey& key);
};

} // namespace kiv::test
