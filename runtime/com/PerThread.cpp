#include "runtime/com/PerThread.h"

#include "runtime/com/Errors.h"

#include <windows.h>

#include <vector>

namespace kiv
{

namespace
{

struct Entry
{
    const void* Key;
    std::unique_ptr<detail::ThreadDatum> Datum;
};

using Entries = std::vector<Entry>;

class Slot
{
public:
    Slot() : index_(TlsAlloc())
    {
        if (index_ == TLS_OUT_OF_INDEXES)
            throw ComError(E_OUTOFMEMORY);
    }
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;
    ~Slot() { TlsFree(index_); }

    Entries* Get() const { return static_cast<Entries*>(TlsGetValue(index_)); }
    void Set(Entries* entries) const { TlsSetValue(index_, entries); }

private:
    DWORD index_;
};

const Slot& TheSlot()
{
    static const Slot slot;
    return slot;
}

} // namespace

namespace detail
{

ThreadDatum& ThreadDatumOf(const void* key, ThreadDatumMaker make)
{
    const Slot& slot = TheSlot();
    if (!slot.Get())
        slot.Set(std::make_unique<Entries>().release());
    for (const Entry& entry : *slot.Get())
    {
        if (entry.Key == key)
            return *entry.Datum;
    }
    // Made before the list grows: making one datum may ask for another.
    std::unique_ptr<ThreadDatum> datum = make();
    Entries& entries = *slot.Get();
    entries.push_back({key, std::move(datum)});
    return *entries.back().Datum;
}

} // namespace detail

void FreeThreadData() noexcept
{
    const Slot& slot = TheSlot();
    // Taken off first, so that data asked for while this frees starts anew instead of being half gone.
    const std::unique_ptr<Entries> entries(slot.Get());
    slot.Set(nullptr);
    while (entries && !entries->empty())
        entries->pop_back();
}

} // namespace kiv
