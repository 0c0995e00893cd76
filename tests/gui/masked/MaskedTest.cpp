#include "tests/gui/masked/MaskedTest.h"

namespace kiv::test
{

HostedBox MaskedTest::ShownNumberBox()
{
    HostedBox box = AddNumberBox();
    ShowForm();
    box.Site().Focus();
    box.TakeEvents();
    return box;
}

HostedBox MaskedTest::ShownDateBox()
{
    HostedBox box = AddDateBox();
    ShowForm();
    box.Site().Focus();
    box.TakeEvents();
    return box;
}

} // namespace kiv::test
