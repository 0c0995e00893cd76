#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace kiv::test
{

// A client in another process, which stays there and reads what it is asked for.
class Reader
{
public:
    static Reader& TheOne();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    // The window's object and all that is in it. meanwhile: what keeps this process answering.
    std::vector<std::wstring> ReadingsOf(HWND window, const std::function<void()>& meanwhile);

private:
    Reader();

    HANDLE requests_ = nullptr;
    HANDLE answers_ = nullptr;
};

} // namespace kiv::test
