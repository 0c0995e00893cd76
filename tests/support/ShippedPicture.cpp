#include "tests/support/ShippedPicture.h"

#include "tests/support/Files.h"

#include <filesystem>

namespace kiv::test
{

pictures::Picture ShippedPicture(const std::string& name)
{
    return ReadTextPicture(std::filesystem::path(RequiredVariable(L"KIV_SOURCE")) / "resources" / "pictures",
                           name);
}

} // namespace kiv::test
