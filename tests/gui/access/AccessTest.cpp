#include "tests/gui/access/AccessTest.h"

#include "runtime/com/Errors.h"
#include "tests/support/AutomationCalls.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

void AccessTest::SetUp()
{
    HostedTest::SetUp();
    AddElsewhere();
}

host::ControlSite& AccessTest::AddLabelled(const std::wstring& label, REFCLSID classId)
{
    const int top = 20 + 40 * next_++;
    host::LabelOptions text;
    text.name = L"lblOne";
    text.caption = label;
    text.bounds = {20, top, 90, top + 24};
    TheForm().AddLabel(text);
    host::SiteOptions options = Placed({100, top, 240, top + 24});
    options.name = L"ctlOne";
    return TheForm().Add(classId, options);
}

void AccessTest::ExpectReadings(HWND window, const std::vector<std::wstring>& lines)
{
    Settle();
    EXPECT_EQ(ReadingsOf(window), lines);
    EXPECT_EQ(Reader::TheOne().ReadingsOf(window, [this] { PumpPending(TheForm()); }), lines)
        << "in another process";
}

void AccessTest::Extended(host::ControlSite& site, const wchar_t* property, const wchar_t* text)
{
    ComPtr<IDispatch> extender(site.ExtendedControl());
    EXPECT_EQ(PutByName(extender.Get(), property, Variant(text)).Result, S_OK);
}

RECT AccessTest::PlaceOf(HWND window)
{
    const ComPtr<IAccessible> object = AccessibleOf(window);
    long left = 0;
    long top = 0;
    long width = 0;
    long height = 0;
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Part(CHILDID_SELF)), S_OK);
    return {left, top, left + width, top + height};
}

} // namespace kiv::test
