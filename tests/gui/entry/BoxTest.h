#pragma once

#include "tests/gui/HostedBox.h"
#include "tests/gui/HostedTest.h"
#include "tests/native/core/NumberLocales.h"
#include "tests/support/NamedRow.h"
#include "tests/support/UserLocale.h"

namespace kiv::test
{

// A control with a text box.
struct BoxRow : NamedRow
{
    const CLSID* Class = nullptr;
    const wchar_t* Full = nullptr;  // an entry that the control takes as its Value and from the clipboard
    const wchar_t* Shown = nullptr; // as the text box then shows it
    const wchar_t* Blank = nullptr; // what it shows without one
    bool IsMasked = false;
};
extern const std::vector<BoxRow> BoxRows;

// Base of the tests that hold for each of these controls. The user writes numbers as in English.
class BoxTest : public HostedTest, public testing::WithParamInterface<BoxRow>
{
protected:
    HostedBox AddBox(host::SiteOptions options = Placed());
    // On a form that is shown, with the focus; a button comes after it.
    HostedBox ShownBox();

private:
    UserLocale english_{NumberLocales.front()};
};

} // namespace kiv::test
