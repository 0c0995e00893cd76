#pragma once

#include "tests/gui/HostedTest.h"
#include "tests/gui/lists/HostedCombo.h"

namespace kiv::test
{

using Events = std::vector<std::wstring>;

constexpr long BlankStatus = 0;
constexpr long PartialStatus = 1;
constexpr long CompleteStatus = 2;

// Base of the tests that answer a ChkCombo with real keys and clicks.
class ChkComboTest : public HostedTest
{
protected:
    static host::SiteOptions Wide() { return Placed({20, 10, 160, 34}); }

    HostedCombo AddCombo(const std::vector<long>& statuses = {}, host::SiteOptions options = Wide());
    // On a form that is shown, with the focus.
    HostedCombo ShownCombo(const std::vector<long>& statuses = {});

    // Until the control hands the focus on again, which it does once in ten milliseconds.
    static void WaitForTheNextHandOver();
    // A click of the left button on a place of the screen, and what follows from it.
    void ClickAt(POINT place);
    // Three items with Blank, Partial and Complete.
    static std::vector<long> OneOfEach() { return {BlankStatus, PartialStatus, CompleteStatus}; }
};

} // namespace kiv::test
