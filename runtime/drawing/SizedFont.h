#pragma once

#include "runtime/drawing/Gdi.h"

#include <memory>

namespace kiv
{

// A font made by us.
using SizedFont = std::shared_ptr<const GdiObject<HFONT>>;

// A font like another one, but for its height, which is what a LOGFONT has. Those who want the same one at a
// time share it: a form has few fonts and many controls. Null when it cannot be made.
SizedFont FontOfHeight(HFONT like, LONG height);

} // namespace kiv
