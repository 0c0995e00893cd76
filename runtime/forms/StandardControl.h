#pragma once

#include "runtime/forms/DualControl.h"

namespace kiv
{

// A control with the properties that most controls carry alike: BackColor, ForeColor, Enabled and Font. As
// they stand here they are those of the surface; a control with constituents passes them on.
template<class Dual>
class StandardControl : public DualControl<Dual>
{
public:
    HRESULT STDMETHODCALLTYPE get_BackColor(OLE_COLOR* result) noexcept override
    {
        return this->Get(result, [&] { return BackColor(); });
    }
    HRESULT STDMETHODCALLTYPE put_BackColor(OLE_COLOR newColor) noexcept override
    {
        return this->Member([&] { BackColor(newColor); });
    }
    HRESULT STDMETHODCALLTYPE get_ForeColor(OLE_COLOR* result) noexcept override
    {
        return this->Get(result, [&] { return ForeColor(); });
    }
    HRESULT STDMETHODCALLTYPE put_ForeColor(OLE_COLOR newColor) noexcept override
    {
        return this->Member([&] { ForeColor(newColor); });
    }
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* result) noexcept override
    {
        return this->Get(result, [&] { return Enabled() ? VARIANT_TRUE : VARIANT_FALSE; });
    }
    HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL newState) noexcept override
    {
        return this->Member([&] { Enabled(newState != VARIANT_FALSE); });
    }
    HRESULT STDMETHODCALLTYPE get_Font(IFontDisp** result) noexcept override
    {
        return this->Get(result, [&] { return FontObject(Font()).Detach(); });
    }
    HRESULT STDMETHODCALLTYPE putref_Font(IFontDisp* newFont) noexcept override
    {
        // Without a font the container's is as good as any.
        return this->Member([&] { Font(newFont ? FontObject(newFont) : this->Ambient().Font()); });
    }

protected:
    using DualControl<Dual>::DualControl;

    virtual OLE_COLOR BackColor() const { return this->TheSurface().BackColor(); }
    virtual void BackColor(OLE_COLOR newColor)
    {
        this->TheSurface().BackColor(newColor);
        this->PropertyChanged(L"BackColor");
        this->Refresh();
    }
    virtual OLE_COLOR ForeColor() const { return this->TheSurface().ForeColor(); }
    virtual void ForeColor(OLE_COLOR newColor)
    {
        this->TheSurface().ForeColor(newColor);
        this->PropertyChanged(L"ForeColor");
        this->Refresh();
    }
    bool Enabled() const { return this->TheSurface().Enabled(); }
    virtual void Enabled(bool newState)
    {
        this->TheSurface().Enabled(newState);
        this->PropertyChanged(L"Enabled");
        this->Refresh();
    }
    const FontObject& Font() const { return this->TheSurface().Font(); }
    void Font(FontObject newFont)
    {
        this->TheSurface().Font(std::move(newFont), [this] { FontChanged(); });
        ApplyFont();
        this->PropertyChanged(L"Font");
    }

    // Lays the control out for its font.
    virtual void ApplyFont() = 0;
    // The font object reports that one of its attributes has changed.
    virtual void FontChanged() { ApplyFont(); }
};

} // namespace kiv
