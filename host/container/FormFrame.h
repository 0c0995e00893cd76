#pragma once

#include "runtime/com/ComObject.h"

#include <oleidl.h>
#include <wrl/client.h>

namespace kiv::host
{

class ItemOwner;

// The form as the frame window of in-place activation. It has no tool bars, menus or borders to share.
class FormFrame final : public ComObject<Chain<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>>
{
public:
    explicit FormFrame(const ItemOwner& form) : form_(&form) {}
    void Detach();

    // The control that announced itself last, or null.
    IOleInPlaceActiveObject* ActiveObject() const { return activeObject_.Get(); }
    void ForgetActiveObject();

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) noexcept override;
    HRESULT STDMETHODCALLTYPE GetBorder(RECT* border) noexcept override;
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object,
                                              LPCOLESTR name) noexcept override;
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU shared, OLEMENUGROUPWIDTHS* widths) noexcept override;
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU shared, HOLEMENU menu, HWND object) noexcept override;
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU shared) noexcept override;
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR text) noexcept override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, WORD id) noexcept override;

private:
    const ItemOwner* form_;
    Microsoft::WRL::ComPtr<IOleInPlaceActiveObject> activeObject_;
};

} // namespace kiv::host
