#include "tests/com/MaskedControl.h"

namespace kiv::test
{

std::wstring MaskedControl::BoxText() const
{
    const auto box = static_cast<HWND>(LongToHandle(Property(L"hwnd").Long()));
    wchar_t text[256] = {};
    GetWindowTextW(box, text, ARRAYSIZE(text));
    return text;
}

} // namespace kiv::test
