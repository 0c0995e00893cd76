#include "runtime/control/UserControl.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

HRESULT UserControl::SetClientSite(IOleClientSite* site) noexcept
{
    return Entry([&] {
        if (!site)
            Check(InPlaceDeactivate());
        // A site may be set once more while this one is asked what it is, or while the former one is let go
        // of: everything is known before anything changes, and what is replaced goes last.
        ComPtr<IOleClientSite> clientSite(site);
        ComPtr<IOleControlSite> controlSite;
        if (site)
            site->QueryInterface(IID_PPV_ARGS(&controlSite));
        AmbientProperties ambient(site);
        ExtenderProperties extender(site);
        clientSite_.Swap(clientSite);
        controlSite_.Swap(controlSite);
        std::swap(ambient_, ambient);
        std::swap(extender_, extender);
    });
}

HRESULT UserControl::GetClientSite(IOleClientSite** site) noexcept
{
    return site ? clientSite_.CopyTo(site) : E_POINTER;
}

HRESULT UserControl::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept
{
    return S_OK;
}

HRESULT UserControl::Close(DWORD saveOption) noexcept
{
    return Entry([&] {
        if (saveOption != OLECLOSE_NOSAVE && dirty_ && clientSite_)
            Check(ComPtr<IOleClientSite>(clientSite_)->SaveObject());
        Check(InPlaceDeactivate());
        if (adviseHolder_)
            adviseHolder_->SendOnClose();
    });
}

HRESULT UserControl::SetMoniker(DWORD, IMoniker*) noexcept
{
    return E_NOTIMPL;
}

HRESULT UserControl::GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept
{
    if (!moniker)
        return E_POINTER;
    *moniker = nullptr;
    const ComPtr<IOleClientSite> site = clientSite_;
    return Entry([&] { return site ? site->GetMoniker(assign, which, moniker) : E_UNEXPECTED; });
}

HRESULT UserControl::InitFromData(IDataObject*, BOOL, DWORD) noexcept
{
    return E_NOTIMPL;
}

HRESULT UserControl::GetClipboardData(DWORD, IDataObject** data) noexcept
{
    if (data)
        *data = nullptr;
    return E_NOTIMPL;
}

HRESULT UserControl::Update() noexcept
{
    return S_OK;
}

HRESULT UserControl::IsUpToDate() noexcept
{
    return S_OK;
}

HRESULT UserControl::GetUserClassID(CLSID* clsid) noexcept
{
    return GetClassID(clsid);
}

HRESULT UserControl::GetUserType(DWORD form, LPOLESTR* type) noexcept
{
    return type ? OleRegGetUserType(class_.Clsid, form, type) : E_POINTER;
}

HRESULT UserControl::SetExtent(DWORD aspect, SIZEL* size) noexcept
{
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT || size->cx < 0 || size->cy < 0)
        return E_INVALIDARG;
    return Entry([&] { SetSize(*size); });
}

HRESULT UserControl::GetExtent(DWORD aspect, SIZEL* size) noexcept
{
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *size = extent_;
    return S_OK;
}

HRESULT UserControl::Advise(IAdviseSink* sink, DWORD* connection) noexcept
{
    if (!connection)
        return E_POINTER;
    return Entry([&] {
        if (!adviseHolder_)
            Check(CreateOleAdviseHolder(&adviseHolder_));
        return adviseHolder_->Advise(sink, connection);
    });
}

HRESULT UserControl::Unadvise(DWORD connection) noexcept
{
    return Entry([&] { return adviseHolder_ ? adviseHolder_->Unadvise(connection) : OLE_E_NOCONNECTION; });
}

HRESULT UserControl::EnumAdvise(IEnumSTATDATA** connections) noexcept
{
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return adviseHolder_ ? adviseHolder_->EnumAdvise(connections) : S_OK;
}

HRESULT UserControl::GetMiscStatus(DWORD aspect, DWORD* status) noexcept
{
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? ControlMiscStatus : 0;
    return S_OK;
}

HRESULT UserControl::SetColorScheme(LOGPALETTE*) noexcept
{
    return E_NOTIMPL;
}

HRESULT UserControl::GetControlInfo(CONTROLINFO* info) noexcept
{
    if (!info)
        return E_POINTER;
    *info = {sizeof(CONTROLINFO), nullptr, 0, TakesReturn() ? DWORD{CTRLINFO_EATS_RETURN} : 0};
    accessKeys_.Describe(*info);
    return S_OK;
}

HRESULT UserControl::OnMnemonic(MSG* message) noexcept
{
    return Entry([&] {
        const wchar_t letter = accessKeys_.LetterOf(message);
        if (letter != 0 && activity_ != Activity::Inactive && TakesInput())
            UserControl_AccessKeyPress(letter);
    });
}

void UserControl::SetAccessKeys(std::wstring_view letters)
{
    accessKeys_.Letters(letters);
    TellAccessKeys();
}

void UserControl::TellAccessKeys()
{
    if (loading_ || toldAccessKeys_ == accessKeys_.Letters())
        return;
    toldAccessKeys_ = accessKeys_.Letters();
    if (const ComPtr<IOleControlSite> site = controlSite_)
        site->OnControlInfoChanged();
}

HRESULT UserControl::OnAmbientPropertyChange(DISPID property) noexcept
{
    // Design time and run time look different.
    return Entry([&] {
        if (property == DISPID_AMBIENT_USERMODE || property == DISPID_UNKNOWN)
            Refresh();
    });
}

HRESULT UserControl::GetClassInfo(ITypeInfo** typeInfo) noexcept
{
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    return Entry([&] { *typeInfo = LoadTypeInfo(class_.Clsid).Detach(); });
}

HRESULT UserControl::GetGUID(DWORD kind, GUID* guid) noexcept
{
    if (!guid)
        return E_POINTER;
    *guid = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? class_.Events : GUID_NULL;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

HRESULT UserControl::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept
{
    return Entry([&] { return EnumerateConnectionPoints({&events_, &notifications_}, points); });
}

HRESULT UserControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept
{
    if (!point)
        return E_POINTER;
    *point = nullptr;
    // A late-bound client knows the events by plain IDispatch only.
    if (iid == events_.Interface() || iid == IID_IDispatch)
        *point = &events_;
    else if (iid == notifications_.Interface())
        *point = &notifications_;
    if (!*point)
        return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

HRESULT UserControl::QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept
{
    if (!container || !control)
        return E_POINTER;
    return Entry([&] {
        const ULONG size = control->cbSize;
        *control = {};
        control->cbSize = size;
        Check(SetClientSite(container->pClientSite));
        if (container->pAdviseSink)
            Check(SetAdvise(DVASPECT_CONTENT, 0, static_cast<IAdviseSink*>(container->pAdviseSink)));
        if (container->pPropertyNotifySink)
            Check(notifications_.Advise(container->pPropertyNotifySink, &control->dwPropNotifyCookie));
        if (container->pUnkEventSink)
            Check(events_.Advise(container->pUnkEventSink, &control->dwEventCookie));
        control->dwMiscStatus = ControlMiscStatus;
        control->dwViewStatus = VIEWSTATUS_OPAQUE;
    });
}

HRESULT UserControl::SetContentExtent(LPSIZEL size) noexcept
{
    return SetExtent(DVASPECT_CONTENT, size);
}

HRESULT UserControl::GetContentExtent(LPSIZEL size) noexcept
{
    return GetExtent(DVASPECT_CONTENT, size);
}

HRESULT UserControl::InterfaceSupportsErrorInfo(REFIID iid) noexcept
{
    return iid == class_.Properties ? S_OK : S_FALSE;
}

} // namespace kiv
