#pragma once

#include "tests/support/RecordingSite.h"

#include <unknwn.h>

#include <map>
#include <string>

namespace kiv::test
{

// A number or date box on a recording site, as a host holds one: sited before it is loaded, and let go of in
// the usual order at the end (close, no site, release), after which nothing may hold on to the site.
class MaskedControl
{
public:
    explicit MaskedControl(REFCLSID classId);
    MaskedControl(const MaskedControl&) = delete;
    MaskedControl& operator=(const MaskedControl&) = delete;
    ~MaskedControl();

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
    // What the text box shows.
    std::wstring BoxText() const;
    // The property's type and value, for people.
    std::string Shown(const wchar_t* name) const;

private:
    Microsoft::WRL::ComPtr<RecordingSite> site_;
    Microsoft::WRL::ComPtr<IDispatch> control_;
};

// All that a box keeps, as its properties show it: the name of each with its value. The font's name, size and
// weight stand for the font.
using MaskedState = std::map<std::wstring, std::string>;
MaskedState StateOf(const MaskedControl& control);

} // namespace kiv::test
