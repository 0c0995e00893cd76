#include "tests/support/RecordingSite.h"

#include <gtest/gtest.h>

#include <olectl.h>

namespace kiv::test
{

RecordingSite::RecordingSite(SiteShape shape) : shape_(shape)
{
    if (shape_.Frame)
    {
        frame_ = MakeCom<RecordingFrame>(log_, window_.Handle(), false);
        document_ = MakeCom<RecordingFrame>(log_, window_.Handle(), true);
    }
    SetAmbient(DISPID_AMBIENT_USERMODE, Variant(true));
}

void RecordingSite::LetGo()
{
    for (const auto& frame : {frame_, document_})
    {
        if (frame)
            frame->LetGo();
    }
}

HRESULT RecordingSite::QueryInterface(REFIID iid, void** object) noexcept
{
    const bool leftOut = (!shape_.InPlace && (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow)) ||
                         (!shape_.ControlSite && iid == IID_IOleControlSite) ||
                         (!shape_.Ambients && iid == IID_IDispatch);
    if (!leftOut)
        return ComObject::QueryInterface(iid, object);
    *object = nullptr;
    return E_NOINTERFACE;
}

HRESULT RecordingSite::SaveObject() noexcept
{
    return log_->Arrived("SaveObject");
}

HRESULT RecordingSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept
{
    *moniker = nullptr;
    log_->Arrived("GetMoniker");
    return E_NOTIMPL;
}

HRESULT RecordingSite::GetContainer(IOleContainer** container) noexcept
{
    *container = nullptr;
    log_->Arrived("GetContainer");
    return E_NOINTERFACE;
}

HRESULT RecordingSite::ShowObject() noexcept
{
    return log_->Arrived("ShowObject");
}

HRESULT RecordingSite::OnShowWindow(BOOL show) noexcept
{
    return log_->Arrived(show ? "OnShowWindow(true)" : "OnShowWindow(false)");
}

HRESULT RecordingSite::RequestNewObjectLayout() noexcept
{
    log_->Arrived("RequestNewObjectLayout");
    return E_NOTIMPL;
}

HRESULT RecordingSite::GetWindow(HWND* window) noexcept
{
    const HRESULT answer = log_->Arrived("GetWindow");
    *window = SUCCEEDED(answer) ? window_.Handle() : nullptr;
    return answer;
}

HRESULT RecordingSite::ContextSensitiveHelp(BOOL) noexcept
{
    return log_->Arrived("ContextSensitiveHelp");
}

HRESULT RecordingSite::CanInPlaceActivate() noexcept
{
    return log_->Arrived("CanInPlaceActivate");
}

HRESULT RecordingSite::OnInPlaceActivate() noexcept
{
    return log_->Arrived("OnInPlaceActivate");
}

HRESULT RecordingSite::OnUIActivate() noexcept
{
    return log_->Arrived("OnUIActivate");
}

HRESULT RecordingSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                        RECT* position, RECT* clip, OLEINPLACEFRAMEINFO* information) noexcept
{
    *frame = nullptr;
    *document = nullptr;
    const HRESULT answer = log_->Arrived("GetWindowContext");
    if (FAILED(answer))
        return answer;
    frame_.CopyTo(frame);
    static_cast<void>(document_.CopyTo(IID_PPV_ARGS(document)));
    *position = position_;
    GetClientRect(window_.Handle(), clip);
    EXPECT_GE(information->cb, sizeof(OLEINPLACEFRAMEINFO));
    information->fMDIApp = FALSE;
    information->hwndFrame = window_.Handle();
    information->haccel = nullptr;
    information->cAccelEntries = 0;
    return S_OK;
}

HRESULT RecordingSite::Scroll(SIZE) noexcept
{
    return log_->Arrived("Scroll");
}

HRESULT RecordingSite::OnUIDeactivate(BOOL) noexcept
{
    return log_->Arrived("OnUIDeactivate");
}

HRESULT RecordingSite::OnInPlaceDeactivate() noexcept
{
    return log_->Arrived("OnInPlaceDeactivate");
}

HRESULT RecordingSite::DiscardUndoState() noexcept
{
    return log_->Arrived("DiscardUndoState");
}

HRESULT RecordingSite::DeactivateAndUndo() noexcept
{
    return log_->Arrived("DeactivateAndUndo");
}

HRESULT RecordingSite::OnPosRectChange(LPCRECT position) noexcept
{
    asked_ = *position;
    return log_->Arrived("OnPosRectChange");
}

HRESULT RecordingSite::OnControlInfoChanged() noexcept
{
    return log_->Arrived("OnControlInfoChanged");
}

HRESULT RecordingSite::LockInPlaceActive(BOOL) noexcept
{
    return log_->Arrived("LockInPlaceActive");
}

HRESULT RecordingSite::GetExtendedControl(IDispatch** extended) noexcept
{
    log_->Arrived("GetExtendedControl");
    *extended = Microsoft::WRL::ComPtr<IDispatch>(extender_).Detach();
    return *extended ? S_OK : E_NOTIMPL;
}

HRESULT RecordingSite::TransformCoords(POINTL*, POINTF*, DWORD) noexcept
{
    log_->Arrived("TransformCoords");
    return E_NOTIMPL;
}

HRESULT RecordingSite::TranslateAccelerator(MSG*, DWORD) noexcept
{
    log_->Arrived("TranslateAccelerator");
    return S_FALSE;
}

HRESULT RecordingSite::OnFocus(BOOL gotFocus) noexcept
{
    return log_->Arrived(gotFocus ? "OnFocus(true)" : "OnFocus(false)");
}

HRESULT RecordingSite::ShowPropertyFrame() noexcept
{
    log_->Arrived("ShowPropertyFrame");
    return E_NOTIMPL;
}

HRESULT RecordingSite::GetTypeInfoCount(UINT* count) noexcept
{
    *count = 0;
    return S_OK;
}

HRESULT RecordingSite::GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept
{
    return E_NOTIMPL;
}

HRESULT RecordingSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept
{
    return DISP_E_UNKNOWNNAME;
}

HRESULT RecordingSite::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                              EXCEPINFO*, UINT*) noexcept
{
    EXPECT_NE(flags & DISPATCH_PROPERTYGET, 0) << "ambient " << member;
    ambientsRead_.insert(member);
    if (failAmbients_)
        return E_FAIL;
    const auto found = ambients_.find(member);
    if (found == ambients_.end())
        return DISP_E_MEMBERNOTFOUND;
    return VariantCopy(result, found->second.Borrow());
}

} // namespace kiv::test
