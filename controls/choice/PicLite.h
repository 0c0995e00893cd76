#pragma once

#include "framework/ModuleData.h"
#include "runtime/forms/DualControl.h"

#include <KivControls.h>

namespace kiv
{

// A bitmap with one colour exchanged for another, shown and handed out. Carries the library's SetAppTitle as
// well.
class PicLite final : public DualControl<_PicLite>
{
public:
    static const ControlClass Class;

    explicit PicLite(IUnknown* outer);

    // _PicLite
    HRESULT STDMETHODCALLTYPE get_Picture(IPictureDisp** result) noexcept override;
    HRESULT STDMETHODCALLTYPE putref_Picture(IPictureDisp* newPicture) noexcept override;
    HRESULT STDMETHODCALLTYPE get_MaskColor(OLE_COLOR* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_MaskColor(OLE_COLOR* newColor) noexcept override;
    HRESULT STDMETHODCALLTYPE get_ReplaceColor(OLE_COLOR* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ReplaceColor(OLE_COLOR* newColor) noexcept override;
    HRESULT STDMETHODCALLTYPE get_ResultPicture(IPictureDisp** result) noexcept override;
    HRESULT STDMETHODCALLTYPE SetAppTitle(BSTR* NewTitle) noexcept override;

private:
    struct Persisted;

    // The control's life, in its order.
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Paint() override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;

    void SetColor(OLE_COLOR& color, const OLE_COLOR* newColor, const wchar_t* name);
    void Recolor();

    Microsoft::WRL::ComPtr<IPictureDisp> Picture;
    OLE_COLOR MaskColor = 0;
    OLE_COLOR ReplaceColor = 0;
    kiv::Picture ResultPicture; // owns its bitmap
};

} // namespace kiv
