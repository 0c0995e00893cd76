#include "tools/pictures/PictureFolder.h"

#include "tools/pictures/PictureReader.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace kiv::pictures
{

namespace fs = std::filesystem;

PictureFolder ReadPictureFolder(const fs::path& folder)
{
    if (!fs::is_directory(folder))
        throw std::runtime_error(folder.string() + ": there is no such folder");
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    {
        if (entry.path().extension() == ".pix")
            files.push_back(entry.path());
    }
    if (files.empty())
        throw std::runtime_error(folder.string() + ": the folder holds no .pix file");
    std::ranges::sort(files);

    PictureFolder result;
    for (const fs::path& file : files)
    {
        std::ifstream text(file);
        if (!text)
        {
            result.errors.push_back(file.string() + ": the file cannot be opened");
            continue;
        }
        try
        {
            result.pictures.push_back({file.stem().string(), ReadPicture(file.string(), text)});
        }
        catch (const PictureError& error)
        {
            result.errors.emplace_back(error.what());
        }
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
