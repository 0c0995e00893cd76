#pragma once

#include "tests/com/HeldControl.h"

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

} // namespace kiv::test
