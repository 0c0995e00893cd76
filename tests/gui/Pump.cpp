#include "tests/gui/Pump.h"

#include <algorithm>

namespace kiv::test
{

void PumpPending(host::Form& form)
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
    {
        if (message.message == WM_QUIT)
        {
            // Left for the loop that it is meant for.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (!form.Translate(message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

bool PumpUntil(host::Form& form, const std::function<bool()>& condition, DWORD timeoutMs)
{
    const ULONGLONG end = GetTickCount64() + timeoutMs;
    for (;;)
    {
        PumpPending(form);
        if (condition())
            return true;
        const ULONGLONG now = GetTickCount64();
        if (now >= end)
            return false;
        // Woken by the next message; the condition may also depend on what no message tells.
        constexpr ULONGLONG longest = 10;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(std::min(end - now, longest)),
                                  QS_ALLINPUT);
    }
}

} // namespace kiv::test
