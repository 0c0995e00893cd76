#include "Container.h"

using Microsoft::WRL::ComPtr;

HRESULT Container::Show(REFCLSID clsid, const RECT& place)
{
    place_ = place;
    HRESULT result = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object_));
    if (FAILED(result))
        return result;
    // The controls want their site before they are made new or loaded.
    object_->SetClientSite(this);
    if (const auto persistence = Control<IPersistStreamInit>())
        persistence->InitNew();
    return object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, window_, &place_);
}

void Container::Close()
{
    if (point_)
        point_->Unadvise(cookie_);
    point_.Reset();
    if (object_)
    {
        object_->Close(OLECLOSE_NOSAVE);
        object_->SetClientSite(nullptr);
    }
    active_.Reset();
    object_.Reset();
}

HRESULT Container::Connect(REFIID events, EventSink::Handler handler)
{
    const auto points = Control<IConnectionPointContainer>();
    if (!points)
        return E_NOINTERFACE;
    const ComPtr<EventSink> sink(new EventSink(events, std::move(handler)));
    const HRESULT result = points->FindConnectionPoint(events, &point_);
    return FAILED(result) ? result : point_->Advise(sink.Get(), &cookie_);
}

void Container::Activate()
{
    object_->DoVerb(OLEIVERB_UIACTIVATE, nullptr, this, 0, window_, &place_);
}

HRESULT Container::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IOleClientSite)
        *object = static_cast<IOleClientSite*>(this);
    else if (iid == IID_IOleControlSite)
        *object = static_cast<IOleControlSite*>(this);
    else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow)
        *object = static_cast<IOleInPlaceSite*>(this);
    else if (iid == IID_IOleInPlaceFrame || iid == IID_IOleInPlaceUIWindow)
        *object = static_cast<IOleInPlaceFrame*>(this);
    else if (iid == IID_IDispatch)
        *object = static_cast<IDispatch*>(this);
    else
        *object = nullptr;
    return *object ? S_OK : E_NOINTERFACE;
}

HRESULT Container::GetContainer(IOleContainer** container)
{
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT Container::GetWindow(HWND* window)
{
    *window = window_;
    return S_OK;
}

HRESULT Container::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                    RECT* clip, OLEINPLACEFRAMEINFO* info)
{
    *frame = this;
    *document = nullptr;
    *place = place_;
    GetClientRect(window_, clip);
    info->fMDIApp = FALSE;
    info->hwndFrame = GetAncestor(window_, GA_ROOT);
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

// It needs more room, or less: here it gets what it asks for.
HRESULT Container::OnPosRectChange(LPCRECT place)
{
    place_ = *place;
    RECT clip = {};
    GetClientRect(window_, &clip);
    const auto inPlace = Control<IOleInPlaceObject>();
    return inPlace ? inPlace->SetObjectRects(&place_, &clip) : E_UNEXPECTED;
}

HRESULT Container::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR)
{
    active_ = object;
    return S_OK;
}

HRESULT Container::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT Container::Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                          UINT*)
{
    if (!result)
        return E_POINTER;
    switch (property)
    {
    case DISPID_AMBIENT_USERMODE: // the form is being answered, not designed
        result->vt = VT_BOOL;
        result->boolVal = VARIANT_TRUE;
        return S_OK;
    case DISPID_AMBIENT_LOCALEID:
        result->vt = VT_I4;
        result->lVal = static_cast<LONG>(GetUserDefaultLCID());
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}
