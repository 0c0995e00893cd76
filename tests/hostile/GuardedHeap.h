#pragma once

#include <windows.h>

#include <cstddef>

namespace kiv::test
{

// A heap under a module of this process, in place of the one of its C run-time. Every block ends right before
// a page that nobody may touch, and one that is freed becomes such a page itself, for as long as there is
// room for others: what is read or written after its end, or after it was freed, faults at that very
// instruction.
class GuardedHeap
{
public:
    // Under the module from now on and for good: blocks from before are freed by the heap that they are from.
    static void PutUnder(HMODULE module);

    // Blocks that the module holds.
    static std::size_t Blocks();
    // Made since the beginning.
    static std::size_t Made();

    // For a report: whether an address lies in a block that was freed, or behind one that was not.
    static bool Watches(const void* address);
};

} // namespace kiv::test
