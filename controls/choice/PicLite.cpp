#include "controls/choice/PicLite.h"

#include "controls/choice/Recolor.h"
#include "resources/ResourceIds.h"
#include "runtime/forms/PropertyTable.h"

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

// What a colour stands for now. Only the lowest byte of a system colour is looked at.
COLORREF PlainColor(OLE_COLOR color)
{
    constexpr OLE_COLOR systemColor = 0x80000000;
    return (color & systemColor) != 0 ? GetSysColor(static_cast<int>(color & 0xFF)) : color;
}

HRESULT Copy(const Picture& picture, IPictureDisp** result)
{
    return picture ? picture->QueryInterface(__uuidof(IPictureDisp), reinterpret_cast<void**>(result)) : S_OK;
}

} // namespace

const ControlClass PicLite::Class = {
    CLSID_PicLite,          __uuidof(_PicLite),  __uuidof(__PicLite), L"PicLite",
    L"KivControls.PicLite", KIV_TOOLBOX_PICLITE, {1440, 1440},
};

PicLite::PicLite(IUnknown* outer) : DualControl(Class, outer) {}

struct PicLite::Persisted
{
    static constexpr PropertyTable Table{
        Field(L"Picture", &PicLite::Picture, nullptr),
        Field(L"ReplaceColor", &PicLite::ReplaceColor, 0),
        Field(L"MaskColor", &PicLite::MaskColor, 0),
    };
};

// --- The control's life ---

void PicLite::UserControl_InitProperties()
{
    Persisted::Table.Reset(*this);
    Recolor();
}

void PicLite::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Persisted::Table.Read(*this, PropBag);
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
    if (Holds(memory.Get(), bitmap))
        BitBlt(graphics.Dc(), 0, 0, header.bmWidth, header.bmHeight, memory.Get(), 0, 0, SRCCOPY);
}

void PicLite::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Persisted::Table.Write(*this, PropBag);
}

// --- Properties ---

HRESULT PicLite::get_Picture(IPictureDisp** result) noexcept
{
    return Get(result, [&] { return ComPtr<IPictureDisp>(Picture).Detach(); });
}

// The same picture is taken anew like any other.
HRESULT PicLite::putref_Picture(IPictureDisp* newPicture) noexcept
{
    return Member([&] {
        Picture = newPicture;
        Recolor();
        Refresh();
        PropertyChanged(L"Picture");
    });
}

HRESULT PicLite::get_MaskColor(OLE_COLOR* result) noexcept
{
    return Get(result, [&] { return MaskColor; });
}

HRESULT PicLite::put_MaskColor(OLE_COLOR* newColor) noexcept
{
    return newColor ? Member([&] { SetColor(MaskColor, newColor, L"MaskColor"); }) : E_POINTER;
}

HRESULT PicLite::get_ReplaceColor(OLE_COLOR* result) noexcept
{
    return Get(result, [&] { return ReplaceColor; });
}

HRESULT PicLite::put_ReplaceColor(OLE_COLOR* newColor) noexcept
{
    return newColor ? Member([&] { SetColor(ReplaceColor, newColor, L"ReplaceColor"); }) : E_POINTER;
}

void PicLite::SetColor(OLE_COLOR& color, const OLE_COLOR* newColor, const wchar_t* name)
{
    if (*newColor == color)
        return;
    color = *newColor;
    Recolor();
    Refresh();
    PropertyChanged(name);
}

HRESULT PicLite::get_ResultPicture(IPictureDisp** result) noexcept
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    return Member([&] { Check(Copy(ResultPicture, result)); });
}

// For every control of the library in the thread.
HRESULT PicLite::SetAppTitle(BSTR* NewTitle) noexcept
{
    return NewTitle ? Member([&] { Module().AppTitle = Bstr::ViewOf(*NewTitle); }) : E_POINTER;
}

// --- The exchange ---

// System colours are resolved here and now: a later change of theirs is not followed.
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
