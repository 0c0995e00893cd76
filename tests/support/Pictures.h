#pragma once

#include "tests/support/Pixels.h"

#include <ocidl.h>
#include <wrl/client.h>

namespace kiv::test
{

// A picture object with these pixels, in a bitmap of the screen's kind. Throws ComError.
Microsoft::WRL::ComPtr<IPictureDisp> PictureOf(const Pixels& pixels);

// Of so many pixels in two colours, the first one in what is left of and above a place.
Pixels TwoColours(SIZE size, COLORREF first, COLORREF second, POINT where);

} // namespace kiv::test
