#pragma once

#include <windows.h>

namespace kiv
{

// The module that this code is linked into: the library, or a test that links its parts.
HINSTANCE ModuleInstance() noexcept;

// Counts what keeps the module loaded: every object, and every lock that a client takes on a class factory.
class ModuleReference
{
public:
    ModuleReference() noexcept;
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
    ~ModuleReference();

    static long Count() noexcept;
    static void Lock() noexcept;
    static void Unlock() noexcept;
};

} // namespace kiv
