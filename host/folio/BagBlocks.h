#pragma once

#include "host/container/PropertyBag.h"
#include "host/formfile/FormBlock.h"

#include <functional>

namespace kiv::host
{

// Between a control's part of a form file and its property bag. Fonts and pictures are nested properties:
//   BeginProperty Font … Name, Size, Weight, Charset, Italic, Underline, Strikethrough … EndProperty
//   BeginProperty Icon Picture … Data = "hexadecimal bytes of the picture's stream" … EndProperty
// Both throw ComError or std::invalid_argument, which says what cannot be kept.

// Keys for which skip answers true stay out of the bag. base gives a font's missing keys their values.
void ReadBlock(const FormBlock& block, const std::function<bool(const std::string& key)>& skip,
               IFontDisp* base, PropertyBag& bag);

// Keys that the bag does not hold stay as they are, except those in asked: what the control knows and no
// longer writes goes.
void WriteBlock(const PropertyBag& bag, const std::vector<std::wstring>& asked, FormBlock& block);

} // namespace kiv::host
