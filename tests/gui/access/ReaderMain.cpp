// A client of the system's accessibility interface in a process of its own: reads window handles from its
// input, and writes what it is told of each, ended by a line with a full stop.

#include "tests/support/Accessible.h"
#include "tests/support/Text.h"

#include <objbase.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <iostream>
#include <string>

int main()
{
    // Lines end as they are written.
    _setmode(_fileno(stdout), _O_BINARY);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    std::string line;
    while (std::getline(std::cin, line))
    {
        std::string answer;
        const auto window = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(std::stoull(line)));
        for (const std::wstring& reading : kiv::test::ReadingsOf(window))
            answer += kiv::test::Narrow(reading) + "\n";
        answer += ".\n";
        std::fwrite(answer.data(), 1, answer.size(), stdout);
        std::fflush(stdout);
    }
    CoUninitialize();
    return 0;
}
