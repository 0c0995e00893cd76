#pragma once

#include "tests/gui/HostedBox.h"
#include "tests/gui/HostedTest.h"

namespace kiv::test
{

// Base of the tests that answer number and date boxes with real keys.
class MaskedTest : public HostedTest
{
protected:
    HostedBox AddNumberBox(host::SiteOptions options = Placed())
    {
        return HostedBox(TheForm(), CLSID_NumberBox, std::move(options));
    }
    HostedBox AddDateBox(host::SiteOptions options = Placed())
    {
        return HostedBox(TheForm(), CLSID_DateBox, std::move(options));
    }
    // On a form that is shown, with the focus.
    HostedBox ShownNumberBox();
    HostedBox ShownDateBox();
};

} // namespace kiv::test
