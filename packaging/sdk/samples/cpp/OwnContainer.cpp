// The program: one question, answered with the keys Y and N, the arrows and the space bar, or with the mouse.
//
//   OwnContainer            shows it until its window is closed
//   OwnContainer --check    presses a key by itself, and ends with 0 when the answer came of it

#include "Container.h"

#include <cstdio>
#include <cstring>

namespace
{

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_TIMER)
    {
        KillTimer(window, wParam);
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND CreateFrame()
{
    WNDCLASSW frame = {};
    frame.lpfnWndProc = FrameProcedure;
    frame.hInstance = GetModuleHandleW(nullptr);
    frame.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    frame.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    frame.lpszClassName = L"KivCtls sample";
    RegisterClassW(&frame);
    return CreateWindowW(frame.lpszClassName, L"Container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                         CW_USEDEFAULT, 320, 120, nullptr, nullptr, frame.hInstance, nullptr);
}

int Run(bool checks)
{
    const HWND frame = CreateFrame();
    Container container(frame);
    int clicks = 0;
    int changes = 0;
    if (FAILED(container.Show(KivControls::CLSID_YesNo, {10, 10, 170, 34})) ||
        FAILED(container.Connect(KivControls::DIID___YesNo, [&](DISPID event, DISPPARAMS&) {
            clicks += event == KivControls::YesNoEvents::Click;
            changes += event == KivControls::YesNoEvents::Change;
            std::puts(event == KivControls::YesNoEvents::Change ? "Change" : "Click");
        })))
    {
        std::puts("The control could not be made. Is it registered?");
        return 2;
    }
    container.Activate();
    if (checks)
    {
        PostMessageW(GetFocus(), WM_KEYDOWN, 'Y', 1);
        // When nothing else is left to be done.
        SetTimer(frame, 1, 0, nullptr);
    }
    auto answer = KivControls::AnswerEnums::Neither;
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;)
    {
        if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST && container.TakesKey(message))
            continue;
        TranslateMessage(&message);
        if (message.message == WM_CLOSE)
        {
            // A container takes its controls away before it destroys their window.
            container.Control<KivControls::_YesNo>()->get_Value(&answer);
            container.Close();
        }
        DispatchMessageW(&message);
    }
    std::printf("The answer is %d.\n", static_cast<int>(answer));
    return !checks || (clicks == 1 && changes == 1 && answer == KivControls::AnswerEnums::Yes) ? 0 : 1;
}

} // namespace

int main(int count, char** arguments)
{
    OleInitialize(nullptr);
    const int status = Run(count > 1 && std::strcmp(arguments[1], "--check") == 0);
    OleUninitialize();
    return status;
}
