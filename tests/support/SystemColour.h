#pragma once

#include <windows.h>

#include <vector>

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

// The scheme that a user has who needs few colours that stand out; put back at the end.
class HighContrast
{
public:
    static constexpr COLORREF Disabled = RGB(0, 255, 0); // of texts
    static constexpr COLORREF Chosen = RGB(128, 0, 128); // behind white texts

    // ground: black or white.
    explicit HighContrast(COLORREF ground);
    HighContrast(const HighContrast&) = delete;
    HighContrast& operator=(const HighContrast&) = delete;
    ~HighContrast();

private:
    std::vector<int> indices_;
    std::vector<COLORREF> former_;
};

} // namespace kiv::test
