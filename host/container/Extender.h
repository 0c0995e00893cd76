#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/Variant.h"

#include <string>

namespace kiv::host
{

class ControlSite;

// The extended control: what a form adds to every control (Name, Left, Top, Width and Height in twips of what
// it stands in, Visible, Enabled, TabIndex, TabStop, Tag, HelpContextID, WhatsThisHelpID, ToolTipText,
// AccessibleName, LabelText (of the label before the control; not to be set), and Object, the control itself)
// in front of the control's own members, which are passed on.
class Extender final : public ComObject<IDispatch>
{
public:
    explicit Extender(ControlSite& site) : site_(&site) {}
    void Detach() { site_ = nullptr; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* members) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argument) noexcept override;

private:
    POINT Origin() const; // of what the control stands in
    Variant Get(DISPID member) const;
    void Put(DISPID member, const Variant& value);

    ControlSite* site_;
    std::wstring tag_;
    std::wstring toolTipText_;
    std::wstring accessibleName_;
    long helpContextId_ = 0;
    long whatsThisHelpId_ = 0;
};

} // namespace kiv::host
