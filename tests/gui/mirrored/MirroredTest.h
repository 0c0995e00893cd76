#pragma once

#include "tests/gui/lists/ListsTest.h"
#include "tests/support/Pixels.h"

namespace kiv::test
{

bool IsMirrored(HWND window);

// Where a place would be in a mirrored window so wide.
RECT Mirrored(const RECT& place, LONG width);

// Base of the tests on a form from right to left.
class MirroredTest : public ListsTest
{
protected:
    void SetUp() override;

    host::ControlSite& Add(REFCLSID classId, host::SiteOptions options = Placed());
    // Takes the control off the form's page, turns that and puts the control there again, in the same place.
    void Turn(host::ControlSite& site, bool mirrored);
    // What is seen of a window, from left to right, once all is painted.
    Pixels Seen(HWND window);
    // The same of the control's window, or of the first child of it, when the form is mirrored and when it is
    // not.
    struct BothWays
    {
        Pixels FromRight;
        Pixels FromLeft;
    };
    BothWays SeenBothWays(host::ControlSite& site, HWND window);

    void ClickAt(POINT onScreen);
    static RECT OnScreen(HWND window);
};

} // namespace kiv::test
