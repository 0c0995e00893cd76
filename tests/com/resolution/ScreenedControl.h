#pragma once

#include "tests/com/HeldControl.h"
#include "tests/support/Pixels.h"
#include "tests/support/SeveralScreens.h"

#include <string>
#include <vector>

namespace kiv::test
{

// Of screens at 100 to 400 %.
constexpr int PixelsPerInch[] = {96, 120, 144, 168, 192, 216, 240, 288, 384};

// What is to be seen of a control's layout: its windows, each with its class, place and font, and its
// picture.
struct Layout
{
    SIZE Size = {};
    std::vector<std::string> Windows;
    Pixels Picture{{0, 0}};
};

// A control in the window of a host that has it on one of several screens, with a font of 8.25 points.
class ScreenedControl : public HeldControl
{
public:
    ScreenedControl(SeveralScreens& screens, REFCLSID classId, int pixelsPerInch);
    ~ScreenedControl();

    // As large as its extent is there, or as it already is.
    void Activate();
    // The host's window is on another screen; nobody is told.
    void MoveTo(int pixelsPerInch);
    // As a host does that wants the control as large as it was, in inches.
    void Fit();
    void Place(SIZE size);

    HWND Window() const;
    SIZE SizeOfExtent() const;
    SIZE SizeOfWindow() const;
    // The window's child of that class and number, in pixels of the window.
    RECT Part(const wchar_t* windowClass, int number = 0) const;
    Layout Seen() const;
    // How often it has asked for another place.
    int Asked() const { return asked_; }

private:
    SeveralScreens& screens_;
    int pixelsPerInch_;
    int asked_ = 0;
};

// What the system itself is set to.
int ScreenResolution();

void ExpectSame(const Layout& expected, const Layout& actual);

// The height that a window's font was asked for, as a LOGFONT has it; 0 for the system's own font.
LONG FontHeight(HWND window);

std::string Figures(SIZE size);
std::string Figures(const RECT& place);

} // namespace kiv::test
