#pragma once

#include "framework/subclass/ModuleData.h"

#include <KivMembers.h>

namespace kiv
{

// A bitmap with one colour exchanged for another, shown and handed out. Carries the library's SetAppTitle as
// well.
class PicLite final : public PicLiteMembers<PicLite, UserControl>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit PicLite(IUnknown* outer);

    // _PicLite
    HRESULT STDMETHODCALLTYPE SetAppTitle(BSTR* NewTitle) noexcept override;

protected:
    AccessibleInfo Accessible() const override;
    std::wstring AccessibleName() const override;

private:
    // The control's life, in its order.
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Paint() override;
    void UserControl_SystemColorsChanged() override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;

    void SetColor(OLE_COLOR& color, OLE_COLOR newColor, const wchar_t* name);
    void Recolor();

    Microsoft::WRL::ComPtr<IPictureDisp> Picture;
    OLE_COLOR MaskColor = 0;
    OLE_COLOR ReplaceColor = 0;
    kiv::Picture ResultPicture; // owns its bitmap
};

} // namespace kiv
