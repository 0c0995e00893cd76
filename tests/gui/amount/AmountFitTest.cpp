#include "tests/gui/amount/AmountFitTest.h"

#include "tests/support/MeasuredText.h"

#include <algorithm>

namespace kiv::test
{

void AmountFitTest::ForBoth(const std::function<void(Row& row)>& test)
{
    for (const bool isCurrency : {true, false})
    {
        SCOPED_TRACE(isCurrency ? "currency box" : "percent box");
        StartAnew();
        Row row = {isCurrency ? AddCurrencyBox() : AddPercentBox(), isCurrency ? L"-12,345" : L"12.3456",
                   isCurrency ? L"-12345" : L"0.123456"};
        ShowWithFocusElsewhere();
        row.Box.Site().Put(L"Value", Variant(row.Value));
        GiveRoom(row.Box, WidthOf(row.Text));
        test(row);
    }
}

void AmountFitTest::GiveRoom(HostedBox& box, int pixels)
{
    // The label is two pixels from either side, and the border as wide.
    constexpr int beside = 2 * (2 + 2);
    box.Site().Move({20, 20, 20 + pixels + beside, 45});
    PumpPending(TheForm());
}

int AmountFitTest::WidthOf(std::wstring_view text)
{
    const Canvas canvas({1, 1});
    const HGDIOBJ former = SelectObject(canvas.Dc(), TheForm().Font());
    const int width = test::WidthOf(canvas.Dc(), text);
    SelectObject(canvas.Dc(), former);
    return width;
}

std::wstring AmountFitTest::Signs(int pixels)
{
    return std::wstring(static_cast<std::size_t>(std::max(pixels / WidthOf(L"#"), 1)), L'#');
}

} // namespace kiv::test
