#include "tests/support/SeveralScreens.h"

#include "runtime/com/Errors.h"

#include <cstring>
#include <map>
#include <stdexcept>

namespace kiv::test
{

namespace
{

using GetDpiForSystem = UINT WINAPI();

template<class Function>
Function* SystemFunction(const char* name)
{
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
    if (!found)
        throw std::runtime_error(std::string("this system has no ") + name);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

// Asked and told by any thread.
struct Places
{
    SRWLOCK Lock = SRWLOCK_INIT;
    std::map<HWND, UINT> Resolutions;
};

class Locked
{
public:
    explicit Locked(Places& places) : lock_(&places.Lock) { AcquireSRWLockExclusive(lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(lock_); }

private:
    SRWLOCK* lock_;
};

Places& KnownPlaces()
{
    static Places places;
    return places;
}

// The answer. Owned windows are where their owners are, and those that nobody has put anywhere are where the
// system's are.
UINT WINAPI ResolutionOf(HWND window)
{
    Places& places = KnownPlaces();
    const HWND root = GetAncestor(window, GA_ROOTOWNER);
    const Locked locked(places);
    const auto found = places.Resolutions.find(root);
    return found != places.Resolutions.end() ? found->second
                                             : SystemFunction<GetDpiForSystem>("GetDpiForSystem")();
}

} // namespace

SeveralScreens::SeveralScreens() :
    function_(reinterpret_cast<std::uint8_t*>(SystemFunction<UINT WINAPI(HWND)>("GetDpiForWindow")))
{
    std::memcpy(former_.data(), function_, JumpSize);
    Code jump = {};
    if constexpr (sizeof(void*) == 4)
    {
        // By so many bytes from its end.
        jump[0] = 0xE9;
        const auto distance =
            static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(&ResolutionOf) -
                                       (reinterpret_cast<std::uintptr_t>(function_) + JumpSize));
        std::memcpy(&jump[1], &distance, sizeof distance);
    }
    else
    {
        // To the address that follows.
        jump[0] = 0xFF;
        jump[1] = 0x25;
        const auto target = reinterpret_cast<std::uintptr_t>(&ResolutionOf);
        std::memcpy(&jump[JumpSize - sizeof target], &target, sizeof target);
    }
    Write(jump);
}

SeveralScreens::~SeveralScreens()
{
    Write(former_);
    KnownPlaces().Resolutions.clear();
}

void SeveralScreens::Put(HWND window, int pixelsPerInch)
{
    Places& places = KnownPlaces();
    const Locked locked(places);
    places.Resolutions[window] = static_cast<UINT>(pixelsPerInch);
}

void SeveralScreens::Write(const Code& code)
{
    DWORD former = 0;
    if (!VirtualProtect(function_, code.size(), PAGE_EXECUTE_READWRITE, &former))
        ThrowLastError();
    std::memcpy(function_, code.data(), code.size());
    VirtualProtect(function_, code.size(), former, &former);
    FlushInstructionCache(GetCurrentProcess(), function_, code.size());
}

} // namespace kiv::test
