#include "host/folio/Thread.h"

#include "runtime/com/Errors.h"

namespace kiv::host
{

Thread::Thread(std::function<void()> body) :
    body_(std::move(body)), handle_(CreateThread(nullptr, 0, &Thread::Run, this, 0, nullptr))
{
    if (!handle_)
        ThrowLastError();
}

Thread::~Thread()
{
    WaitForSingleObject(handle_, INFINITE);
    CloseHandle(handle_);
}

DWORD WINAPI Thread::Run(void* thread) noexcept
{
    static_cast<Thread*>(thread)->body_();
    return 0;
}

} // namespace kiv::host
