#include "runtime/control/ExtenderProperties.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

ExtenderProperties::ExtenderProperties(IUnknown* site)
{
    if (site)
        site->QueryInterface(IID_PPV_ARGS(&site_));
}

Variant ExtenderProperties::Get(const wchar_t* property) const
{
    // The container may answer by dropping its site.
    const ComPtr<IOleControlSite> site = site_;
    ComPtr<IDispatch> extender;
    if (!site || FAILED(site->GetExtendedControl(&extender)) || !extender)
        return Variant();
    LPOLESTR name = const_cast<LPOLESTR>(property);
    DISPID id = DISPID_UNKNOWN;
    DISPPARAMS none = {};
    Variant value;
    if (FAILED(extender->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id)) ||
        FAILED(extender->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                value.Receive(), nullptr, nullptr)))
        return Variant();
    return value;
}

std::wstring ExtenderProperties::Text(const wchar_t* property) const
{
    const std::optional<Variant> text = Get(property).As(VT_BSTR);
    return text ? text->Text() : std::wstring();
}

} // namespace kiv
