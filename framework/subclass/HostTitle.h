#pragma once

#include <string>

namespace kiv
{

// The title of the application that has loaded the library: its executable's file description, else its
// product name, else its file name without the extension.
std::wstring HostTitle();

} // namespace kiv
