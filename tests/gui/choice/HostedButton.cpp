#include "tests/gui/choice/HostedButton.h"

#include "runtime/com/Errors.h"
#include "tests/gui/SiteRecorder.h"
#include "tests/support/Library.h"
#include "tests/support/Text.h"

#include <KivControls.h>
#include <gtest/gtest.h>

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct Picture
{
    const wchar_t* Icon; // null for none
    int Width;
    int Height;
    bool IsLink;
};

Picture PictureOf(const ButtonLook& look)
{
    static constexpr Picture none = {nullptr, 0, 0, false};
    static constexpr Picture byStatus[] = {none, {L"PARTIAL", 15, 10, false}, {L"CHECKMARK", 15, 10, false}};
    static constexpr Picture byType[] = {none,
                                         {L"PLUS", 18, 18, false},
                                         {L"MINUS", 18, 18, false},
                                         {L"NOTE", 23, 23, true},
                                         {L"GRAPH", 23, 23, true},
                                         {L"WEBLINK", 23, 23, true}};
    if (look.PictureType == 0)
        return look.DetailStatus >= 0 && look.DetailStatus < 3 ? byStatus[look.DetailStatus] : none;
    return look.PictureType > 0 && look.PictureType < 6 ? byType[look.PictureType] : none;
}

void Fill(HDC dc, const RECT& rectangle, COLORREF color)
{
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &rectangle, brush);
    DeleteObject(brush);
}

// A ring one pixel wide: left and top, then right and bottom over it.
void DrawRing(HDC dc, RECT& at, COLORREF leftTop, COLORREF rightBottom)
{
    Fill(dc, {at.left, at.top, at.right, at.top + 1}, leftTop);
    Fill(dc, {at.left, at.top, at.left + 1, at.bottom}, leftTop);
    Fill(dc, {at.right - 1, at.top, at.right, at.bottom}, rightBottom);
    Fill(dc, {at.left, at.bottom - 1, at.right, at.bottom}, rightBottom);
    InflateRect(&at, -1, -1);
}

void DrawText(HDC dc, const ButtonLook& look, const RECT& rectangle)
{
    const auto draw = [&](int shift, COLORREF color) {
        RECT shifted = rectangle;
        OffsetRect(&shifted, shift, shift);
        SetTextColor(dc, color);
        DrawTextA(dc, look.Caption.c_str(), -1, &shifted, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
    };
    if (look.Enabled)
    {
        draw(0, GetSysColor(COLOR_BTNTEXT));
        return;
    }
    draw(1, GetSysColor(COLOR_BTNHIGHLIGHT));
    draw(0, GetSysColor(COLOR_BTNSHADOW));
}

void DrawIcon(HDC dc, const wchar_t* name, int x, int y)
{
    const auto icon = static_cast<HICON>(
        LoadImageW(Library::UnderTest().Module(), name, IMAGE_ICON, 32, 32, LR_DEFAULTCOLOR));
    if (!icon)
        ThrowLastError();
    DrawIconEx(dc, x, y, icon, 32, 32, 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
}

} // namespace

Pixels PaintPicCommand(const ButtonLook& look)
{
    const Picture picture = PictureOf(look);
    const bool framed = look.Focused && !picture.IsLink;
    const COLORREF black = RGB(0, 0, 0);
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    const COLORREF highlight = GetSysColor(COLOR_BTNHIGHLIGHT);

    const Canvas canvas(look.Size);
    const HDC dc = canvas.Dc();
    RECT ring = {0, 0, look.Size.cx, look.Size.cy};
    if (framed)
        DrawRing(dc, ring, black, black);
    const RECT corner = {ring.left, ring.bottom - 1, ring.left + 1, ring.bottom};
    DrawRing(dc, ring, look.Pressed ? shadow : highlight,
             !look.Pressed ? black : (framed ? shadow : highlight));
    // No line ends there.
    Fill(dc, corner, face);
    DrawRing(dc, ring, look.Pressed && !framed ? black : face, look.Pressed ? face : shadow);
    Fill(dc, ring, face);

    const int shift = look.Pressed ? 1 : 0;
    RECT caption = {shift, shift, look.Size.cx + shift, look.Size.cy + shift};
    const HGDIOBJ former = SelectObject(dc, look.Font);
    SIZE extent = {};
    GetTextExtentPoint32A(dc, look.Caption.c_str(), static_cast<int>(look.Caption.size()), &extent);
    const int gap =
        look.PictureType == 0 ? 1 : std::max<int>((look.Size.cx - extent.cx - picture.Width) / 3, 0);
    if (picture.Icon)
        caption.left += picture.Width + gap;
    SetBkMode(dc, TRANSPARENT);
    DrawText(dc, look, caption);
    SelectObject(dc, former);
    if (picture.Icon)
        DrawIcon(dc, picture.Icon, shift + gap + 2, (2 * shift + look.Size.cy - picture.Height) / 2);

    if (framed)
    {
        SetTextColor(dc, RGB(0, 0, 0));
        SetBkColor(dc, RGB(255, 255, 255));
        const RECT focus = {4, 4, look.Size.cx - 4, look.Size.cy - 4};
        DrawFocusRect(dc, &focus);
    }
    return canvas.Content();
}

namespace
{

std::string InCodePage(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(
                          WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

} // namespace

HostedButton::HostedButton(host::Form& form, host::SiteOptions options) :
    site_(form.Add(Library::UnderTest().Create(CLSID_PicCommand).Get(), Recorded(std::move(options))))
{
    RecordOf(site_).HandleEvents([state = state_](const host::EventRecord& event, DISPPARAMS&) {
        EXPECT_EQ(Narrow(event.Name), "Click");
        ++state->Clicks;
        // Copied: a handler may take the control off the form, and with it what holds the handlers.
        if (const Handler handler = state->OnClick)
            handler();
    });
}

POINT HostedButton::Middle() const
{
    RECT inner = {};
    GetClientRect(Window(), &inner);
    POINT middle = {inner.right / 2, inner.bottom / 2};
    ClientToScreen(Window(), &middle);
    return middle;
}

ButtonLook HostedButton::Look() const
{
    ButtonLook look;
    RECT inner = {};
    GetClientRect(Button(), &inner);
    look.Size = {inner.right, inner.bottom};
    look.PictureType = site_.Get(L"PictureType").Long();
    look.DetailStatus = site_.Get(L"DetailStatus").Long();
    look.Caption = InCodePage(site_.Get(L"Caption").Text());
    look.Enabled = site_.Get(L"Enabled").Bool();
    look.Focused = GetFocus() == Button();
    ComPtr<IFont> font;
    EXPECT_HRESULT_SUCCEEDED(site_.Get(L"Font").Object()->QueryInterface(IID_PPV_ARGS(&font)));
    EXPECT_HRESULT_SUCCEEDED(font->get_hFont(&look.Font));
    return look;
}

} // namespace kiv::test
