#pragma once

#include "runtime/com/Variant.h"
#include "runtime/drawing/FontReference.h"

#include <wrl/client.h>

namespace kiv
{

// What the container says about itself. A container that says nothing is at run time, with the system's
// dialog font.
class AmbientProperties
{
public:
    // site: null for none.
    explicit AmbientProperties(IUnknown* site = nullptr);

    bool UserMode() const;
    // The container's, else that of window text.
    OLE_COLOR ForeColor() const;
    // How the container calls the control; empty when it does not say.
    std::wstring DisplayName() const;
    // A font object of one's own with the attributes of the container's: setting an attribute of a control's
    // font must not change the whole form's.
    FontObject Font() const;

private:
    std::optional<Variant> Get(DISPID property) const;

    Microsoft::WRL::ComPtr<IDispatch> container_;
};

} // namespace kiv
