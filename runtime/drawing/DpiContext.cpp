#include "runtime/drawing/DpiContext.h"

#include "runtime/drawing/SystemFunction.h"

namespace kiv
{

namespace
{

using GetThreadDpiAwarenessContext = HANDLE WINAPI();
using GetWindowDpiAwarenessContext = HANDLE WINAPI(HWND);
using SetThreadDpiAwarenessContext = HANDLE WINAPI(HANDLE);
using AreDpiAwarenessContextsEqual = BOOL WINAPI(HANDLE, HANDLE);

HANDLE Enter(HANDLE context)
{
    static auto* const enter = SystemFunction<SetThreadDpiAwarenessContext>("SetThreadDpiAwarenessContext");
    return context && enter ? enter(context) : nullptr;
}

} // namespace

DpiContext DpiContext::OfThread()
{
    static auto* const ask = SystemFunction<GetThreadDpiAwarenessContext>("GetThreadDpiAwarenessContext");
    return DpiContext(ask ? ask() : nullptr);
}

DpiContext DpiContext::Of(HWND window)
{
    static auto* const ask = SystemFunction<GetWindowDpiAwarenessContext>("GetWindowDpiAwarenessContext");
    return DpiContext(ask ? ask(window) : nullptr);
}

bool DpiContext::operator==(const DpiContext& other) const
{
    static auto* const equal = SystemFunction<AreDpiAwarenessContextsEqual>("AreDpiAwarenessContextsEqual");
    return equal ? equal(context_, other.context_) != FALSE : true;
}

DpiContext::Entered::Entered(const DpiContext& context) : former_(Enter(context.context_)) {}

DpiContext::Entered::~Entered()
{
    Enter(former_);
}

} // namespace kiv
