#pragma once

#include <cstddef>
#include <ostream>

namespace kiv::test
{

// What this process has taken of the system, as far as the system can be asked.
struct ProcessResources
{
    std::size_t HeapBytes = 0; // in blocks in use, of all heaps
    std::size_t Handles = 0;   // files, events, threads and so on
    std::size_t GdiObjects = 0;
    std::size_t Windows = 0; // of the calling thread

    static ProcessResources Now();

    friend std::ostream& operator<<(std::ostream& out, const ProcessResources& resources);
};

} // namespace kiv::test
