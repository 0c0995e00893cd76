#pragma once

#include <cstddef>
#include <memory>

namespace kiv
{

// Frees the calling thread's data, in the reverse order of its making. The library calls it when a thread
// detaches and when it is about to be unloaded.
void FreeThreadData() noexcept;

namespace detail
{

struct ThreadDatum
{
    virtual ~ThreadDatum() = default;
};

using ThreadDatumMaker = std::unique_ptr<ThreadDatum> (*)();

// key is the address of something unique to the kind of data.
ThreadDatum& ThreadDatumOf(const void* key, ThreadDatumMaker make);

} // namespace detail

// The calling thread's own T, made when it is first asked for. All of a module's per-thread data hangs on one
// TLS slot that the library frees itself: destructors of thread_local objects may run when it is gone.
template<class T>
T& PerThread()
{
    struct Datum : detail::ThreadDatum
    {
        T Content;
    };
    static constexpr char key = 0;
    const auto make = [] { return std::unique_ptr<detail::ThreadDatum>(std::make_unique<Datum>()); };
    return static_cast<Datum&>(detail::ThreadDatumOf(&key, make)).Content;
}

} // namespace kiv
