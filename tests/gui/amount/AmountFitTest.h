#pragma once

#include "tests/gui/amount/AmountTest.h"

#include <functional>

namespace kiv::test
{

// Base of the tests of boxes that have too little room for their amounts.
class AmountFitTest : public AmountTest
{
protected:
    // A box that shows an amount which fits a label that is as wide as its text.
    struct Row
    {
        HostedBox Box;
        std::wstring Text;
        std::wstring Value;
    };

    // Both in turn, each on a form of its own that is shown, with the focus elsewhere.
    void ForBoth(const std::function<void(Row& row)>& test);
    // So many pixels for the label.
    void GiveRoom(HostedBox& box, int pixels);
    // How wide a text is in the form's font, which the boxes have.
    int WidthOf(std::wstring_view text);
    // As many as there is room for, and one at least.
    std::wstring Signs(int pixels);
};

} // namespace kiv::test
