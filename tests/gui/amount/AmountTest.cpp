#include "tests/gui/amount/AmountTest.h"

#include "host/container/Button.h"
#include "runtime/com/Errors.h"
#include "tests/support/MeasuredText.h"

#include <KivControls.h>

namespace kiv::test
{

namespace
{

RECT PlaceIn(HWND window, HWND parent)
{
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

COLORREF ColourOf(const HostedBox& box, const wchar_t* property)
{
    const long color = box.Site().Get(property).Long();
    return color < 0 ? GetSysColor(color & 0xFF) : static_cast<COLORREF>(color);
}

} // namespace

HostedBox AmountTest::AddCurrencyBox(host::SiteOptions options)
{
    return HostedBox(TheForm(), CLSID_CurrencyBox, std::move(options));
}

HostedBox AmountTest::AddPercentBox(host::SiteOptions options)
{
    return HostedBox(TheForm(), CLSID_PercentBox, std::move(options));
}

HostedBox AmountTest::ShownCurrencyBox()
{
    HostedBox box = AddCurrencyBox();
    AddElsewhere();
    ShowForm();
    box.Site().Focus();
    box.TakeEvents();
    return box;
}

HostedBox AmountTest::ShownPercentBox()
{
    HostedBox box = AddPercentBox();
    AddElsewhere();
    ShowForm();
    box.Site().Focus();
    box.TakeEvents();
    return box;
}

void AmountTest::ShowWithFocusElsewhere()
{
    const host::Button& elsewhere = AddElsewhere();
    ShowForm();
    SetFocus(elsewhere.Window());
    Settle();
}

void AmountTest::Leave(const HostedBox& box)
{
    ASSERT_EQ(GetFocus(), box.Edit());
    Key(VK_TAB);
    ASSERT_NE(GetFocus(), box.Edit());
}

void AmountTest::Enter(const HostedBox& box)
{
    Key(VK_TAB, {VK_SHIFT});
    ASSERT_EQ(GetFocus(), box.Edit());
}

void AmountTest::SetDigits(const HostedBox& box, std::int16_t integer, std::int16_t decimal)
{
    box.Site().Put(L"NumIntDigits", Variant(integer));
    box.Site().Put(L"NumDecDigits", Variant(decimal));
}

void AmountTest::SetRange(const HostedBox& box, std::int64_t minimum, std::int64_t maximum)
{
    constexpr std::int64_t unit = 10000;
    SetDigits(box, 14, 2);
    box.Site().Put(L"MaxValue", Variant(Currency::FromUnits(maximum * unit)));
    box.Site().Put(L"MinValue", Variant(Currency::FromUnits(minimum * unit)));
}

void AmountTest::SetUp(const HostedBox& box, const PercentSettings& settings)
{
    box.Site().Put(L"Complement", Variant(settings.Complement));
    box.Site().Put(L"DisplayPercent", Variant(settings.DisplayPercent));
    box.Site().Put(L"MaxDigits", Variant(settings.MaxDigits));
    box.Site().Put(L"MaxDecimals", Variant(settings.MaxDecimals));
}

bool AmountTest::IsInView(const HostedBox& box)
{
    RECT inner = {};
    GetClientRect(box.Site().Window(), &inner);
    const RECT place = PlaceIn(box.Edit(), box.Site().Window());
    return place.top >= 0 && place.bottom <= inner.bottom;
}

bool AmountTest::IsParked(const HostedBox& box)
{
    RECT inner = {};
    GetClientRect(box.Site().Window(), &inner);
    return PlaceIn(box.Edit(), box.Site().Window()).top >= inner.bottom;
}

SIZE AmountTest::Inside(const HostedBox& box)
{
    RECT inner = {};
    GetClientRect(box.Site().Window(), &inner);
    return {inner.right, inner.bottom};
}

Pixels AmountTest::DrawnElsewhere(const HostedBox& box)
{
    RECT outer = {};
    GetWindowRect(box.Site().Window(), &outer);
    OffsetRect(&outer, -outer.left, -outer.top);
    const Canvas canvas({outer.right, outer.bottom});
    EXPECT_HRESULT_SUCCEEDED(box.Site().Draw(canvas.Dc(), outer));
    const Pixels whole = canvas.Content();
    Pixels inside(Inside(box));
    const int edge = (outer.right - inside.Size().cx) / 2;
    for (int y = 0; y < inside.Size().cy; ++y)
    {
        for (int x = 0; x < inside.Size().cx; ++x)
            inside.Set(x, y, whole.At(x + edge, y + edge));
    }
    return inside;
}

void AmountTest::ExpectLabel(const HostedBox& box, const std::wstring& text)
{
    EXPECT_TRUE(IsParked(box));
    const HWND window = box.Site().Window();
    UpdateWindow(window);
    const Pixels shown = PixelsOfWindow(window);
    const Canvas canvas(shown.Size());
    RECT whole = {0, 0, shown.Size().cx, shown.Size().cy};
    const HBRUSH background = CreateSolidBrush(ColourOf(box, L"BackColor"));
    FillRect(canvas.Dc(), &whole, background);
    DeleteObject(background);

    Microsoft::WRL::ComPtr<IFont> font;
    HFONT handle = nullptr;
    Check(box.Site().Get(L"Font").Object()->QueryInterface(IID_PPV_ARGS(&font)));
    Check(font->get_hFont(&handle));
    const HGDIOBJ former = SelectObject(canvas.Dc(), handle);
    SetBkMode(canvas.Dc(), TRANSPARENT);
    SetTextColor(canvas.Dc(), ColourOf(box, L"ForeColor"));
    const RECT edit = PlaceIn(box.Edit(), window);
    // Two pixels from the right, and in the middle.
    WriteMeasured(canvas.Dc(), whole.right - 2 - WidthOf(canvas.Dc(), text),
                  (whole.bottom - (edit.bottom - edit.top)) / 2, text);
    SelectObject(canvas.Dc(), former);
    EXPECT_EQ(Difference(canvas.Content(), shown), "");
}

BoxLook LookOf(std::wstring_view drawn)
{
    BoxLook look;
    for (const wchar_t character : drawn)
    {
        const int place = static_cast<int>(look.Text.size());
        if (character == L'[' || character == L'|')
            look.SelStart = place;
        else if (character == L']')
            look.SelLength = place - look.SelStart;
        else
            look.Text.push_back(character);
    }
    if (drawn.find_first_of(L"[|") == std::wstring_view::npos)
        look.SelStart = static_cast<int>(look.Text.size());
    return look;
}

Variant TextOrNull(const wchar_t* text, const NumberLocale& locale)
{
    return text ? Variant(std::wstring_view(Localized(text, locale))) : Variant::Null();
}

} // namespace kiv::test
