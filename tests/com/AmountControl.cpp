#include "tests/com/AmountControl.h"

#include "tests/support/WindowClass.h"

namespace kiv::test
{

namespace
{

BOOL CALLBACK TakeEdit(HWND window, LPARAM found) noexcept
{
    if (IsOfClass(window, "EDIT"))
        *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

BOOL CALLBACK LookForEdit(HWND window, LPARAM found) noexcept
{
    EnumChildWindows(window, &TakeEdit, found);
    return TRUE;
}

} // namespace

AmountControl::AmountControl(REFCLSID classId) : MaskedControl(classId)
{
    Site().Log().AllowAll();
}

HWND AmountControl::Box() const
{
    HWND box = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &LookForEdit, reinterpret_cast<LPARAM>(&box));
    return box;
}

std::wstring AmountControl::Entry() const
{
    wchar_t text[256] = {};
    GetWindowTextW(Box(), text, ARRAYSIZE(text));
    return text;
}

void AmountControl::Enter(const wchar_t* text) const
{
    SetWindowTextW(Box(), text);
}

Variant Money(LONGLONG tenThousandths)
{
    return Variant(Currency::FromUnits(tenThousandths));
}

CY Cy(LONGLONG tenThousandths)
{
    CY amount = {};
    amount.int64 = tenThousandths;
    return amount;
}

} // namespace kiv::test
