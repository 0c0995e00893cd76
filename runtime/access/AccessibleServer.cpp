#include "runtime/access/AccessibleServer.h"

#include "runtime/com/MakeCom.h"
#include "runtime/com/Wine.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

LRESULT AccessibleServer::Answer(AccessibleSource& source, HWND window, HWND frame, WPARAM wParam,
                                 LPARAM lParam)
{
    // Objects are asked for by numbers of 32 bits.
    if (closed_ || static_cast<LONG>(lParam) != OBJID_CLIENT)
        return 0;
    ComPtr<AccessibleObject>& object = objects_[window];
    if (!object)
    {
        ComPtr<AccessibleObject> made = MakeCom<AccessibleObject>(source, window, frame);
        object.Swap(made);
    }
    const ComPtr<AccessibleObject> held = object;
    return LresultFromObject(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(held.Get()));
}

void AccessibleServer::Close()
{
    closed_ = true;
    for (const auto& [window, object] : std::exchange(objects_, {}))
        object->Disconnect();
}

void Announce(DWORD event, HWND window, int part)
{
    if (window && IsWinEventHookInstalled(event))
        NotifyWinEvent(event, window, OBJID_CLIENT, part);
}

void AnnounceForSystem(DWORD event, HWND window, int part)
{
    // Wine's edit controls, buttons, lists and scroll bars announce nothing.
    static const bool isLeftToUs = RunsOnWine();
    if (isLeftToUs)
        Announce(event, window, part);
}

} // namespace kiv
