#include "framework/subclass/ModuleData.h"

#include "framework/subclass/HostTitle.h"
#include "runtime/com/Module.h"
#include "runtime/com/PerThread.h"
#include "runtime/drawing/Gdi.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace kiv
{

namespace
{

constexpr int AsStored = 0;

struct SharedPicture
{
    const char* Name;
    Picture SharedPictures::*Place;
};

constexpr SharedPicture Icons[] = {
    {"checkmark", &SharedPictures::checkmark},
    {"partial", &SharedPictures::partial},
    {"plus", &SharedPictures::plus},
    {"minus", &SharedPictures::minus},
    {"note", &SharedPictures::note},
    {"graph", &SharedPictures::graph},
    {"weblink", &SharedPictures::weblink},
    {"chkcmb_chk", &SharedPictures::chkcmb_chk},
    {"chkcmb_chk_sel", &SharedPictures::chkcmb_chk_sel},
    {"chkcmb_par", &SharedPictures::chkcmb_par},
    {"chkcmb_par_sel", &SharedPictures::chkcmb_par_sel},
};

constexpr SharedPicture Bitmaps[] = {
    {"YNCLEAR", &SharedPictures::YNCLEAR},
    {"YNSET", &SharedPictures::YNSET},
    {"YNMASK", &SharedPictures::YNMASK},
};

// A picture object that owns the handle; null when it cannot be made.
Picture PictureOf(PICTDESC description)
{
    description.cbSizeofstruct = sizeof description;
    Picture picture;
    OleCreatePictureIndirect(&description, IID_IPicture, TRUE,
                             reinterpret_cast<void**>(picture.GetAddressOf()));
    return picture;
}

Picture LoadIconPicture(const char* name, int size)
{
    const auto icon =
        static_cast<HICON>(LoadImageA(ModuleInstance(), name, IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
    if (!icon)
        return nullptr;
    PICTDESC description = {};
    description.picType = PICTYPE_ICON;
    description.icon.hicon = icon;
    Picture picture = PictureOf(description);
    if (!picture)
        DestroyIcon(icon);
    return picture;
}

Picture LoadBitmapPicture(const char* name)
{
    // A DIB section goes into any device context, a printer's and a metafile's too.
    GdiObject<HBITMAP> bitmap(
        static_cast<HBITMAP>(LoadImageA(ModuleInstance(), name, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    if (!bitmap)
        return nullptr;
    PICTDESC description = {};
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.Get();
    Picture picture = PictureOf(description);
    if (picture)
        bitmap.Release();
    return picture;
}

// The pictures of a thread in other sizes than the first. One that could not be loaded is null, and is not
// tried again.
struct GrownPicture
{
    PictureScale Scale;
    Picture SharedPictures::*Which;
    Picture Loaded;
};
struct GrownPictures
{
    std::vector<GrownPicture> All;
};

Picture LoadGrown(Picture SharedPictures::*picture, const std::string& suffix)
{
    const auto isWanted = [&](const SharedPicture& each) { return each.Place == picture; };
    if (const auto* const icon = std::ranges::find_if(Icons, isWanted); icon != std::end(Icons))
        return LoadIconPicture((icon->Name + suffix).c_str(), AsStored);
    if (const auto* const bitmap = std::ranges::find_if(Bitmaps, isWanted); bitmap != std::end(Bitmaps))
        return LoadBitmapPicture((bitmap->Name + suffix).c_str());
    return nullptr;
}

void* HandleOf(const Picture& picture)
{
    OLE_HANDLE handle = 0;
    if (!picture || FAILED(picture->get_Handle(&handle)))
        return nullptr;
    return LongToHandle(static_cast<LONG>(handle));
}

} // namespace

ModuleData& Module()
{
    return PerThread<ModuleData>();
}

void Main()
{
    ModuleData& module = Module();
    for (const SharedPicture& icon : Icons)
        module.SharedPictures.*icon.Place = LoadIconPicture(icon.Name, SharedIconSize);
    for (const SharedPicture& bitmap : Bitmaps)
        module.SharedPictures.*bitmap.Place = LoadBitmapPicture(bitmap.Name);
    module.AppTitle = HostTitle();
    module.Started = true;
}

Picture PictureIn(PictureScale scale, Picture SharedPictures::*picture)
{
    if (scale == PictureScale())
        return Module().SharedPictures.*picture;
    auto& all = PerThread<GrownPictures>().All;
    const auto found = std::ranges::find_if(
        all, [&](const GrownPicture& each) { return each.Scale == scale && each.Which == picture; });
    if (found != all.end())
        return found->Loaded;
    Picture loaded = LoadGrown(picture, "_" + std::to_string(scale.Percent));
    all.push_back({scale, picture, loaded});
    return loaded;
}

HBITMAP BitmapOf(const Picture& picture)
{
    return static_cast<HBITMAP>(HandleOf(picture));
}

HICON IconOf(const Picture& picture)
{
    return static_cast<HICON>(HandleOf(picture));
}

} // namespace kiv
