#pragma once

#include "tests/gui/HostedTest.h"
#include "tests/gui/access/Reader.h"
#include "tests/support/Accessible.h"

#include <KivControls.h>

namespace kiv::test
{

// Base of the tests of what assistive tools are told.
class AccessTest : public HostedTest
{
protected:
    // With a button that has the focus at first.
    void SetUp() override;

    // A control with a label before it, on the form.
    host::ControlSite& AddLabelled(const std::wstring& label, REFCLSID classId);
    // What a client reads of the window: one in this process and, while this one handles its messages, one in
    // another.
    void ExpectReadings(HWND window, const std::vector<std::wstring>& lines);
    // Sets a property of what the form adds to the control.
    static void Extended(host::ControlSite& site, const wchar_t* property, const wchar_t* text);

    static RECT PlaceOf(HWND window); // as its object tells it

private:
    int next_ = 0;
};

} // namespace kiv::test
