#pragma once

#include <windows.h>

#include <functional>

namespace kiv::host
{

// A thread of its owner's, who waits for its end. What it does must not throw.
class Thread
{
public:
    // Throws ComError when there can be none.
    explicit Thread(std::function<void()> body);
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;
    ~Thread();

private:
    static DWORD WINAPI Run(void* thread) noexcept;

    std::function<void()> body_;
    HANDLE handle_;
};

} // namespace kiv::host
