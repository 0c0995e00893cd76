// Makes the library's icons and bitmaps from the text pictures in resources/pictures.

#include "tools/pictures/PictureFolder.h"
#include "tools/pictures/PictureSheet.h"

#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using namespace kiv::pictures;
namespace fs = std::filesystem;

void WriteResources(const std::vector<NamedPicture>& pictures, const fs::path& folder)
{
    fs::create_directories(folder);
    for (const auto& [name, picture] : pictures)
    {
        const std::string fileName = name + std::string(ResourceExtension(picture.kind));
        WriteFile(folder / fileName, MakeResourceFile(picture));
    }
}

void WriteSheet(const std::vector<NamedPicture>& named, const fs::path& file)
{
    std::vector<Picture> pictures;
    for (const NamedPicture& each : named)
        pictures.push_back(each.picture);
    WriteFile(file, MakeTrueColourBitmap(MakeSheet(pictures)));
}

int Run(const std::vector<std::string>& arguments)
{
    const bool sheet = !arguments.empty() && arguments.front() == "--sheet";
    if (arguments.size() != (sheet ? 3u : 2u))
    {
        std::cerr << "usage: kiv-pictures <folder of .pix files> <output folder>\n"
                     "       kiv-pictures --sheet <folder of .pix files> <sheet.bmp>\n";
        return 2;
    }
    const PictureFolder source = ReadPictureFolder(arguments[arguments.size() - 2]);
    for (const std::string& error : source.errors)
        std::cerr << error << '\n';
    if (!source.errors.empty())
        return 1;
    if (sheet)
        WriteSheet(source.pictures, arguments.back());
    else
        WriteResources(source.pictures, arguments.back());
    return 0;
}

} // namespace

int main(int count, char** values)
{
    try
    {
        return Run({values + 1, values + count});
    }
    catch (const std::exception& error)
    {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
