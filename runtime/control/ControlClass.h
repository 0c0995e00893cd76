#pragma once

#include <windows.h>

#include <oleidl.h>

namespace kiv
{

// What is fixed for all controls of a class: how the class is published and how a new one begins.
struct ControlClass
{
    CLSID Clsid;
    IID Properties; // its default dual interface
    IID Events;     // its default source dispinterface
    const wchar_t* Name;
    const wchar_t* Description;
    int ToolboxBitmap;      // resource number
    SIZE DefaultSize;       // twips, border included
    bool HasBorder = false; // a sunken one around the surface
};

// All controls are alike to a container: they draw anew when resized, cannot be the target of a link, stay
// active side by side and whenever they are visible, and want their site before they are loaded.
constexpr DWORD ControlMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                    OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

} // namespace kiv
