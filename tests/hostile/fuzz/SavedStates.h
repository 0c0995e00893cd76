#pragma once

#include "tests/hostile/Host.h"
#include "tests/hostile/fuzz/Random.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kiv::test
{

// Streams that a control has saved, and what may become of one on its way.
class SavedStates
{
public:
    // Those of the host's control, which is loaded from the first one afterwards.
    explicit SavedStates(Host& host);

    const std::vector<std::uint8_t>& Good() const { return states_.front(); }
    // One that is damaged or made up, and what was done to it.
    struct Damaged
    {
        std::vector<std::uint8_t> Bytes;
        std::string What;
    };
    Damaged Damage(Random& random) const;

private:
    std::vector<std::vector<std::uint8_t>> states_;
};

// The bytes for people, as hexadecimal digits; the middle of many is left out.
std::string Hex(const std::vector<std::uint8_t>& bytes);

} // namespace kiv::test
