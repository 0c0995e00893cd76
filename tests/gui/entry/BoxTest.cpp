#include "tests/gui/entry/BoxTest.h"

#include <KivControls.h>

namespace kiv::test
{

const std::vector<BoxRow> BoxRows = {
    {{"NumberBox"}, &CLSID_NumberBox, L"123-45-6789", L"123-45-6789", L"___-__-____", true},
    {{"DateBox"}, &CLSID_DateBox, L"01/05/01", L"01/05/01", L"__/__/__", true},
    {{"CurrencyBox"}, &CLSID_CurrencyBox, L"1234567", L"1234567", L"", false},
    {{"PercentBox"}, &CLSID_PercentBox, L"0.5", L"50.", L"", false},
};

HostedBox BoxTest::AddBox(host::SiteOptions options)
{
    return HostedBox(TheForm(), *GetParam().Class, std::move(options));
}

HostedBox BoxTest::ShownBox()
{
    HostedBox box = AddBox();
    AddElsewhere();
    ShowForm();
    box.Site().Focus();
    Settle();
    box.TakeEvents();
    return box;
}

} // namespace kiv::test
