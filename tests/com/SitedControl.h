#pragma once

#include "tests/support/RecordingSite.h"

#include <KivControls.h>

#include <unknwn.h>

namespace kiv::test
{

// A YesNo on a recording site, as a host holds one: sited before it is loaded, and let go of in the usual
// order at the end (close, no site, release), after which nothing may hold on to the site.
class SitedControl
{
public:
    explicit SitedControl(SiteShape shape = {});
    SitedControl(const SitedControl&) = delete;
    SitedControl& operator=(const SitedControl&) = delete;
    ~SitedControl();

    _YesNo* operator->() const { return control_.Get(); }
    _YesNo* Get() const { return control_.Get(); }
    RecordingSite& Site() const { return *site_.Get(); }
    template<class Interface>
    Microsoft::WRL::ComPtr<Interface> Query() const
    {
        Microsoft::WRL::ComPtr<Interface> found;
        Check(control_.As(&found));
        return found;
    }

    // IPersistStreamInit::InitNew: a new control on a form.
    void InitNew() const;
    // Let go of before its time.
    void TearDown();

private:
    Microsoft::WRL::ComPtr<RecordingSite> site_;
    Microsoft::WRL::ComPtr<_YesNo> control_;
};

} // namespace kiv::test
