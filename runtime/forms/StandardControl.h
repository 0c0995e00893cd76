#pragma once

#include "runtime/forms/FontControl.h"

namespace kiv
{

// A control with the properties that most controls carry alike: BackColor, ForeColor, Enabled and Font. As
// they stand here they are those of the surface; a control with constituents passes them on.
template<class Dual>
class StandardControl : public FontControl<Dual>
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

protected:
    using FontControl<Dual>::FontControl;

    // For the table of persisted properties. defaultColor: a colour, or of the control, one.
    template<class Default>
    static constexpr auto StoredBackColor(Default defaultColor)
    {
        return Property(
            L"BackColor", [](const StandardControl& control) { return control.BackColor(); },
            [](StandardControl& control, OLE_COLOR color) { control.BackColor(color); }, defaultColor);
    }
    template<class Default>
    static constexpr auto StoredForeColor(Default defaultColor)
    {
        return Property(
            L"ForeColor", [](const StandardControl& control) { return control.ForeColor(); },
            [](StandardControl& control, OLE_COLOR color) { control.ForeColor(color); }, defaultColor);
    }

    virtual OLE_COLOR BackColor() const { return this->TheSurface().BackColor(); }
    virtual void BackColor(OLE_COLOR newColor)
    {
        this->TheSurface().BackColor(newColor);
        this->PropertyChanged(L"BackColor");
        this->UserControl::Refresh(); // a class may publish a Refresh of its own
    }
    virtual OLE_COLOR ForeColor() const { return this->TheSurface().ForeColor(); }
    virtual void ForeColor(OLE_COLOR newColor)
    {
        this->TheSurface().ForeColor(newColor);
        this->PropertyChanged(L"ForeColor");
        this->UserControl::Refresh();
    }
};

} // namespace kiv
