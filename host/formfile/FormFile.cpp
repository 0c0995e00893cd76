#include "host/formfile/FormFile.h"

#include "host/files/WholeFile.h"

namespace kiv::host
{

FormDocument LoadFormFile(const std::filesystem::path& path)
{
    const std::string name = path.string();
    FormDocument document = ParseForm(ReadFile(path), name);
    CheckForm(document, name);
    return document;
}

void SaveFormFile(const std::filesystem::path& path, const FormDocument& document)
{
    WriteFile(path, WriteForm(document));
}

} // namespace kiv::host
