#include "host/container/Ambients.h"

#include "host/container/ControlSite.h"
#include "host/container/ItemOwner.h"

#include <olectl.h>

namespace kiv::host
{

namespace
{

// System colours as automation names them.
constexpr OLE_COLOR SystemColour(int index)
{
    return 0x80000000U | static_cast<OLE_COLOR>(index);
}

Variant Colour(OLE_COLOR colour)
{
    return Variant(static_cast<long>(colour));
}

} // namespace

std::optional<Variant> AmbientProperty(const ControlSite& site, DISPID ambient)
{
    const SiteOptions& options = site.Options();
    switch (ambient)
    {
    case DISPID_AMBIENT_BACKCOLOR:
        return Colour(options.ambientBackColor.value_or(SystemColour(COLOR_BTNFACE)));
    case DISPID_AMBIENT_FORECOLOR:
        return Colour(options.ambientForeColor.value_or(SystemColour(COLOR_BTNTEXT)));
    case DISPID_AMBIENT_FONT:
        return Variant(static_cast<IDispatch*>(options.ambientFont ? options.ambientFont.Get()
                                                                   : site.Owner().FontObject()));
    case DISPID_AMBIENT_DISPLAYNAME:
        return Variant(std::wstring_view(site.Name()));
    case DISPID_AMBIENT_LOCALEID:
        return Variant(static_cast<long>(GetUserDefaultLCID()));
    case DISPID_AMBIENT_USERMODE:
        return Variant(options.userMode);
    case DISPID_AMBIENT_UIDEAD:
        return Variant(!options.userMode);
    case DISPID_AMBIENT_MESSAGEREFLECT:
    case DISPID_AMBIENT_SHOWHATCHING:
    case DISPID_AMBIENT_SHOWGRABHANDLES:
    case DISPID_AMBIENT_DISPLAYASDEFAULT:
        return Variant(false);
    case DISPID_AMBIENT_SUPPORTSMNEMONICS:
    case DISPID_AMBIENT_AUTOCLIP:
        return Variant(true);
    case DISPID_AMBIENT_SCALEUNITS:
        return Variant(L"Twip");
    case DISPID_AMBIENT_APPEARANCE:
        return Variant(static_cast<short>(1));
    case DISPID_AMBIENT_RIGHTTOLEFT:
        return Variant((GetWindowLongPtrW(site.Owner().Window(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0);
    default:
        return std::nullopt;
    }
}

} // namespace kiv::host
