#pragma once

#include "tests/com/HeldControl.h"

#include <map>
#include <string>

namespace kiv::test
{

// A number or date box on a recording site.
class MaskedControl : public HeldControl
{
public:
    using HeldControl::HeldControl;

    // What the text box shows.
    std::wstring BoxText() const;
};

// All that a box keeps, as its properties show it: the name of each with its value. The font's name, size and
// weight stand for the font.
using MaskedState = std::map<std::wstring, std::string>;
MaskedState StateOf(const MaskedControl& control);

} // namespace kiv::test
