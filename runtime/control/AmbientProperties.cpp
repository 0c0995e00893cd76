#include "runtime/control/AmbientProperties.h"

#include "runtime/drawing/Color.h"

#include <olectl.h>

namespace kiv
{

AmbientProperties::AmbientProperties(IUnknown* site)
{
    if (site)
        site->QueryInterface(IID_PPV_ARGS(&container_));
}

bool AmbientProperties::UserMode() const
{
    const std::optional<Variant> mode = Get(DISPID_AMBIENT_USERMODE);
    const std::optional<Variant> flag = mode ? mode->As(VT_BOOL) : std::nullopt;
    return flag ? flag->Bool() : true;
}

OLE_COLOR AmbientProperties::ForeColor() const
{
    const std::optional<Variant> color = Get(DISPID_AMBIENT_FORECOLOR);
    const std::optional<Variant> number = color ? color->As(VT_I4) : std::nullopt;
    return number ? static_cast<OLE_COLOR>(number->Long()) : SystemColor(COLOR_WINDOWTEXT);
}

std::wstring AmbientProperties::DisplayName() const
{
    const std::optional<Variant> name = Get(DISPID_AMBIENT_DISPLAYNAME);
    const std::optional<Variant> text = name ? name->As(VT_BSTR) : std::nullopt;
    return text ? text->Text() : std::wstring();
}

FontObject AmbientProperties::Font() const
{
    const std::optional<Variant> font = Get(DISPID_AMBIENT_FONT);
    FontObject object;
    if (font && font->Object() && SUCCEEDED(font->Object()->QueryInterface(IID_PPV_ARGS(&object))))
        return CloneFont(object);
    return CreateDefaultFont();
}

std::optional<Variant> AmbientProperties::Get(DISPID property) const
{
    if (!container_)
        return std::nullopt;
    // The container may answer by dropping this site.
    const Microsoft::WRL::ComPtr<IDispatch> container = container_;
    DISPPARAMS none = {};
    Variant value;
    if (FAILED(container->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                 value.Receive(), nullptr, nullptr)))
        return std::nullopt;
    return value;
}

} // namespace kiv
