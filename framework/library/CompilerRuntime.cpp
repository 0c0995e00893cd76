#include "framework/library/CompilerRuntime.h"

#include <windows.h>

#include <array>
#include <cstddef>

namespace __gnu_cxx // NOLINT: the name that the run-time gives it, without a header to declare it
{

void __freeres(); // NOLINT

} // namespace __gnu_cxx

namespace kiv
{

namespace
{

// More than the run-time makes; what has no room here stays, as it would without all this.
struct Semaphores
{
    std::array<HANDLE, 8> Made = {};
    std::size_t Count = 0;
};

constinit Semaphores semaphores; // before anything else of the module is initialised

} // namespace

} // namespace kiv

extern "C"
{

    static HANDLE WINAPI MakeSemaphore(SECURITY_ATTRIBUTES* security, LONG initial, LONG most,
                                       const wchar_t* name)
    {
        auto& [made, count] = kiv::semaphores;
        const HANDLE semaphore = CreateSemaphoreExW(security, initial, most, name, 0, SEMAPHORE_ALL_ACCESS);
        if (semaphore && count < made.size())
            made[count++] = semaphore;
        return semaphore;
    }

    // Where the module's calls of CreateSemaphoreW go: the linker takes it for the address that the system
    // would put there. Only the run-time calls it, while the loader lets in one thread alone.
    extern decltype(&MakeSemaphore) const KivCreateSemaphore;
    decltype(&MakeSemaphore) const KivCreateSemaphore = &MakeSemaphore;
}

void kiv::FreeCompilerRuntime() noexcept
{
    __gnu_cxx::__freeres();
    while (semaphores.Count > 0)
        CloseHandle(semaphores.Made[--semaphores.Count]);
}
