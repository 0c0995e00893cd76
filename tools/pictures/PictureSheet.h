#pragma once

#include "tools/pictures/Picture.h"

#include <vector>

namespace kiv::pictures
{

// All pictures enlarged on one sheet, in the given order, each on the colour that it is drawn on.
Picture MakeSheet(const std::vector<Picture>& pictures);

} // namespace kiv::pictures
