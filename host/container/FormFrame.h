#pragma once

#include "runtime/com/ComObject.h"

#include <oleidl.h>

namespace kiv::host
{

class Form;

// The form as the frame window of in-place activation. It has no tool bars, menus or borders to share.
class FormFrame final : public ComObject<Chain<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>>
{
public:
    explicit FormFrame(Form& form) : form_(&form) {}
    void Detach() { form_ = nullptr; }

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
    Form* form_;
};

} // namespace kiv::host
