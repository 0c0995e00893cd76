#include "tests/hostile/CrashReport.h"

#include "tests/hostile/GuardedHeap.h"
#include "tests/support/Library.h"

#include <windows.h>

#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdio>

namespace kiv::test
{

namespace
{

constexpr UINT Crashed = 99;
constexpr DWORD LongestCase = 30000; // milliseconds, on a machine that does much else

std::string& What()
{
    static std::string what;
    return what;
}

std::atomic<DWORD>& Since()
{
    static std::atomic<DWORD> since = GetTickCount();
    return since;
}

struct Range
{
    std::uintptr_t Start;
    std::uintptr_t End;
    bool Contains(std::uintptr_t address) const { return address >= Start && address < End; }
};

Range ModuleRange()
{
    const auto start = reinterpret_cast<std::uintptr_t>(Library::UnderTest().Module());
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(start);
    const auto* const headers =
        reinterpret_cast<const IMAGE_NT_HEADERS*>(start + static_cast<std::uintptr_t>(dos->e_lfanew));
    return {start, start + headers->OptionalHeader.SizeOfImage};
}

std::uintptr_t InstructionOf(const CONTEXT& context)
{
#ifdef _WIN64
    return context.Rip;
#else
    return context.Eip;
#endif
}

std::uintptr_t StackOf(const CONTEXT& context)
{
#ifdef _WIN64
    return context.Rsp;
#else
    return context.Esp;
#endif
}

// Everything on the stack that may be a return address of the module; some of it is stale.
void PrintPlaces(const CONTEXT& context, const Range& module)
{
    std::printf("in the module at 0x%zx; from",
                static_cast<std::size_t>(InstructionOf(context) - module.Start));
    const auto* const stack = reinterpret_cast<const std::uintptr_t*>(StackOf(context));
    MEMORY_BASIC_INFORMATION region = {};
    VirtualQuery(stack, &region, sizeof region);
    const auto* const end = reinterpret_cast<const std::uintptr_t*>(
        static_cast<const char*>(region.BaseAddress) + region.RegionSize);
    int shown = 0;
    for (const std::uintptr_t* each = stack; each < end && shown < 40; ++each)
    {
        if (!module.Contains(*each))
            continue;
        std::printf(" 0x%zx", static_cast<std::size_t>(*each - module.Start));
        ++shown;
    }
    std::printf("\n");
}

// Looks after the one that does things: what takes too long hangs.
DWORD WINAPI Watch(void* watched)
{
    for (;;)
    {
        Sleep(500);
        if (GetTickCount() - Since() < LongestCase)
            continue;
        std::printf("\nHANG while doing: %s\n", What().c_str());
        CONTEXT context = {};
        context.ContextFlags = CONTEXT_CONTROL | CONTEXT_INTEGER;
        SuspendThread(watched);
        if (GetThreadContext(watched, &context))
            PrintPlaces(context, ModuleRange());
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), Crashed);
    }
}

LONG CALLBACK Report(EXCEPTION_POINTERS* exception)
{
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    const bool isFault = record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION ||
                         record.ExceptionCode == EXCEPTION_ILLEGAL_INSTRUCTION ||
                         record.ExceptionCode == EXCEPTION_INT_DIVIDE_BY_ZERO ||
                         record.ExceptionCode == EXCEPTION_STACK_OVERFLOW;
    const Range module = ModuleRange();
    const void* const touched = record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION
                                    ? reinterpret_cast<const void*>(record.ExceptionInformation[1])
                                    : nullptr;
    const bool concerns = module.Contains(InstructionOf(*exception->ContextRecord)) ||
                          record.ExceptionCode == EXCEPTION_STACK_OVERFLOW ||
                          (touched && GuardedHeap::Watches(touched));
    if (!isFault || !concerns)
        return EXCEPTION_CONTINUE_SEARCH;
    std::printf("\nCRASH 0x%08lx touching %p while doing: %s\n", record.ExceptionCode, touched,
                What().c_str());
    if (record.ExceptionCode != EXCEPTION_STACK_OVERFLOW)
        PrintPlaces(*exception->ContextRecord, module);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), Crashed);
    return EXCEPTION_CONTINUE_SEARCH;
}

// The name of the module that an address lies in, for faults in other code that nobody there handles.
std::string ModuleAt(std::uintptr_t address)
{
    HMODULE module = nullptr;
    char path[MAX_PATH] = {};
    if (!GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<const char*>(address), &module) ||
        GetModuleFileNameA(module, path, MAX_PATH) == 0)
        return "nowhere";
    char text[32] = {};
    std::snprintf(text, sizeof text, " at 0x%zx",
                  static_cast<std::size_t>(address) - reinterpret_cast<std::size_t>(module));
    const std::string whole = path;
    return whole.substr(whole.find_last_of("\\/") + 1) + text;
}

// What the system's code does not survive by itself may be the module's doing all the same.
LONG WINAPI ReportUnhandled(EXCEPTION_POINTERS* exception)
{
    std::printf("\nCRASH 0x%08lx in %s while doing: %s\n", exception->ExceptionRecord->ExceptionCode,
                ModuleAt(InstructionOf(*exception->ContextRecord)).c_str(), What().c_str());
    PrintPlaces(*exception->ContextRecord, ModuleRange());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), Crashed);
    return EXCEPTION_EXECUTE_HANDLER;
}

// The guarded heap's way to say that a block was harmed, and that of an exception that nobody caught.
void ReportAbort(int)
{
    std::printf("\nABORT while doing: %s\n", What().c_str());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), Crashed);
}

// A handle that other threads may use.
HANDLE ThisThread()
{
    HANDLE thread = nullptr;
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &thread, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    return thread;
}

} // namespace

void Doing(std::string what)
{
    What() = std::move(what);
    Since() = GetTickCount();
}

void ReportCrashes()
{
    static const bool installed = AddVectoredExceptionHandler(1, &Report) != nullptr;
    SetUnhandledExceptionFilter(&ReportUnhandled);
    std::signal(SIGABRT, &ReportAbort);
    static const HANDLE watch = CreateThread(nullptr, 0, &Watch, ThisThread(), 0, nullptr);
    static_cast<void>(installed);
    static_cast<void>(watch);
}

} // namespace kiv::test
