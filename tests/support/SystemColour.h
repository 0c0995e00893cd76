#pragma once

#include <windows.h>

namespace kiv::test
{

// One of the system's colours as the user may have set it; put back at the end. Windows are told and paint
// themselves again. Throws ComError.
class SystemColour
{
public:
    // index: COLOR_BTNFACE and its like.
    SystemColour(int index, COLORREF colour);
    SystemColour(const SystemColour&) = delete;
    SystemColour& operator=(const SystemColour&) = delete;
    ~SystemColour();

private:
    int index_;
    COLORREF former_;
};

} // namespace kiv::test
