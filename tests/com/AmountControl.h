#pragma once

#include "tests/com/MaskedControl.h"

namespace kiv::test
{

// A currency or percent box on a recording site that lets it ask what it likes.
class AmountControl : public MaskedControl
{
public:
    explicit AmountControl(REFCLSID classId);

    // The window in which the user types, found among the thread's windows: the only one of its kind.
    HWND Box() const;
    // What is typed there, and typing it for the user.
    std::wstring Entry() const;
    void Enter(const wchar_t* text) const;
};

// Amounts as ten-thousandths, exactly.
Variant Money(LONGLONG tenThousandths);
CY Cy(LONGLONG tenThousandths);

} // namespace kiv::test
