// Prints the title that the controls' message boxes would have in this program.

#include "framework/subclass/HostTitle.h"

#include <cstdio>

int main()
{
    std::printf("%ls", kiv::HostTitle().c_str());
}
