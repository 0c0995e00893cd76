#include "tests/hostile/fuzz/PlainWindow.h"

#include "tests/hostile/fuzz/OddMessages.h"
#include "tests/support/WindowClass.h"

#include <string_view>

namespace kiv::test
{

namespace
{

HWND ListOf(HWND combo)
{
    COMBOBOXINFO information = {};
    information.cbSize = sizeof information;
    return GetComboBoxInfo(combo, &information) ? information.hwndList : nullptr;
}

} // namespace

HWND MakePlainWindow(const char* className, HWND parent)
{
    const bool isList = std::string_view(className) == "ComboLBox";
    const HWND window =
        CreateWindowExA(0, isList ? "ComboBox" : className, "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, 10,
                        10, 100, 100, parent, nullptr, nullptr, nullptr);
    return isList ? ListOf(window) : window;
}

HWND PlainTwinOf(HWND window, HWND parent)
{
    const std::string name = ClassNameOf(window);
    if (name == "ComboLBox")
        return MakePlainWindow(name.c_str(), parent);
    char text[256] = {};
    GetWindowTextA(window, text, ARRAYSIZE(text));
    RECT place = {};
    GetClientRect(window, &place);
    const HWND twin =
        CreateWindowExA(0, name.c_str(), text, static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)), 10, 10,
                        place.right, place.bottom, parent, nullptr, nullptr, nullptr);
    SendMessageA(twin, WM_SETFONT, static_cast<WPARAM>(SendMessageA(window, WM_GETFONT, 0, 0)), FALSE);
    return twin;
}

} // namespace kiv::test
