#include "tests/support/Thread.h"

#include "runtime/com/Errors.h"

#include <gtest/gtest.h>

namespace kiv::test
{

Thread::Thread(std::function<void()> body) :
    body_(std::move(body)), handle_(CreateThread(nullptr, 0, &Thread::Run, this, 0, nullptr))
{
    if (!handle_)
        ThrowLastError();
}

Thread::~Thread()
{
    constexpr DWORD limit = 60000;
    EXPECT_EQ(WaitForSingleObject(handle_, limit), WAIT_OBJECT_0) << "a thread of the test hangs";
    CloseHandle(handle_);
}

DWORD WINAPI Thread::Run(void* thread) noexcept
{
    static_cast<Thread*>(thread)->body_();
    return 0;
}

} // namespace kiv::test
