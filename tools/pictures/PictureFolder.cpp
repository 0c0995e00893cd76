#include "tools/pictures/PictureFolder.h"

#include "tools/pictures/PictureReader.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace kiv::pictures
{

namespace fs = std::filesystem;

namespace
{

std::vector<fs::path> FilesOf(const fs::path& folder, const char* extension)
{
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    {
        if (entry.path().extension() == extension)
            files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

// Hands the file's text to read, and notes what is wrong with it.
template<class Read>
void ReadText(const fs::path& file, std::vector<std::string>& errors, Read&& read)
{
    std::ifstream text(file);
    if (!text)
    {
        errors.push_back(file.string() + ": the file cannot be opened");
        return;
    }
    try
    {
        read(text);
    }
    catch (const PictureError& error)
    {
        errors.emplace_back(error.what());
    }
}

} // namespace

PictureFolder ReadPictureFolder(const fs::path& folder)
{
    if (!fs::is_directory(folder))
        throw std::runtime_error(folder.string() + ": there is no such folder");
    const std::vector<fs::path> files = FilesOf(folder, ".pix");
    if (files.empty())
        throw std::runtime_error(folder.string() + ": the folder holds no .pix file");

    PictureFolder result;
    for (const fs::path& file : files)
    {
        ReadText(file, result.errors, [&](std::istream& text) {
            result.pictures.push_back({file.stem().string(), ReadPicture(file.string(), text), {}});
        });
    }
    for (const fs::path& file : FilesOf(folder, ".draw"))
    {
        if (!fs::exists(fs::path(file).replace_extension(".pix")))
            result.errors.push_back(file.string() + ": there is no .pix file of that name");
        const auto picture = std::ranges::find(result.pictures, file.stem().string(), &NamedPicture::name);
        // One that is no picture has been told of.
        if (picture == result.pictures.end())
            continue;
        ReadText(file, result.errors, [&](std::istream& text) {
            picture->drawing = ReadDrawing(file.string(), text, picture->picture.kind);
        });
    }
    return result;
}

void WriteFile(const fs::path& file, const Bytes& bytes)
{
    std::ofstream out(file, std::ios::binary);
    if (!out)
        throw std::runtime_error(file.string() + ": the file cannot be created");
    std::ranges::for_each(bytes, [&](std::uint8_t byte) { out.put(static_cast<char>(byte)); });
    out.close();
    if (!out)
    {
        // A device or pipe that was given as the output is not ours to remove.
        std::error_code ignored;
        if (fs::is_regular_file(file, ignored))
            fs::remove(file, ignored);
        throw std::runtime_error(file.string() + ": the file cannot be written");
    }
}

} // namespace kiv::pictures
