#pragma once

#include "host/container/Form.h"
#include "tests/gui/HostedYesNo.h"
#include "tests/gui/Pump.h"
#include "tests/gui/SiteRecorder.h"
#include "tests/support/Input.h"
#include "tests/support/LibraryTest.h"

#include <string_view>
#include <vector>

namespace kiv::test
{

using Texts = std::vector<std::wstring>;

// Base of the tests that put controls on a form and answer them as a user would. Holds every test to have
// left no object, and no window of a control anywhere.
class HostedTest : public LibraryTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    host::Form& TheForm() { return *form_; }
    void ShowForm();
    void DestroyForm() { form_.reset(); }
    // A new form, without anything on it.
    void StartAnew(bool rightToLeft = false);
    // A button of the form's, for the focus to be elsewhere; the first thing on the form unless it comes
    // later.
    host::Button& AddElsewhere();

    // A control in the upper left of the form, 120 by 20 pixels.
    static host::SiteOptions Placed(RECT bounds = {20, 20, 140, 40});

    // Handles all input that was sent, and what follows from it.
    void Settle();
    // Also the painting that waits.
    void Key(WORD key, std::initializer_list<WORD> held = {});
    void Character(wchar_t character);
    // Keys of the keyboard where it has them: characters, '\b', '\x7F' (Delete) and those with Ctrl ('\x03').
    void Type(std::wstring_view keys);
    void Press(const HostedYesNo& control, Spot spot, MouseButton button = MouseButton::Left);
    void Release(const HostedYesNo& control, Spot spot, MouseButton button = MouseButton::Left);
    void Click(const HostedYesNo& control, Spot spot, MouseButton button = MouseButton::Left);

private:
    std::unique_ptr<host::Form> form_;
};

} // namespace kiv::test
