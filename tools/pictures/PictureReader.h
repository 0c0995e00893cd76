#pragma once

#include "tools/pictures/Picture.h"

#include <iosfwd>
#include <stdexcept>
#include <string>

namespace kiv::pictures
{

// A mistake in a picture's text; what() reads "file:line: what is wrong".
class PictureError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Reads one text picture (resources/README.md describes the form). The file name serves the error messages.
Picture ReadPicture(const std::string& fileName, std::istream& text);

} // namespace kiv::pictures
