#pragma once

#include "tools/typelib/TypeLibrary.h"

#include <string>
#include <string_view>

namespace kiv::typelib
{
// The hash by which automation looks a name up; it takes letters of either case, w and v, and y and u for the
// same.
std::uint16_t NameHash(std::string_view name);

// The library's names, each held once for all its uses, and the hash chains that lead to them: a name with
// hash h is in chain h & 0x7f, and a chain goes from the highest offset to the lowest.
class NameTable
{
public:
    // Checks every name's hash and every chain.
    explicit NameTable(const TypeLibrary& library);

    // The name at this offset of the name table; an error where none begins.
    std::string At(std::uint32_t offset) const;

    // Both names must be of the same length, and no other name may be equal to the new one, ignoring case.
    void Rename(std::uint32_t offset, std::string_view name);

    void Store(TypeLibrary& library) const;

private:
    struct Chains
    {
        Bytes Names;
        Bytes Heads;
    };
    Chains LinkChains() const;

    Bytes names_;
    std::vector<std::uint32_t> offsets_; // ascending
};
} // namespace kiv::typelib
