#include "tests/pictures/TextPicture.h"

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

} // namespace kiv::test
