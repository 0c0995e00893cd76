#pragma once

#include <windows.h>

#include <filesystem>

namespace kiv::host
{

// Writes the window as it looks, frame included where the system draws it, into a PNG file. Throws ComError.
void SavePicture(HWND window, const std::filesystem::path& file);

} // namespace kiv::host
