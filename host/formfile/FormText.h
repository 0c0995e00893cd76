#pragma once

#include "host/formfile/FormBlock.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace kiv::host
{

// What is wrong with a form file: "file:line: what", or "file: what" for the file as a whole.
struct FormError : std::runtime_error
{
    FormError(std::string_view file, int line, std::string_view what);
};

// Reads the text of a form file; file is its name for messages. Throws FormError at the first mistake.
FormDocument ParseForm(std::string_view text, std::string_view file);

// The text of a form file. What was read and not changed since comes out byte for byte, except that lines end
// in one way and a byte order mark is dropped.
std::string WriteForm(const FormDocument& document);

} // namespace kiv::host
