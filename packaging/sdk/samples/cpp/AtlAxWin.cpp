// A control in AtlAxWin, the container window that every Windows has: create a window of that class whose
// text names the control, and connect to its events. AtlAxWin hands on neither the Tab key nor mnemonics: a
// host that wants them brings a container of its own, as OwnContainer.cpp does.
//
//   AtlAxWin            shows it until its window is closed
//   AtlAxWin --check    answers by itself, and ends with 0 when the events came as they should

#include "EventSink.h"

#include <wrl/client.h>

#include <cstdio>
#include <cstring>

using Microsoft::WRL::ComPtr;

namespace
{

// atl.dll is loaded, so that nothing has to be linked but what every compiler brings.
struct Atl
{
    HMODULE Module = LoadLibraryW(L"atl.dll");
    BOOL(WINAPI* Init)() = nullptr;
    HRESULT(WINAPI* GetControl)(HWND, IUnknown**) = nullptr;

    Atl()
    {
        if (!Module)
            return;
        Init =
            reinterpret_cast<decltype(Init)>(reinterpret_cast<void*>(GetProcAddress(Module, "AtlAxWinInit")));
        GetControl = reinterpret_cast<decltype(GetControl)>(
            reinterpret_cast<void*>(GetProcAddress(Module, "AtlAxGetControl")));
    }
    bool IsThere() const { return Init && GetControl && Init(); }
};

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
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
    return CreateWindowW(frame.lpszClassName, L"AtlAxWin", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                         CW_USEDEFAULT, 320, 120, nullptr, nullptr, frame.hInstance, nullptr);
}

int Run(bool checks)
{
    const Atl atl;
    if (!atl.IsThere())
        return 2;
    const HWND frame = CreateFrame();
    const HWND container = CreateWindowW(L"AtlAxWin", L"KivControls.YesNo", WS_CHILD | WS_VISIBLE, 10, 10,
                                         160, 24, frame, nullptr, GetModuleHandleW(nullptr), nullptr);
    ComPtr<IUnknown> object;
    ComPtr<KivControls::_YesNo> control;
    if (!container || FAILED(atl.GetControl(container, &object)) || FAILED(object.As(&control)))
    {
        std::puts("The control could not be made. Is it registered?");
        return 2;
    }

    int changes = 0;
    const ComPtr<EventSink> sink(new EventSink(KivControls::DIID___YesNo, [&](DISPID event, DISPPARAMS&) {
        if (event == KivControls::YesNoEvents::Change)
            ++changes;
        std::puts(event == KivControls::YesNoEvents::Change ? "Change" : "Click");
    }));
    ComPtr<IConnectionPointContainer> points;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    if (FAILED(control.As(&points)) ||
        FAILED(points->FindConnectionPoint(KivControls::DIID___YesNo, &point)) ||
        FAILED(point->Advise(sink.Get(), &cookie)))
        return 2;

    control->put_Value(KivControls::AnswerEnums::Yes);
    if (checks)
        DestroyWindow(frame);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;)
    {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    auto answer = KivControls::AnswerEnums::Neither;
    control->get_Value(&answer);
    point->Unadvise(cookie);
    std::printf("The answer is %d.\n", static_cast<int>(answer));
    return !checks || (changes == 1 && answer == KivControls::AnswerEnums::Yes) ? 0 : 1;
}

} // namespace

int main(int count, char** arguments)
{
    OleInitialize(nullptr);
    const int status = Run(count > 1 && std::strcmp(arguments[1], "--check") == 0);
    OleUninitialize();
    return status;
}
