#pragma once

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace kiv::host
{

class FormItem;
class PropertyBag;
class SiteObserver;

// Where a control's persisted state comes from, each through the persistence interface that goes with it.
// monostate: a new instance (InitNew), asked of the property bag, stream or storage interface, whichever the
// control has, in this order.
using LoadSource = std::variant<std::monostate, PropertyBag*, Microsoft::WRL::ComPtr<IStream>,
                                Microsoft::WRL::ComPtr<IStorage>>;

// How a site treats its control. The defaults are those of an ordinary form at run time.
struct SiteOptions
{
    std::wstring name;             // of the control on the form
    RECT bounds = {};              // pixels of the form; empty: the control's own size, at left and top
    FormItem* container = nullptr; // what it stands in; null: the form itself
    LoadSource load;
    short tabIndex = -1; // -1: after all that the form holds already
    bool tabStop = true;
    bool visible = true;
    bool activate = true; // in place, at once, when the control wants to be active while it is visible
    bool userMode = true; // false: the form is being designed

    // Ambient properties. Without an ambient font the form's font is given.
    bool giveAmbients = true; // false: the site has no ambient properties at all
    Microsoft::WRL::ComPtr<IFontDisp> ambientFont;
    std::optional<OLE_COLOR> ambientForeColor;
    std::optional<OLE_COLOR> ambientBackColor;

    // What kind of host the form is.
    bool quickActivate = true;              // use IQuickActivate where the control has it
    bool extendedControl = true;            // GetExtendedControl answers with the extended object
    std::vector<IID> refused;               // interfaces that the site does not answer
    std::shared_ptr<SiteObserver> observer; // or null
};

} // namespace kiv::host
