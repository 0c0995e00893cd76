#include "tests/gui/Blow.h"

namespace kiv::test
{

void Strike(Blow blow, host::Form& form, host::ControlSite& site)
{
    switch (blow)
    {
    case Blow::Deactivate:
        EXPECT_HRESULT_SUCCEEDED(site.Deactivate());
        break;
    case Blow::Close:
        EXPECT_HRESULT_SUCCEEDED(site.Close());
        break;
    case Blow::Remove:
        form.Remove(site);
        break;
    case Blow::DestroyForm:
        form.Destroy();
        break;
    }
}

} // namespace kiv::test
