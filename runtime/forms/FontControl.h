#pragma once

#include "runtime/forms/DualControl.h"
#include "runtime/forms/PropertyTable.h"

namespace kiv
{

// A control with Enabled and Font, which as they stand here are those of the surface.
template<class Dual>
class FontControl : public DualControl<Dual>
{
public:
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

    // For the table of persisted properties.
    static constexpr auto StoredEnabled()
    {
        return Property(
            L"Enabled", [](const FontControl& control) { return control.Enabled(); },
            [](FontControl& control, bool state) { control.Enabled(state); }, true);
    }
    // The default is the container's font.
    static constexpr auto StoredFont()
    {
        return Property(
            L"Font", [](const FontControl& control) { return control.Font(); },
            [](FontControl& control, const FontObject& font) { control.Font(font); },
            [](const FontControl& control) { return control.Ambient().Font(); });
    }

    virtual bool Enabled() const { return this->TheSurface().Enabled(); }
    virtual void Enabled(bool newState)
    {
        this->TheSurface().Enabled(newState);
        this->PropertyChanged(L"Enabled");
        this->UserControl::Refresh(); // the interface may have one of its own
    }
    const FontObject& Font() const { return this->TheSurface().Font(); }
    void Font(FontObject newFont)
    {
        this->TheSurface().Font(std::move(newFont), [this] {
            // The font may be shared, and whoever else hears of a change may drop this control.
            const Microsoft::WRL::ComPtr<IUnknown> held(this->Outer());
            FontChanged();
        });
        ApplyFont();
        FontAssigned();
    }
    // Whether anybody is told of another font object is the control's to say.
    virtual void FontAssigned() { this->PropertyChanged(L"Font"); }

    // Lays the control out for its font.
    virtual void ApplyFont() = 0;
    // The font object reports that one of its attributes has changed.
    virtual void FontChanged() { ApplyFont(); }
};

} // namespace kiv
