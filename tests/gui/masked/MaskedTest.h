#pragma once

#include "tests/gui/HostedTest.h"
#include "tests/gui/masked/HostedBox.h"

#include <string_view>

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

    // Keys of the keyboard where it has them: characters, '\b' and '\x7F' (Delete).
    void Type(std::wstring_view keys);
};

using Texts = std::vector<std::wstring>;

} // namespace kiv::test
