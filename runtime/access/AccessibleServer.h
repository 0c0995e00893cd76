#pragma once

#include "runtime/access/AccessibleObject.h"

#include <map>

namespace kiv
{

// Gives assistive tools the objects of what is described, one for each window that is asked, and lets go of
// them when it goes itself.
class AccessibleServer
{
public:
    AccessibleServer() = default;
    AccessibleServer(const AccessibleServer&) = delete;
    AccessibleServer& operator=(const AccessibleServer&) = delete;
    ~AccessibleServer() { Close(); }

    // What a window answers to WM_GETOBJECT; 0 leaves the message to the system. frame: the outermost window
    // of what is described.
    LRESULT Answer(AccessibleSource& source, HWND window, HWND frame, WPARAM wParam, LPARAM lParam);
    // What is described is about to go: whoever still holds an object hears from now on that there is nothing
    // any more, and nobody gets another one.
    void Close();

private:
    std::map<HWND, Microsoft::WRL::ComPtr<AccessibleObject>> objects_;
    bool closed_ = false;
};

// Tells assistive tools that something has happened (EVENT_OBJECT_...) to what a window, or a part of it,
// shows. Costs next to nothing while nobody listens.
void Announce(DWORD event, HWND window, int part = CHILDID_SELF);

// The same for what the system's own controls announce by themselves, which is only left to be done where the
// system does not.
void AnnounceForSystem(DWORD event, HWND window, int part = CHILDID_SELF);

} // namespace kiv
