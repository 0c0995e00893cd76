#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

namespace kiv::test
{

// {first group-873E-11D3-BB17-00105A16D8EF}: all identifiers of the library share that tail.
GUID Id(unsigned long firstGroup);

// A control as the library is known to the forms of its hosts. First groups of the identifiers.
struct PublishedClass
{
    const wchar_t* Name;
    unsigned long Class;
    unsigned long Properties; // _Name
    unsigned long Events;     // __Name
    int ToolboxBitmap;
    bool HandlesMessages; // implements ISubClass
};

// All controls that the library has or is to have.
const std::vector<PublishedClass>& PublishedClasses();

// The one of that name, which must be one of them.
const PublishedClass& ClassNamed(const wchar_t* name);

// Those that a type library has: each control's class comes with the control.
std::vector<PublishedClass> ClassesIn(ITypeLib* library);

} // namespace kiv::test
