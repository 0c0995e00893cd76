#pragma once

#include "runtime/core/Resolution.h"

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

#include <string>

namespace kiv
{

using Picture = Microsoft::WRL::ComPtr<IPicture>;

// The pictures that several controls share, by the names of their resources. One that could not be loaded is
// null.
struct SharedPictures
{
    Picture checkmark;
    Picture partial;
    Picture plus;
    Picture minus;
    Picture note;
    Picture graph;
    Picture weblink;
    Picture chkcmb_chk;
    Picture chkcmb_chk_sel;
    Picture chkcmb_par;
    Picture chkcmb_par_sel;
    Picture YNCLEAR;
    Picture YNSET;
    Picture YNMASK;
};

// Height and width of the icons among them in their first size, in pixels. The picture is in the upper left.
constexpr int SharedIconSize = 32;

// What the library keeps for one thread of the host: two threads never share any of it.
struct ModuleData
{
    kiv::SharedPictures SharedPictures;
    // The caption of every message box that the library shows.
    std::wstring AppTitle;
    // Whether Main has run in this thread.
    bool Started = false;
};

// The calling thread's data.
ModuleData& Module();

// The library's start-up: loads the shared pictures and sets AppTitle to the host's title. A picture that
// fails to load leaves its place empty.
void Main();

// The handle of a bitmap or an icon picture, null for no picture. The picture keeps it.
HBITMAP BitmapOf(const Picture& picture);
HICON IconOf(const Picture& picture);

// One of the shared pictures in a size; null when it could not be loaded. In the first size it is the
// module's own, any other is loaded when the thread first asks for it.
Picture PictureIn(PictureScale scale, Picture SharedPictures::*picture);

} // namespace kiv
