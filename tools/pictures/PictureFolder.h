#pragma once

#include "tools/pictures/Drawing.h"
#include "tools/pictures/Picture.h"
#include "tools/pictures/ResourceFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace kiv::pictures
{

struct NamedPicture
{
    std::string name; // the file's name without .pix
    Picture picture;
    // From which it is made in other sizes: the file of the same name with .draw. Empty where there is none.
    Drawing drawing;
};

struct PictureFolder
{
    std::vector<NamedPicture> pictures; // in the order of their names
    std::vector<std::string> errors;    // one for each file that is no picture, or no drawing of one
};

// Reads every .pix and .draw file of a folder. Throws std::runtime_error if the folder cannot be read or has
// none.
PictureFolder ReadPictureFolder(const std::filesystem::path& folder);

// Throws std::runtime_error, and leaves no half-written file behind, if the file cannot be written.
void WriteFile(const std::filesystem::path& file, const Bytes& bytes);

} // namespace kiv::pictures
