#pragma once

#include "host/container/PropertyBag.h"
#include "host/formfile/FormText.h"

#include <functional>

namespace kiv::host
{

// Between a control's part of a form file and its property bag. Fonts and pictures are nested properties:
//   BeginProperty Font … Name, Size, Weight, Charset, Italic, Underline, Strikethrough … EndProperty
//   BeginProperty Icon Picture … Data = "hexadecimal bytes of the picture's stream" … EndProperty

// Of a block that CheckForm has found right. Keys for which skip answers true stay out of the bag. base gives
// a font's missing keys their values. Throws ComError, and FormError for a picture that cannot be read.
void ReadBlock(const FormBlock& block, std::string_view file,
               const std::function<bool(const std::string& key)>& skip, IFontDisp* base, PropertyBag& bag);

// What the bag holds, as keys and nested properties. Throws ComError or std::invalid_argument, which says
// what a form file cannot hold.
FormBlock WriteBlock(const PropertyBag& bag);

// Does to a block of a file what turned one state of a control into another; whatever else stands in it
// stays.
void ApplyChanges(const FormBlock& before, const FormBlock& now, FormBlock& block);

} // namespace kiv::host
