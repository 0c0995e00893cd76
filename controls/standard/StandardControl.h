#pragma once

#include "framework/subclass/SubClass.h"
#include "runtime/control/PropertyTable.h"
#include "runtime/control/UserControl.h"

namespace kiv
{

// A control with the properties that most controls carry alike: BackColor, ForeColor, Enabled and Font. As
// they stand here they are those of the surface; a control with constituents passes them on.
class StandardControl : public UserControl
{
protected:
    using UserControl::UserControl;

    // For the control's table. defaultColor: a colour, or of the control, one.
    template<class Default>
    static constexpr auto BackColorProperty(Default defaultColor)
    {
        return Property<L"BackColor">(
            [](const StandardControl& control) { return control.BackColor(); },
            [](StandardControl& control, OLE_COLOR color) { control.BackColor(color); }, defaultColor);
    }
    template<class Default>
    static constexpr auto ForeColorProperty(Default defaultColor)
    {
        return Property<L"ForeColor">(
            [](const StandardControl& control) { return control.ForeColor(); },
            [](StandardControl& control, OLE_COLOR color) { control.ForeColor(color); }, defaultColor);
    }
    static constexpr auto EnabledProperty()
    {
        return Property<L"Enabled">([](const StandardControl& control) { return control.Enabled(); },
                                    [](StandardControl& control, bool state) { control.Enabled(state); },
                                    true);
    }
    // The default is the container's font, which is also as good as any where a host sets none.
    static constexpr auto FontProperty()
    {
        return Property<L"Font">([](const StandardControl& control) { return control.Font(); },
                                 [](StandardControl& control, const FontObject& font) { control.Font(font); },
                                 [](const StandardControl& control) { return control.Ambient().Font(); })
            .LetBy([](StandardControl& control, const FontObject& font) {
                control.Font(font ? font : control.Ambient().Font());
            })
            .Written(&SaveFont);
    }

    static void SaveFont(PropertyBag& bag, const wchar_t*, const FontObject& font, const FontObject& usual)
    {
        SaveFontProperty(bag, font, usual);
    }

    virtual OLE_COLOR BackColor() const { return TheSurface().BackColor(); }
    virtual void BackColor(OLE_COLOR newColor);
    virtual OLE_COLOR ForeColor() const { return TheSurface().ForeColor(); }
    virtual void ForeColor(OLE_COLOR newColor);
    virtual bool Enabled() const { return TheSurface().Enabled(); }
    virtual void Enabled(bool newState);
    const FontObject& Font() const { return TheSurface().Font(); }
    void Font(FontObject newFont);
    // Whether anybody is told of another font object is the control's to say.
    virtual void FontAssigned() { PropertyChanged(L"Font"); }

    // The font is as large as ever, and has another handle.
    void UserControl_ResolutionChanged() override { ApplyFont(); }
    // Lays the control out for its font.
    virtual void ApplyFont() = 0;
    // The font object reports that one of its attributes has changed.
    virtual void FontChanged() { ApplyFont(); }
};

} // namespace kiv
