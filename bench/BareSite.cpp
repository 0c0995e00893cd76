#include "bench/BareSite.h"

#include "runtime/com/Errors.h"
#include "runtime/com/MakeCom.h"

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

HRESULT BareSite::GetWindow(HWND* window) noexcept
{
    *window = parent_;
    return S_OK;
}

HRESULT BareSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                   LPRECT clip, LPOLEINPLACEFRAMEINFO info) noexcept
{
    *frame = nullptr;
    *document = nullptr;
    *position = place_;
    *clip = place_;
    info->hwndFrame = parent_;
    return S_OK;
}

HostedControl::HostedControl(IClassFactory* factory, HWND parent, const RECT& place) :
    site_(MakeCom<BareSite>(parent, place))
{
    Check(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object_)));
    Check(object_->SetClientSite(site_.Get()));
    ComPtr<IPersistStreamInit> persist;
    Check(object_.As(&persist));
    Check(persist->InitNew());
    Check(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, parent, &place));
}

HostedControl::~HostedControl()
{
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
}

HWND HostedControl::Window() const
{
    ComPtr<IOleInPlaceObject> active;
    HWND window = nullptr;
    Check(object_.As(&active));
    Check(active->GetWindow(&window));
    return window;
}

} // namespace kiv::bench
