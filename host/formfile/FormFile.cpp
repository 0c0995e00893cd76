#include "host/formfile/FormFile.h"

#include <fstream>
#include <sstream>

namespace kiv::host
{

FormDocument LoadFormFile(const std::filesystem::path& path)
{
    const std::string name = path.string();
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw FormError(name, 0, "cannot be opened");
    std::ostringstream text;
    // An empty file leaves the stream failed without anything being wrong.
    if (file.peek() != std::ifstream::traits_type::eof())
        text << file.rdbuf();
    if (file.bad() || text.bad())
        throw FormError(name, 0, "cannot be read");
    return ParseForm(text.view(), name);
}

void SaveFormFile(const std::filesystem::path& path, const FormDocument& document)
{
    const std::string text = WriteForm(document);
    std::filesystem::path fresh = path;
    fresh += ".new";
    {
        std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
        file.write(text.data(), static_cast<std::streamsize>(text.size()));
        file.close();
        if (!file)
        {
            std::error_code ignored;
            std::filesystem::remove(fresh, ignored);
            throw FormError(path.string(), 0, "cannot be written");
        }
    }
    std::error_code error;
    std::filesystem::rename(fresh, path, error);
    if (error)
    {
        std::error_code ignored;
        std::filesystem::remove(fresh, ignored);
        throw FormError(path.string(), 0, "cannot be replaced: " + error.message());
    }
}

} // namespace kiv::host
