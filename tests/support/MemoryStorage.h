#pragma once

#include <windows.h>

#include <objidl.h>
#include <wrl/client.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kiv::test
{

// A structured storage in memory, as a host keeps an embedded object in one.
Microsoft::WRL::ComPtr<IStorage> MakeMemoryStorage();

// The streams of a storage as name and content, in order of name.
std::vector<std::pair<std::wstring, std::vector<std::uint8_t>>> ContentOf(IStorage* storage);

} // namespace kiv::test
