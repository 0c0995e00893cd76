#pragma once

#include "tests/hostile/fuzz/Random.h"

#include <windows.h>

#include <objidl.h>
#include <wrl/client.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kiv::test
{

// How a storage lets its control down.
struct OddStorageManners
{
    HRESULT Opening = S_OK; // what is said of a stream to be read …
    HRESULT Making = S_OK;  // … and of one to be written
    bool NoStream = false;  // success is said, and none given
    std::size_t Readable = ~std::size_t{0};
    std::size_t Room = ~std::size_t{0};
    bool WritesShort = false; // instead of a failure where the room ends

    std::string Describe() const;
};
OddStorageManners AnyManners(Random& random);

// A storage whose one stream is these bytes; what is saved replaces them.
Microsoft::WRL::ComPtr<IStorage> MakeOddStorage(std::vector<std::uint8_t> contents,
                                                const OddStorageManners& manners);

} // namespace kiv::test
