#pragma once

#include "tests/com/HeldControl.h"

#include <KivControls.h>

namespace kiv::test
{

// A YesNo on a recording site, called early-bound.
class SitedControl : public HeldControl
{
public:
    explicit SitedControl(SiteShape shape = {}) : HeldControl(CLSID_YesNo, shape), control_(Query<_YesNo>())
    {
    }

    _YesNo* operator->() const { return control_.Get(); }
    _YesNo* Get() const { return control_.Get(); }

private:
    Microsoft::WRL::ComPtr<_YesNo> control_;
};

} // namespace kiv::test
