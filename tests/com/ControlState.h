#pragma once

#include "tests/support/TestFont.h"

#include <KivControls.h>

#include <iosfwd>
#include <string>

namespace kiv::test
{

// All that a YesNo keeps, as its properties show it.
struct ControlState
{
    OLE_COLOR BackColor = 0x8000000F;
    OLE_COLOR ForeColor = 0x80000012;
    bool Enabled = true;
    FontFacts Font;
    std::wstring YesText = L"Y";
    std::wstring NoText = L"N";
    long Value = 0;

    bool operator==(const ControlState& other) const;
    friend std::ostream& operator<<(std::ostream& out, const ControlState& state);
};

ControlState StateOf(_YesNo* control);
// Through the properties, the font as a new object.
void Apply(const ControlState& state, _YesNo* control);

} // namespace kiv::test
