#include "runtime/control/UserControl.h"

#include "runtime/access/WindowText.h"
#include "runtime/com/Bstr.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

// As a site that takes part itself calls what stands in it.
std::wstring NameBySite(IOleClientSite* site)
{
    ComPtr<IAccessible> accessible;
    if (!site || FAILED(site->QueryInterface(IID_PPV_ARGS(&accessible))))
        return {};
    const Variant self(long{CHILDID_SELF});
    Bstr name;
    return SUCCEEDED(accessible->get_accName(self.Get(), name.Receive())) ? name.String() : std::wstring();
}

} // namespace

// Whichever of its windows is asked, it is the control.
std::optional<LRESULT> UserControl::AnswerAccessible(HWND window, WPARAM wParam, LPARAM lParam)
{
    return accessible_.Answer(*this, window, surface_.hWnd(), wParam, lParam);
}

AccessibleInfo UserControl::Describe(int part) const
{
    const bool whole = part == CHILDID_SELF;
    AccessibleInfo info = whole ? Accessible() : AccessiblePart(part);
    const bool hasFocus = surface_.ContainsFocus();
    if (whole)
    {
        GetWindowRect(surface_.hWnd(), &info.Place);
        info.State |= hasFocus ? STATE_SYSTEM_FOCUSED : 0;
    }
    else
    {
        MapWindowPoints(surface_.hWnd(), nullptr, reinterpret_cast<POINT*>(&info.Place), 2);
        info.State |= hasFocus && part == FocusedPart() ? STATE_SYSTEM_FOCUSED : 0;
    }
    // A picture is there to be seen, unless its container lets it have the focus all the same.
    const bool takesFocus = hasFocus || info.Role != ROLE_SYSTEM_GRAPHIC;
    if (!surface_.Enabled())
        info.State |= STATE_SYSTEM_UNAVAILABLE;
    else if (takesFocus)
        info.State |= STATE_SYSTEM_FOCUSABLE;
    if (!IsWindowVisible(surface_.hWnd()))
        info.State |= STATE_SYSTEM_INVISIBLE;
    return info;
}

std::wstring UserControl::NameOf(int part) const
{
    return part == CHILDID_SELF ? AccessibleName() : AccessiblePart(part).Name;
}

// Each of these asks the container, which may do anything.
std::wstring UserControl::AccessibleName() const
{
    std::wstring name = Extender().Text(L"AccessibleName");
    if (name.empty())
        name = NameBySite(ComPtr<IOleClientSite>(clientSite_).Get());
    // Labels that are no windows only the container knows.
    if (name.empty())
        name = Extender().Text(L"LabelText");
    if (name.empty())
        name = PrecedingLabel(surface_.hWnd());
    return name.empty() ? Ambient().DisplayName() : name;
}

void UserControl::Announce(DWORD event, int part) const
{
    if (!loading_)
        kiv::Announce(event, FocusWindow().hWnd(), part);
}

bool UserControl::TakeAccessibleFocus(int)
{
    if (!TakesInput())
        return false;
    TakeFocus();
    return surface_.ContainsFocus();
}

} // namespace kiv
