#include "tests/pictures/TextPicture.h"

#include "tools/pictures/Drawing.h"
#include "tools/pictures/PictureReader.h"

#include <fstream>
#include <stdexcept>

namespace kiv::test
{

pictures::Picture ReadTextPicture(const std::filesystem::path& folder, const std::string& name)
{
    const std::filesystem::path file = folder / (name + ".pix");
    std::ifstream text(file);
    if (!text)
        throw std::runtime_error(file.string() + ": the file cannot be opened");
    return pictures::ReadPicture(file.string(), text);
}

pictures::Picture ReadDrawnPicture(const std::filesystem::path& folder, const std::string& name,
                                   std::size_t percent)
{
    const pictures::Picture first = ReadTextPicture(folder, name);
    const std::filesystem::path file = folder / (name + ".draw");
    std::ifstream text(file);
    if (!text)
        throw std::runtime_error(file.string() + ": the file cannot be opened");
    return pictures::Drawn(pictures::ReadDrawing(file.string(), text, first.kind), first, percent);
}

} // namespace kiv::test
