#include "host/container/FormFrame.h"

#include "host/container/ItemOwner.h"

#include <utility>

namespace kiv::host
{

void FormFrame::Detach()
{
    form_ = nullptr;
    ForgetActiveObject();
}

void FormFrame::ForgetActiveObject()
{
    // Out of the member first: the control may come back here when it is released.
    const auto forgotten = std::move(activeObject_);
}

HRESULT FormFrame::GetWindow(HWND* window) noexcept
{
    if (!window)
        return E_POINTER;
    *window = form_ ? form_->Window() : nullptr;
    return *window ? S_OK : E_FAIL;
}

HRESULT FormFrame::ContextSensitiveHelp(BOOL) noexcept
{
    return E_NOTIMPL;
}

HRESULT FormFrame::GetBorder(RECT*) noexcept
{
    return INPLACE_E_NOTOOLSPACE;
}

HRESULT FormFrame::RequestBorderSpace(LPCBORDERWIDTHS) noexcept
{
    return INPLACE_E_NOTOOLSPACE;
}

HRESULT FormFrame::SetBorderSpace(LPCBORDERWIDTHS widths) noexcept
{
    // Null gives up all border space, which a form is always content with.
    return widths ? OLE_E_INVALIDRECT : S_OK;
}

HRESULT FormFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept
{
    if (!form_)
        return E_UNEXPECTED;
    activeObject_ = object;
    return S_OK;
}

HRESULT FormFrame::InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) noexcept
{
    return E_NOTIMPL;
}

HRESULT FormFrame::SetMenu(HMENU, HOLEMENU, HWND) noexcept
{
    return S_OK;
}

HRESULT FormFrame::RemoveMenus(HMENU) noexcept
{
    return E_NOTIMPL;
}

HRESULT FormFrame::SetStatusText(LPCOLESTR) noexcept
{
    // A form has no status bar; saying so would make some controls show a message instead.
    return S_OK;
}

HRESULT FormFrame::EnableModeless(BOOL) noexcept
{
    return S_OK;
}

HRESULT FormFrame::TranslateAccelerator(MSG*, WORD) noexcept
{
    return S_FALSE;
}

} // namespace kiv::host
