#include "runtime/com/Module.h"

#include <atomic>

extern "C" const IMAGE_DOS_HEADER __ImageBase;

namespace kiv
{

namespace
{

std::atomic<long> references = 0;

} // namespace

HINSTANCE ModuleInstance() noexcept
{
    return reinterpret_cast<HINSTANCE>(const_cast<IMAGE_DOS_HEADER*>(&__ImageBase));
}

ModuleReference::ModuleReference() noexcept
{
    Lock();
}

ModuleReference::~ModuleReference()
{
    Unlock();
}

long ModuleReference::Count() noexcept
{
    return references;
}

void ModuleReference::Lock() noexcept
{
    ++references;
}

void ModuleReference::Unlock() noexcept
{
    --references;
}

} // namespace kiv
