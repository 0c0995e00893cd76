#include "tests/gui/lists/ChkComboTest.h"

namespace kiv::test
{

HostedCombo ChkComboTest::AddCombo(const std::vector<long>& statuses, host::SiteOptions options)
{
    options.name = L"cboForms";
    HostedCombo combo(TheForm(), std::move(options));
    combo.Fill(statuses);
    combo.TakeEvents();
    return combo;
}

HostedCombo ChkComboTest::ShownCombo(const std::vector<long>& statuses)
{
    HostedCombo combo = AddCombo(statuses);
    ShowForm();
    combo.Site().Focus();
    Settle();
    WaitForTheNextHandOver();
    combo.TakeEvents();
    return combo;
}

void ChkComboTest::WaitForTheNextHandOver()
{
    const DWORD start = GetTickCount();
    while (GetTickCount() - start <= 20)
        Sleep(1);
}

void ChkComboTest::ClickAt(POINT place)
{
    PointAt(place);
    Settle();
    PressButton(MouseButton::Left);
    Settle();
    ReleaseButton(MouseButton::Left);
    Settle();
}

} // namespace kiv::test
