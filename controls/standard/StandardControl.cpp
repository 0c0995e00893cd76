#include "controls/standard/StandardControl.h"

namespace kiv
{

void StandardControl::BackColor(OLE_COLOR newColor)
{
    TheSurface().BackColor(newColor);
    PropertyChanged(L"BackColor");
    UserControl::Refresh(); // a class may publish a Refresh of its own
}

void StandardControl::ForeColor(OLE_COLOR newColor)
{
    TheSurface().ForeColor(newColor);
    PropertyChanged(L"ForeColor");
    UserControl::Refresh();
}

void StandardControl::Enabled(bool newState)
{
    TheSurface().Enabled(newState);
    PropertyChanged(L"Enabled");
    UserControl::Refresh();
}

void StandardControl::Font(FontObject newFont)
{
    TheSurface().Font(std::move(newFont), [this] {
        // The font may be shared, and whoever else hears of a change may drop this control.
        const Microsoft::WRL::ComPtr<IUnknown> held(Outer());
        FontChanged();
    });
    ApplyFont();
    FontAssigned();
}

} // namespace kiv
