#pragma once

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
};

struct PictureFolder
{
    std::vector<NamedPicture> pictures; // in the order of their names
    std::vector<std::string> errors;    // one for each file that is no picture
};

// Reads every .pix file of a folder. Throws std::runtime_error if the folder cannot be read or has none.
PictureFolder ReadPictureFolder(const std::filesystem::path& folder);

// Throws std::runtime_error, and leaves no half-written file behind, if the file cannot be written.
void WriteFile(const std::filesystem::path& file, const Bytes& bytes);

} // namespace kiv::pictures
