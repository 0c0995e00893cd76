#pragma once

#include <windows.h>

namespace kiv
{

// How a thread sees the resolutions of screens, and with it the windows that it makes then: a system that
// tells windows apart does not let one come under another that is not of its kind. On other systems there is
// but one.
class DpiContext
{
public:
    static DpiContext OfThread();
    static DpiContext Of(HWND window);

    bool operator==(const DpiContext& other) const;

    // Lets the calling thread see them so for as long as this lives.
    class Entered
    {
    public:
        explicit Entered(const DpiContext& context);
        Entered(const Entered&) = delete;
        Entered& operator=(const Entered&) = delete;
        ~Entered();

    private:
        HANDLE former_;
    };

private:
    explicit DpiContext(HANDLE context) : context_(context) {}

    HANDLE context_; // null where there is but one
};

} // namespace kiv
