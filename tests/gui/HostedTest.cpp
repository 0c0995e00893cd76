#include "tests/gui/HostedTest.h"

#include "host/container/Button.h"

namespace kiv::test
{

void HostedTest::SetUp()
{
    LibraryTest::SetUp();
    ASSERT_EQ(ControlWindows(), 0) << "an earlier test left windows behind";
    StartAnew();
}

void HostedTest::StartAnew(bool rightToLeft)
{
    DestroyForm();
    form_ = std::make_unique<host::Form>(L"Test", SIZE{300, 120}, rightToLeft);
}

void HostedTest::TearDown()
{
    DestroyForm();
    LibraryTest::TearDown();
    EXPECT_EQ(ControlWindows(), 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

void HostedTest::ShowForm()
{
    form_->Show();
    // Asked for again and again: the end of the last test's form may still be on its way through the system.
    ASSERT_TRUE(PumpUntil(*form_, [this] {
        return GetForegroundWindow() == form_->Window() || (SetForegroundWindow(form_->Window()), false);
    }));
    Settle();
}

host::Button& HostedTest::AddElsewhere()
{
    host::ButtonOptions options;
    options.name = L"elsewhere";
    options.caption = L"&Elsewhere";
    options.bounds = {200, 80, 290, 105};
    return form_->AddButton(options);
}

host::SiteOptions HostedTest::Placed(RECT bounds)
{
    host::SiteOptions options;
    options.name = L"ynQuestion";
    options.bounds = bounds;
    return options;
}

void HostedTest::Settle()
{
    const InputMark mark;
    ASSERT_TRUE(PumpUntil(*form_, [&] { return mark.Arrived(); })) << "the form does not get the input";
    PumpPending(*form_);
}

void HostedTest::Key(WORD key, std::initializer_list<WORD> held)
{
    TapKey(key, held);
    Settle();
}

void HostedTest::Character(wchar_t character)
{
    TypeCharacter(character);
    Settle();
}

void HostedTest::Type(std::wstring_view keys)
{
    for (const wchar_t key : keys)
    {
        const SHORT onKeyboard = VkKeyScanW(key);
        const auto code = static_cast<WORD>(onKeyboard & 0xFF);
        if (key == L'\x7F')
            TapKey(VK_DELETE);
        else if (key == L'\b')
            TapKey(VK_BACK);
        else if (onKeyboard == -1)
            TypeCharacter(key);
        else if (onKeyboard & 0x200)
            TapKey(code, {VK_CONTROL});
        else if (onKeyboard & 0x100)
            TapKey(code, {VK_SHIFT});
        else
            TapKey(code);
    }
    Settle();
}

void HostedTest::Press(const HostedYesNo& control, Spot spot, MouseButton button)
{
    PointAt(control.OnScreen(spot));
    PressButton(button);
    Settle();
}

void HostedTest::Release(const HostedYesNo& control, Spot spot, MouseButton button)
{
    PointAt(control.OnScreen(spot));
    ReleaseButton(button);
    Settle();
}

void HostedTest::Click(const HostedYesNo& control, Spot spot, MouseButton button)
{
    Press(control, spot, button);
    Release(control, spot, button);
}

} // namespace kiv::test
