#pragma once

#include "tests/support/RecordingSite.h"

#include <unknwn.h>

#include <string>

namespace kiv::test
{

// A control of any class on a recording site, as a host holds one: sited before it is loaded, and let go of
// in the usual order at the end (close, no site, release), after which nothing may hold on to the site.
class HeldControl
{
public:
    explicit HeldControl(REFCLSID classId, SiteShape shape = {});
    HeldControl(const HeldControl&) = delete;
    HeldControl& operator=(const HeldControl&) = delete;
    ~HeldControl();

    IDispatch* Get() const { return control_.Get(); }
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

    // By name; each holds the call to succeed.
    Variant Property(const wchar_t* name) const;
    void Put(const wchar_t* name, const Variant& value) const;
    // The property's type and value, for people.
    std::string Shown(const wchar_t* name) const;

private:
    Microsoft::WRL::ComPtr<RecordingSite> site_;
    Microsoft::WRL::ComPtr<IDispatch> control_;
};

} // namespace kiv::test
