// Makes the library's icons and bitmaps from the text pictures and drawings in resources/pictures.

#include "tools/pictures/PictureFolder.h"
#include "tools/pictures/PictureSheet.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using namespace kiv::pictures;
namespace fs = std::filesystem;

void WriteResource(const std::string& name, const Picture& picture, const fs::path& folder)
{
    WriteFile(folder / (name + std::string(ResourceExtension(picture.kind))), MakeResourceFile(picture));
}

// CHECKMARK_200 ICON "checkmark_200.ico": as the library looks for it.
std::string ResourceLine(const std::string& fileName, PictureKind kind)
{
    std::string name = fileName;
    std::ranges::transform(name, name.begin(), [](unsigned char letter) { return std::toupper(letter); });
    return name + (kind == PictureKind::Icon ? " ICON \"" : " BITMAP \"") + fileName +
           std::string(ResourceExtension(kind)) + "\"\n";
}

// The pictures in their first size, and those that have a drawing in all others, with a script that names
// these.
void WriteResources(const std::vector<NamedPicture>& pictures, const fs::path& folder)
{
    fs::create_directories(folder);
    std::string script;
    for (const auto& [name, picture, drawing] : pictures)
    {
        WriteResource(name, picture, folder);
        if (drawing.empty())
            continue;
        for (const std::size_t percent : GrownPercents)
        {
            const std::string grownName = name + "_" + std::to_string(percent);
            WriteResource(grownName, Drawn(drawing, picture, percent), folder);
            script += ResourceLine(grownName, picture.kind);
        }
    }
    WriteFile(folder / "grown.rc", Bytes(script.begin(), script.end()));
}

// percent: 0 for the pictures as they are written, else their drawings in that size.
void WriteSheet(const std::vector<NamedPicture>& named, const fs::path& file, std::size_t percent)
{
    std::vector<Picture> pictures;
    for (const NamedPicture& each : named)
    {
        if (percent == 0)
            pictures.push_back(each.picture);
        else if (!each.drawing.empty())
            pictures.push_back(Drawn(each.drawing, each.picture, percent));
    }
    WriteFile(file, MakeTrueColourBitmap(MakeSheet(pictures)));
}

// A size that a picture can be looked at in: up to 400 %. 0 for anything else.
std::size_t PercentIn(const std::string& text)
{
    std::size_t percent = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, percent);
    return error == std::errc{} && stop == end && percent >= 100 && percent <= 400 ? percent : 0;
}

int Usage()
{
    std::cerr << "usage: kiv-pictures <folder of .pix and .draw files> <output folder>\n"
                 "       kiv-pictures --sheet <folder of .pix and .draw files> <sheet.bmp> [<percent>]\n"
                 "With a size in percent, from 100 to 400, the sheet shows what the drawings make.\n";
    return 2;
}

int Run(const std::vector<std::string>& arguments)
{
    const bool sheet = !arguments.empty() && arguments.front() == "--sheet";
    const bool sized = sheet && arguments.size() == 4;
    if (!sized && arguments.size() != (sheet ? 3u : 2u))
        return Usage();
    const std::size_t percent = sized ? PercentIn(arguments.back()) : 0;
    if (sized && percent == 0)
        return Usage();
    const std::size_t first = sheet ? 1 : 0;
    const PictureFolder source = ReadPictureFolder(arguments[first]);
    for (const std::string& error : source.errors)
        std::cerr << error << '\n';
    if (!source.errors.empty())
        return 1;
    if (sheet)
        WriteSheet(source.pictures, arguments[first + 1], percent);
    else
        WriteResources(source.pictures, arguments[first + 1]);
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
