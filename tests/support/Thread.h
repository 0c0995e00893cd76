#pragma once

#include <windows.h>

#include <functional>

namespace kiv::test
{

// A second thread of a test. The destructor waits for its end.
class Thread
{
public:
    explicit Thread(std::function<void()> body);
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;
    ~Thread();

private:
    static DWORD WINAPI Run(void* thread) noexcept;

    std::function<void()> body_;
    HANDLE handle_;
};

} // namespace kiv::test
