#pragma once

#include "host/formfile/FormBlock.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace kiv::host
{

// What a text in UTF-8 may begin with.
inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// What is wrong in a form file: "file:line: what", or "file: what" where no line is to blame.
struct FormError : std::runtime_error
{
    FormError(std::string_view file, int line, std::string_view what);
};

// Reads the text of a form file; file is its name for messages. Throws FormError at the first mistake.
FormDocument ParseForm(std::string_view text, std::string_view file);

// What ParseForm takes and no form can use: throws FormError, at the key's line, for keys of the form itself,
// of fonts and of pictures whose value has a wrong type or is out of range, and for a second default or
// cancel button.
void CheckForm(const FormDocument& document, std::string_view file);

// The text of a form file. What was read and not changed since comes out byte for byte.
std::string WriteForm(const FormDocument& document);

} // namespace kiv::host
