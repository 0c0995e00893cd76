#include "tests/com/MaskedControl.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/TestFont.h"

#include <sstream>

namespace kiv::test
{

std::wstring MaskedControl::BoxText() const
{
    const auto box = static_cast<HWND>(LongToHandle(Property(L"hwnd").Long()));
    wchar_t text[256] = {};
    GetWindowTextW(box, text, ARRAYSIZE(text));
    return text;
}

MaskedState StateOf(const MaskedControl& control)
{
    MaskedState state;
    for (const wchar_t* name : {L"AllowVarious", L"BackColor", L"ForeColor", L"Enabled", L"Style",
                                L"MaxLength", L"MaxDate", L"MinDate"})
    {
        if (IdOfName(control.Get(), name) != DISPID_UNKNOWN)
            state[name] = control.Shown(name);
    }
    std::ostringstream font;
    font << FactsOf(control.Property(L"Font").Object());
    state[L"Font"] = font.str();
    return state;
}

} // namespace kiv::test
