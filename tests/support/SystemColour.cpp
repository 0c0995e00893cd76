#include "tests/support/SystemColour.h"

#include "runtime/com/Errors.h"

#include <gtest/gtest.h>

namespace kiv::test
{

SystemColour::SystemColour(int index, COLORREF colour) : index_(index), former_(GetSysColor(index))
{
    if (!SetSysColors(1, &index_, &colour))
        ThrowLastError();
}

SystemColour::~SystemColour()
{
    EXPECT_TRUE(SetSysColors(1, &index_, &former_)) << "the user's colours are changed for good";
}

HighContrast::HighContrast(COLORREF ground)
{
    const COLORREF text = ground ^ RGB(255, 255, 255);
    std::vector<COLORREF> colours;
    const auto set = [&](COLORREF colour, std::initializer_list<int> indices) {
        for (const int index : indices)
        {
            indices_.push_back(index);
            former_.push_back(GetSysColor(index));
            colours.push_back(colour);
        }
    };
    set(ground, {COLOR_WINDOW, COLOR_BTNFACE, COLOR_MENU, COLOR_INFOBK, COLOR_SCROLLBAR});
    set(text, {COLOR_WINDOWTEXT, COLOR_BTNTEXT, COLOR_MENUTEXT, COLOR_INFOTEXT, COLOR_WINDOWFRAME});
    set(Disabled, {COLOR_GRAYTEXT});
    set(Chosen, {COLOR_HIGHLIGHT});
    set(RGB(255, 255, 255), {COLOR_HIGHLIGHTTEXT});
    set(RGB(192, 192, 192), {COLOR_BTNHIGHLIGHT, COLOR_3DLIGHT});
    set(RGB(128, 128, 128), {COLOR_BTNSHADOW});
    if (!SetSysColors(static_cast<int>(indices_.size()), indices_.data(), colours.data()))
        ThrowLastError();
}

HighContrast::~HighContrast()
{
    EXPECT_TRUE(SetSysColors(static_cast<int>(indices_.size()), indices_.data(), former_.data()))
        << "the user's colours are changed for good";
}

} // namespace kiv::test
