#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv::bench
{

// What PicCommand and PicLite cost. parent: a visible window for them to be in. Throws ComError.
void RunPicCommandRows(IClassFactory* factory, HWND parent);
void RunPicLiteRows(IClassFactory* factory);

} // namespace kiv::bench
