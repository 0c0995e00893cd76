#include "runtime/control/UserControl.h"

#include "runtime/constituents/KeyState.h"
#include "runtime/core/Scoped.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

HRESULT UserControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) noexcept
{
    return Entry([&]() -> HRESULT {
        switch (verb)
        {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_UIACTIVATE:
            ActivateInPlace();
            ActivateUi();
            // An active one may have lost the focus to a window that was in front.
            if (activity_ == Activity::Ui && !surface_.ContainsFocus())
                FocusWindow().TakeFocus();
            return S_OK;
        case OLEIVERB_INPLACEACTIVATE:
            ActivateInPlace();
            return S_OK;
        case OLEIVERB_HIDE:
            Check(UIDeactivate());
            surface_.Show(false);
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        default:
            // A verb without a meaning here; the rule is to do the primary one and say so.
            if (verb < 0)
                return E_NOTIMPL;
            ActivateInPlace();
            ActivateUi();
            return OLEOBJ_S_INVALIDVERB;
        }
    });
}

void UserControl::ActivateInPlace()
{
    EnsureInitialized();
    if (deactivating_)
        throw ComError(OLE_E_NOT_INPLACEACTIVE);
    if (activity_ != Activity::Inactive)
    {
        surface_.Show(true);
        return;
    }
    if (activating_)
        throw ComError(OLE_E_NOT_INPLACEACTIVE);
    if (!clientSite_ || !surface_.hWnd())
        throw ComError(E_UNEXPECTED);
    const Scoped<bool> activating(activating_, true);
    const ComPtr<IOleClientSite> clientSite = clientSite_;
    ComPtr<IOleInPlaceSite> site;
    Check(clientSite.As(&site));
    if (site->CanInPlaceActivate() != S_OK)
        throw ComError(E_FAIL);
    Check(site->OnInPlaceActivate());
    if (clientSite_ != clientSite || !surface_.hWnd())
    {
        // The container has taken the control back meanwhile.
        site->OnInPlaceDeactivate();
        throw ComError(OLE_E_NOT_INPLACEACTIVE);
    }
    activity_ = Activity::InPlace;
    inPlaceSite_ = site;
    try
    {
        ShowIn(site.Get());
        if (clientSite_)
            ComPtr<IOleClientSite>(clientSite_)->ShowObject();
    }
    catch (...)
    {
        InPlaceDeactivate();
        throw;
    }
}

// Each answer of the container's may come after it has had the control deactivated.
void UserControl::ShowIn(IOleInPlaceSite* site)
{
    HWND parent = nullptr;
    RECT position = {};
    RECT clip = {};
    OLEINPLACEFRAMEINFO frameInfo = {};
    frameInfo.cb = sizeof frameInfo;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    Check(site->GetWindow(&parent));
    RequireActive();
    Check(site->GetWindowContext(&frame, &document, &position, &clip, &frameInfo));
    RequireActive();
    if (!IsWindow(parent))
        throw ComError(OLE_E_INVALIDHWND);
    frame_ = std::move(frame);
    document_ = std::move(document);
    surface_.MoveUnder(parent);
    FollowDirection();
    surface_.Place(position, clip, true);
    // One of the same size in pixels has not heard of it.
    FollowResolution();
}

void UserControl::RequireActive() const
{
    if (activity_ == Activity::Inactive)
        throw ComError(OLE_E_NOT_INPLACEACTIVE);
}

void UserControl::ActivateUi()
{
    if (activity_ != Activity::InPlace || deactivating_)
        return;
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    Check(site->OnUIActivate());
    // The container may have answered by deactivating.
    if (activity_ != Activity::InPlace)
        return;
    activity_ = Activity::Ui;
    if (!surface_.ContainsFocus())
        FocusWindow().TakeFocus();
    const auto announce = [this](ComPtr<IOleInPlaceUIWindow> window) {
        if (window && activity_ == Activity::Ui)
        {
            window->SetActiveObject(this, class_.Name);
            window->SetBorderSpace(nullptr);
        }
    };
    announce(frame_);
    announce(document_);
}

void UserControl::TakeFocus()
{
    if (activity_ == Activity::InPlace)
        ActivateUi();
    if (!surface_.ContainsFocus())
        FocusWindow().TakeFocus();
}

std::function<void(bool enabled)> UserControl::ModalTeller() const
{
    // Of its own: the control may be deactivated meanwhile.
    return [frame = frame_](bool enabled) {
        // Whatever it makes of it, the form appears and goes.
        if (frame)
            Boundary([&] { frame->EnableModeless(enabled); });
    };
}

HRESULT UserControl::UIDeactivate() noexcept
{
    return Entry([&] {
        if (activity_ != Activity::Ui)
            return;
        activity_ = Activity::InPlace;
        const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
        const ComPtr<IOleInPlaceUIWindow> document = document_;
        if (frame_)
            ComPtr<IOleInPlaceFrame>(frame_)->SetActiveObject(nullptr, nullptr);
        if (document)
            document->SetActiveObject(nullptr, nullptr);
        site->OnUIDeactivate(FALSE);
    });
}

HRESULT UserControl::InPlaceDeactivate() noexcept
{
    return Entry([&] {
        UIDeactivate();
        // The container may have answered by deactivating already. Its window may then go at once.
        if (deactivating_)
            surface_.Park();
        if (activity_ == Activity::Inactive || deactivating_)
            return;
        // Hiding a window that has the focus gives the focus to the container, which may think of giving it
        // back: until this is over the control cannot be activated.
        const Scoped<bool> deactivating(deactivating_, true);
        UserControl_Hide();
        surface_.Park();
        // One that had its focus before another window came in front does not get it back.
        if (away_)
            Leave();
        activity_ = Activity::Inactive;
        frame_.Reset();
        document_.Reset();
        const ComPtr<IOleInPlaceSite> site = std::move(inPlaceSite_);
        FollowDirection();
        site->OnInPlaceDeactivate();
    });
}

HRESULT UserControl::GetWindow(HWND* window) noexcept
{
    if (!window)
        return E_POINTER;
    *window = activity_ == Activity::Inactive ? nullptr : surface_.hWnd();
    return *window ? S_OK : E_FAIL;
}

HRESULT UserControl::ContextSensitiveHelp(BOOL) noexcept
{
    return E_NOTIMPL;
}

HRESULT UserControl::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept
{
    if (!position || !clip)
        return E_POINTER;
    if (activity_ == Activity::Inactive)
        return E_UNEXPECTED;
    return Entry([&] {
        FollowDirection();
        surface_.Place(*position, *clip, false);
        FollowResolution();
        FollowWindow();
    });
}

HRESULT UserControl::ReactivateAndUndo() noexcept
{
    return INPLACE_E_NOTUNDOABLE;
}

// Arrows and characters are the focused window's; what moves between controls or presses the form's buttons
// is the container's.
HRESULT UserControl::TranslateAccelerator(LPMSG message) noexcept
{
    if (!message)
        return E_POINTER;
    const bool isKey = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    const bool isContainers = isKey && (message->wParam == VK_TAB || message->wParam == VK_ESCAPE ||
                                        (message->wParam == VK_RETURN && !TakesReturn()));
    return Entry([&]() -> HRESULT {
        if (isContainers && Wants(message->wParam))
        {
            ::TranslateMessage(message);
            DispatchMessageA(message);
            return S_OK;
        }
        const ComPtr<IOleControlSite> site = controlSite_;
        if (!isContainers || !site)
            return S_FALSE;
        return site->TranslateAccelerator(message, static_cast<DWORD>(ShiftState()));
    });
}

HRESULT UserControl::OnFrameWindowActivate(BOOL) noexcept
{
    return S_OK;
}

HRESULT UserControl::OnDocWindowActivate(BOOL) noexcept
{
    return S_OK;
}

HRESULT UserControl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept
{
    return S_OK;
}

HRESULT UserControl::EnableModeless(BOOL) noexcept
{
    return S_OK;
}

} // namespace kiv
