#include "tests/hostile/GuardedHeap.h"

#include "runtime/com/Errors.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace kiv::test
{

namespace
{

constexpr std::size_t PageSize = 4096;
// Enough that a freed page is not used again for a long time; a 32-bit process has no more to spare.
constexpr std::size_t PageCount = (std::size_t{512} << 20) / PageSize;
constexpr std::size_t Alignment = 2 * sizeof(void*);

// One after the other around a ring of pages. A block takes the pages that it needs and one behind them.
class Ring
{
public:
    Ring() :
        start_(
            static_cast<std::byte*>(VirtualAlloc(nullptr, PageCount * PageSize, MEM_RESERVE, PAGE_NOACCESS)))
    {
        if (!start_)
            ThrowLastError();
        pages_.resize(PageCount);
    }

    void* Take(std::size_t size)
    {
        const std::size_t needed = (std::max<std::size_t>(size, 1) + PageSize - 1) / PageSize;
        const std::size_t page = FindRoom(needed + 1);
        std::byte* const first = start_ + page * PageSize;
        if (page == PageCount || !VirtualAlloc(first, needed * PageSize, MEM_COMMIT, PAGE_READWRITE))
            return nullptr;
        for (std::size_t each = 0; each <= needed; ++each)
            pages_[page + each].InUse = true;
        pages_[page].Size = size;
        next_ = page + needed + 1;
        ++blocks_;
        ++made_;
        // At the end of its pages, as near as alignment allows; what is left there is looked at when it is
        // freed.
        std::byte* const block = first + (needed * PageSize - Rounded(size));
        std::memset(block + size, Fence, Rounded(size) - size);
        return block;
    }

    void GiveBack(void* block)
    {
        const std::size_t page = PageOf(block);
        const std::size_t size = SizeOf(block);
        const auto* const end = static_cast<const unsigned char*>(block) + size;
        if (std::any_of(end, end + (Rounded(size) - size), [](unsigned char byte) { return byte != Fence; }))
            std::abort(); // written behind its end
        const std::size_t taken = (std::max<std::size_t>(size, 1) + PageSize - 1) / PageSize;
        if (!VirtualFree(start_ + page * PageSize, taken * PageSize, MEM_DECOMMIT))
            std::abort();
        for (std::size_t each = 0; each <= taken; ++each)
            pages_[page + each] = {};
        --blocks_;
    }

    bool Holds(const void* address) const
    {
        return address >= start_ && address < start_ + PageCount * PageSize;
    }
    // Of a block that is in use; a second freeing, or one of something else, ends the process here.
    std::size_t SizeOf(const void* block) const
    {
        const Page& page = pages_[PageOf(block)];
        if (!page.InUse)
            std::abort();
        return page.Size;
    }
    std::size_t Blocks() const { return blocks_; }
    std::size_t Made() const { return made_; }

private:
    struct Page
    {
        std::size_t Size = 0;
        bool InUse = false;
    };

    static constexpr unsigned char Fence = 0xFD;

    static std::size_t Rounded(std::size_t size)
    {
        return (std::max<std::size_t>(size, 1) + Alignment - 1) / Alignment * Alignment;
    }
    std::size_t PageOf(const void* block) const
    {
        return static_cast<std::size_t>(static_cast<const std::byte*>(block) - start_) / PageSize;
    }
    std::size_t FindRoom(std::size_t needed) const
    {
        std::size_t page = next_;
        for (std::size_t looked = 0; looked < 2 * PageCount;)
        {
            if (page + needed > PageCount)
            {
                looked += PageCount - page;
                page = 0;
                continue;
            }
            std::size_t free = 0;
            while (free < needed && !pages_[page + free].InUse)
                ++free;
            if (free == needed)
                return page;
            page += free + 1;
            looked += free + 1;
        }
        return PageCount;
    }

    std::byte* const start_;
    std::vector<Page> pages_;
    std::size_t next_ = 0;
    std::size_t blocks_ = 0;
    std::size_t made_ = 0;
};

Ring& TheRing()
{
    // Never destroyed: the module gives its last blocks back when the process ends.
    static Ring& ring = *new Ring;
    return ring;
}

// Held while the ring is used: the module runs in several threads.
class Turn
{
public:
    Turn() { AcquireSRWLockExclusive(&Lock()); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() { ReleaseSRWLockExclusive(&Lock()); }

private:
    static SRWLOCK& Lock()
    {
        static SRWLOCK lock = SRWLOCK_INIT;
        return lock;
    }
};

void* GuardedMalloc(std::size_t size)
{
    const Turn turn;
    return TheRing().Take(size);
}

void* GuardedCalloc(std::size_t count, std::size_t size)
{
    if (size != 0 && count > SIZE_MAX / size)
        return nullptr;
    void* const block = GuardedMalloc(count * size);
    if (block)
        std::memset(block, 0, count * size);
    return block;
}

void GuardedFree(void* block)
{
    if (!block)
        return;
    const Turn turn;
    if (TheRing().Holds(block))
        TheRing().GiveBack(block);
    else
        std::free(block); // from before; this program and the module have the same C run-time
}

void* GuardedRealloc(void* block, std::size_t size)
{
    if (!block)
        return GuardedMalloc(size);
    if (!TheRing().Holds(block))
        return std::realloc(block, size);
    void* const larger = GuardedMalloc(size);
    if (!larger)
        return nullptr;
    std::size_t former = 0;
    {
        const Turn turn;
        former = TheRing().SizeOf(block);
    }
    std::memcpy(larger, block, std::min(former, size));
    GuardedFree(block);
    return larger;
}

// Where the module keeps the address of an imported function; null when it imports none of that name.
void** ImportOf(HMODULE module, const char* library, const char* name)
{
    auto* const base = reinterpret_cast<std::byte*>(module);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* each = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         each->Name != 0; ++each)
    {
        if (_stricmp(reinterpret_cast<const char*>(base + each->Name), library) != 0)
            continue;
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + each->OriginalFirstThunk);
        auto* addresses = reinterpret_cast<IMAGE_THUNK_DATA*>(base + each->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++addresses)
        {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                continue;
            const auto* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (std::strcmp(name, reinterpret_cast<const char*>(import->Name)) == 0)
                return reinterpret_cast<void**>(&addresses->u1.Function);
        }
    }
    return nullptr;
}

void Replace(HMODULE module, const char* name, void* replacement)
{
    void** const import = ImportOf(module, "msvcrt.dll", name);
    if (!import)
        return;
    DWORD former = 0;
    if (!VirtualProtect(import, sizeof(void*), PAGE_READWRITE, &former))
        ThrowLastError();
    *import = replacement;
    VirtualProtect(import, sizeof(void*), former, &former);
}

} // namespace

void GuardedHeap::PutUnder(HMODULE module)
{
    Replace(module, "malloc", reinterpret_cast<void*>(&GuardedMalloc));
    Replace(module, "calloc", reinterpret_cast<void*>(&GuardedCalloc));
    Replace(module, "realloc", reinterpret_cast<void*>(&GuardedRealloc));
    Replace(module, "free", reinterpret_cast<void*>(&GuardedFree));
    void** const import = ImportOf(module, "msvcrt.dll", "free");
    if (!import || *import != reinterpret_cast<void*>(&GuardedFree))
        throw ComError(E_UNEXPECTED);
}

std::size_t GuardedHeap::Blocks()
{
    const Turn turn;
    return TheRing().Blocks();
}

std::size_t GuardedHeap::Made()
{
    const Turn turn;
    return TheRing().Made();
}

bool GuardedHeap::Watches(const void* address)
{
    return TheRing().Holds(address);
}

} // namespace kiv::test
