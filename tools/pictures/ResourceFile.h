#pragma once

#include "tools/pictures/Picture.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace kiv::pictures
{

using Bytes = std::vector<std::uint8_t>;

// The file that the resource compiler takes for a picture: .ico with one 16-colour image, 32x32 or, in a
// direction in which the picture is larger, as large as that, the picture in its top-left corner; .bmp with
// 16 colours or, for a toolbox image, 24 bits.
Bytes MakeResourceFile(const Picture& picture);
std::string_view ResourceExtension(PictureKind kind);

// A 24-bit .bmp; what is transparent takes the picture's background.
Bytes MakeTrueColourBitmap(const Picture& picture);

} // namespace kiv::pictures
