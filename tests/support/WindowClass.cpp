#include "tests/support/WindowClass.h"

namespace kiv::test
{

std::string ClassNameOf(HWND window)
{
    char name[64] = {};
    GetClassNameA(window, name, ARRAYSIZE(name));
    return name;
}

bool IsOfClass(HWND window, const char* className)
{
    return lstrcmpiA(ClassNameOf(window).c_str(), className) == 0;
}

} // namespace kiv::test
