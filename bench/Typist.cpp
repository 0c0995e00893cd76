#include "bench/Typist.h"

#include "runtime/com/Errors.h"

namespace kiv::bench
{

BareEdit::BareEdit(HWND parent, const char* text) :
    window_(CreateWindowExA(WS_EX_CLIENTEDGE, "EDIT", text, WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 10, 50,
                            120, 22, parent, nullptr, nullptr, nullptr))
{
    if (!window_)
        ThrowLastError();
    SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
}

} // namespace kiv::bench
