#include "controls/choice/PicLite.h"

#include "controls/choice/Recolor.h"
#include "resources/ResourceIds.h"
#include "runtime/control/PropertyTable.h"
#include "runtime/drawing/MirroredDc.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

// The bitmap of a picture object, null when it holds something else.
HBITMAP BitmapIn(const ComPtr<IPictureDisp>& object)
{
    Picture picture;
    SHORT kind = PICTYPE_UNINITIALIZED;
    if (!object || FAILED(object.As(&picture)) || FAILED(picture->get_Type(&kind)) || kind != PICTYPE_BITMAP)
        return nullptr;
    return BitmapOf(picture);
}

bool IsSystemColor(OLE_COLOR color)
{
    return (color & 0x80000000) != 0;
}

// What a colour stands for now. Only the lowest byte of a system colour is looked at.
COLORREF PlainColor(OLE_COLOR color)
{
    return IsSystemColor(color) ? GetSysColor(static_cast<int>(color & 0xFF)) : color;
}

ComPtr<IPictureDisp> AsAutomation(const Picture& picture)
{
    ComPtr<IPictureDisp> object;
    if (picture)
        Check(picture.As(&object));
    return object;
}

} // namespace

const ControlClass PicLite::Class = {
    CLSID_PicLite,          __uuidof(_PicLite),  __uuidof(__PicLite), L"PicLite",
    L"KivControls.PicLite", KIV_TOOLBOX_PICLITE, {1440, 1440},
};

PicLite::PicLite(IUnknown* outer) : PicLiteMembers(Class, outer) {}

struct PicLite::Properties
{
    static constexpr PropertyTable Table{
        // The same picture is taken anew like any other.
        Field<L"Picture">(&PicLite::Picture, nullptr)
            .LetBy([](auto& control, const ComPtr<IPictureDisp>& picture) {
                control.Picture = picture;
                control.Recolor();
                control.Refresh();
                control.PropertyChanged(L"Picture");
            })
            .In(PropertyCategory::Appearance),
        Field<L"ReplaceColor">(&PicLite::ReplaceColor, 0).LetBy([](auto& control, OLE_COLOR color) {
            control.SetColor(control.ReplaceColor, color, L"ReplaceColor");
        }),
        Field<L"MaskColor">(&PicLite::MaskColor, 0).LetBy([](auto& control, OLE_COLOR color) {
            control.SetColor(control.MaskColor, color, L"MaskColor");
        }),
        Unstored<L"ResultPicture">([](auto& control) {
            return AsAutomation(control.ResultPicture);
        }).In(PropertyCategory::Appearance),
    };
};

// --- The control's life ---

void PicLite::UserControl_InitProperties()
{
    Properties::Table.Reset(*this);
    Recolor();
}

void PicLite::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Properties::Table.Read(*this, PropBag);
    Recolor();
}

void PicLite::UserControl_Paint()
{
    const HBITMAP bitmap = BitmapOf(ResultPicture);
    BITMAP header = {};
    if (!bitmap || GetObjectA(bitmap, sizeof header, &header) == 0)
        return;
    const Graphics graphics = TheSurface().AcquireGraphics();
    const MemoryDc memory(graphics.CompatibleWith());
    const Selection selected(memory.Get(), bitmap);
    // The host has the bitmap as well, and may be drawing with it.
    const UprightPictures upright(graphics.Dc());
    if (Holds(memory.Get(), bitmap))
        BitBlt(graphics.Dc(), 0, 0, header.bmWidth, header.bmHeight, memory.Get(), 0, 0, SRCCOPY);
}

void PicLite::UserControl_SystemColorsChanged()
{
    if (IsSystemColor(ReplaceColor) || IsSystemColor(MaskColor))
        Recolor();
}

void PicLite::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

// --- Properties ---

void PicLite::SetColor(OLE_COLOR& color, OLE_COLOR newColor, const wchar_t* name)
{
    if (newColor == color)
        return;
    color = newColor;
    Recolor();
    Refresh();
    PropertyChanged(name);
}

// For every control of the library in the thread.
HRESULT PicLite::SetAppTitle(BSTR* NewTitle) noexcept
{
    return NewTitle ? Member([&] { Module().AppTitle = Bstr::ViewOf(*NewTitle); }) : E_POINTER;
}

// --- For assistive tools ---

AccessibleInfo PicLite::Accessible() const
{
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_GRAPHIC;
    return info;
}

// What the form says of the picture; none of its labels belongs to it.
std::wstring PicLite::AccessibleName() const
{
    for (const wchar_t* property : {L"AccessibleName", L"ToolTipText", L"Name"})
        if (std::wstring text = Extender().Text(property); !text.empty())
            return text;
    return Ambient().DisplayName();
}

// --- The exchange ---

// System colours are resolved here and now: a later change is followed when the control's window hears of it.
void PicLite::Recolor()
{
    ResultPicture.Reset();
    const HBITMAP source = BitmapIn(Picture);
    if (!source)
        return;
    const COLORREF replace = PlainColor(ReplaceColor);
    const COLORREF mask = PlainColor(MaskColor);
    GdiObject<HBITMAP> recolored = Recolored(source, mask, replace);
    if (!recolored)
        return;
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = recolored.Get();
    Check(OleCreatePictureIndirect(&description, IID_IPicture, TRUE,
                                   reinterpret_cast<void**>(ResultPicture.GetAddressOf())));
    recolored.Release();
}

} // namespace kiv
