#include "tests/hostile/ProcessResources.h"

#include "tests/support/KnownPlatformGap.h"

#include <windows.h>

#include <winternl.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

extern "C" void* NTAPI RtlGetCurrentPeb(); // in no header

namespace kiv::test
{

namespace
{

std::size_t BytesIn(HANDLE heap)
{
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry = {};
    HeapLock(heap);
    while (HeapWalk(heap, &entry))
    {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
            bytes += entry.cbData;
    }
    HeapUnlock(heap);
    return bytes;
}

std::size_t HeapBytes()
{
    std::array<HANDLE, 64> heaps = {};
    const DWORD count = GetProcessHeaps(heaps.size(), heaps.data());
    std::size_t bytes = 0;
    for (DWORD each = 0; each < count && each < heaps.size(); ++each)
        bytes += BytesIn(heaps[each]);
    return bytes;
}

// Wine counts neither for GetProcessHandleCount nor for GetGuiResources; all handles of all processes, and
// the table of graphics objects, are there all the same.
std::size_t WineHandles()
{
    constexpr auto AllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    struct Entry
    {
        USHORT Process;
        USHORT Trace;
        UCHAR Type;
        UCHAR Flags;
        USHORT Handle;
        void* Object;
        ULONG Access;
    };
    std::vector<std::byte> answer(std::size_t{4} << 20);
    ULONG size = 0;
    if (NtQuerySystemInformation(AllHandles, answer.data(), static_cast<ULONG>(answer.size()), &size) != 0)
        return 0;
    ULONG count = 0;
    std::memcpy(&count, answer.data(), sizeof count);
    const auto* const entries = reinterpret_cast<const Entry*>(answer.data() + sizeof(void*));
    std::size_t own = 0;
    for (ULONG each = 0; each < count; ++each)
        own += entries[each].Process == GetCurrentProcessId();
    return own;
}

std::size_t WineGdiObjects()
{
    struct Entry
    {
        std::uint64_t Object;
        std::uint32_t Owner;
        std::uint16_t Unique;
        std::uint8_t Type;
        std::uint8_t Flags;
        std::uint64_t UserPointer;
    };
    constexpr std::size_t Most = 0x4000;
    constexpr std::size_t Offset = sizeof(void*) == 8 ? 0xF8 : 0x94;
    const auto* const block = static_cast<const std::byte*>(RtlGetCurrentPeb());
    const Entry* table = nullptr;
    std::memcpy(&table, block + Offset, sizeof table);
    std::size_t used = 0;
    for (std::size_t each = 0; table && each < Most; ++each)
        used += table[each].Type != 0;
    return used;
}

BOOL CALLBACK CountWindow(HWND, LPARAM count)
{
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

BOOL CALLBACK CountTopLevel(HWND window, LPARAM count)
{
    CountWindow(window, count);
    EnumChildWindows(window, &CountWindow, count);
    return TRUE;
}

} // namespace

ProcessResources ProcessResources::Now()
{
    ProcessResources now;
    now.HeapBytes = test::HeapBytes();
    if (RunsOnWine())
    {
        now.Handles = WineHandles();
        now.GdiObjects = WineGdiObjects();
    }
    else
    {
        DWORD handles = 0;
        GetProcessHandleCount(GetCurrentProcess(), &handles);
        now.Handles = handles;
        now.GdiObjects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    }
    EnumThreadWindows(GetCurrentThreadId(), &CountTopLevel, reinterpret_cast<LPARAM>(&now.Windows));
    return now;
}

std::ostream& operator<<(std::ostream& out, const ProcessResources& resources)
{
    return out << resources.HeapBytes << " bytes, " << resources.Handles << " handles, "
               << resources.GdiObjects << " graphics objects, " << resources.Windows << " windows";
}

} // namespace kiv::test
