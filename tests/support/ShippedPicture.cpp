#include "tests/support/ShippedPicture.h"

#include "tests/support/Files.h"

#include <filesystem>

namespace kiv::test
{

pictures::Picture ShippedPicture(const std::string& name, std::size_t percent)
{
    const std::filesystem::path folder =
        std::filesystem::path(RequiredVariable(L"KIV_SOURCE")) / "resources" / "pictures";
    return percent == 100 ? ReadTextPicture(folder, name) : ReadDrawnPicture(folder, name, percent);
}

} // namespace kiv::test
