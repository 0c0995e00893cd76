// What a PicCommand shows, held pixel by pixel against a picture painted independently.

#include "tests/gui/HostedTest.h"
#include "tests/gui/choice/HostedButton.h"
#include "tests/support/TestFont.h"

#include "host/container/Button.h"
#include "runtime/com/Errors.h"

#include <optional>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct PictureRow
{
    long PictureType;
    long DetailStatus;
};

constexpr PictureRow Pictures[] = {{0, 0}, {0, 1}, {0, 2}, {1, 0}, {2, 0}, {3, 0},
                                   {4, 0}, {5, 0}, {5, 2}, {0, 3}, {6, 1}, {-1, 0}};

class PicCommandPaint : public HostedTest
{
protected:
    HostedButton& Shown(RECT bounds = {20, 20, 140, 48})
    {
        elsewhere_ = &AddElsewhere();
        button_.emplace(TheForm(), Placed(bounds));
        button_->SetCaption(L"&Details");
        ShowForm();
        return *button_;
    }
    void ExpectPicture(const ButtonLook& look) const
    {
        EXPECT_EQ(Difference(PaintPicCommand(look), button_->Shown()), "")
            << "type " << look.PictureType << ", status " << look.DetailStatus
            << (look.Enabled ? "" : ", disabled") << (look.Focused ? ", focused" : "")
            << (look.Pressed ? ", pressed" : "");
    }
    // All that waits is handled first.
    void ExpectPicture()
    {
        PumpPending(TheForm());
        ExpectPicture(button_->Look());
    }
    void Show(const PictureRow& row)
    {
        button_->Put(L"PictureType", row.PictureType);
        button_->Put(L"DetailStatus", row.DetailStatus);
    }
    void FocusElsewhere()
    {
        elsewhere_->Focus();
        PumpPending(TheForm());
    }

private:
    host::Button* elsewhere_ = nullptr;
    std::optional<HostedButton> button_;
};

TEST_F(PicCommandPaint, ShowsEachPictureEnabledAndDisabled)
{
    HostedButton& button = Shown();
    for (const bool enabled : {true, false})
    {
        button.SetEnabled(enabled);
        for (const PictureRow& row : Pictures)
        {
            Show(row);
            ExpectPicture();
        }
    }
}

TEST_F(PicCommandPaint, ShowsTheFocusExceptOnLinks)
{
    HostedButton& button = Shown();
    for (const PictureRow& row : Pictures)
    {
        FocusElsewhere();
        Show(row);
        ExpectPicture();
        button.Site().Focus();
        ASSERT_TRUE(button.Look().Focused);
        ExpectPicture();
        button.Site().Call(L"Refresh");
        ExpectPicture();
    }
    FocusElsewhere();
    ExpectPicture();
}

TEST_F(PicCommandPaint, ALinkLooksTheSameWithTheFocusAndWithout)
{
    HostedButton& button = Shown();
    for (const long type : {3L, 4L, 5L})
    {
        FocusElsewhere();
        Show({type, 0});
        PumpPending(TheForm());
        const Pixels without = button.Shown();
        button.Site().Focus();
        PumpPending(TheForm());
        EXPECT_EQ(Difference(without, button.Shown()), "") << type;
    }
}

TEST_F(PicCommandPaint, ShowsEachPicturePressed)
{
    HostedButton& button = Shown();
    for (const PictureRow& row : Pictures)
    {
        Show(row);
        button.Site().Focus();
        PumpPending(TheForm());
        PointAt(button.Middle());
        PressButton(MouseButton::Left);
        Settle();
        ButtonLook look = button.Look();
        look.Pressed = true;
        ExpectPicture(look);
        ReleaseButton(MouseButton::Left);
        Settle();
        ExpectPicture();
    }
}

// The frame's colours where no picture is needed to tell them.
TEST_F(PicCommandPaint, FramesItselfInTheSystemsColours)
{
    HostedButton& button = Shown();
    FocusElsewhere();
    const COLORREF black = RGB(0, 0, 0);
    const Pixels rest = button.Shown();
    EXPECT_EQ(rest.At(0, 0), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(rest.At(1, 1), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(rest.At(119, 0), black);
    EXPECT_EQ(rest.At(0, 27), GetSysColor(COLOR_BTNFACE)) << "no line ends there";
    EXPECT_EQ(rest.At(1, 27), black);
    EXPECT_EQ(rest.At(118, 1), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(rest.At(1, 26), GetSysColor(COLOR_BTNSHADOW));
    button.Site().Focus();
    PumpPending(TheForm());
    const Pixels focused = button.Shown();
    for (const POINT corner : {POINT{0, 0}, POINT{119, 0}, POINT{0, 27}, POINT{119, 27}})
        EXPECT_EQ(focused.At(corner.x, corner.y), black);
    EXPECT_EQ(focused.At(1, 1), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_NE(Difference(rest, focused), "");
}

TEST_F(PicCommandPaint, IsDrawnAtAnySize)
{
    HostedButton& button = Shown();
    FocusElsewhere();
    for (const PictureRow& row : {PictureRow{0, 0}, PictureRow{0, 2}, PictureRow{1, 0}, PictureRow{3, 0}})
    {
        Show(row);
        for (const int height : {8, 9, 17, 18, 22, 23, 24, 40})
        {
            button.Site().Move({20, 20, 140, 20 + height});
            ExpectPicture();
        }
        for (const int width : {8, 20, 40, 61, 62, 63, 64, 65, 66, 260})
        {
            button.Site().Move({20, 20, 20 + width, 48});
            ExpectPicture();
        }
    }
}

TEST_F(PicCommandPaint, SurvivesEverySmallSize)
{
    HostedButton& button = Shown();
    button.Site().Focus();
    for (const PictureRow& row : Pictures)
    {
        Show(row);
        for (int size = 0; size < 8; ++size)
        {
            button.Site().Move({20, 20, 20 + size, 48});
            button.Site().Move({20, 20, 140, 20 + size});
            button.Site().Move({20, 20, 20 + size, 20 + size});
            PumpPending(TheForm());
        }
    }
    button.Site().Move({20, 20, 140, 48});
    ExpectPicture();
}

TEST_F(PicCommandPaint, ShowsAnyCaption)
{
    HostedButton& button = Shown();
    FocusElsewhere();
    for (const long type : {0L, 1L, 3L})
    {
        Show({type, 1});
        for (const wchar_t* caption : {L"", L"&", L"&&", L"Salt && Pepper", L"No mnemonic",
                                       L"\u0416\u0416\u0416\u0416 \u0141", // in the code page "???? L"
                                       L"A caption that is far too long for the button that it stands on"})
        {
            button.SetCaption(caption);
            ExpectPicture();
        }
    }
}

// Before any message is handled.
TEST_F(PicCommandPaint, ShowsAChangeAtOnce)
{
    HostedButton& button = Shown();
    FocusElsewhere();
    button.SetEnabled(false);
    ExpectPicture(button.Look());
    button.SetEnabled(true);
    ExpectPicture(button.Look());
    button.SetCaption(L"Other");
    ExpectPicture(button.Look());
    button.Put(L"PictureType", 2);
    ExpectPicture(button.Look());
    button.Put(L"PictureType", 0);
    button.Put(L"DetailStatus", 2);
    ExpectPicture(button.Look());
    button.Site().Put(L"BoundDetailStatus", Variant::Null());
    ExpectPicture(button.Look());
    FontFacts large;
    large.Size.int64 = 150000;
    button.Site().Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont(large).Get())));
    ExpectPicture(button.Look());
    ComPtr<IFont> font;
    ASSERT_HRESULT_SUCCEEDED(button.Site().Get(L"Font").Object()->QueryInterface(IID_PPV_ARGS(&font)));
    ASSERT_HRESULT_SUCCEEDED(font->put_Underline(TRUE));
    ExpectPicture(button.Look());
}

// Another program may ask for what it does not name.
TEST_F(PicCommandPaint, DrawsNothingWhereItIsNotToldWhat)
{
    HostedButton& button = Shown();
    FocusElsewhere();
    const DRAWITEMSTRUCT empty = {};
    for (const HWND window : {button.Window(), button.Button()})
    {
        for (const UINT message : {WM_DRAWITEM, WM_MEASUREITEM, WM_DELETEITEM, WM_COMPAREITEM})
            SendMessageA(window, message, 0, 0);
    }
    SendMessageA(button.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&empty));
    button.Site().Call(L"Refresh");
    ExpectPicture(button.Look());
}

TEST_F(PicCommandPaint, RefreshPaintsItAgain)
{
    HostedButton& button = Shown();
    FocusElsewhere();
    const HDC dc = GetDC(button.Button());
    const RECT scratch = {5, 5, 30, 20};
    FillRect(dc, &scratch, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    ReleaseDC(button.Button(), dc);
    EXPECT_NE(Difference(PaintPicCommand(button.Look()), button.Shown()), "");
    button.Site().Call(L"Refresh");
    ExpectPicture(button.Look());
}

} // namespace

} // namespace kiv::test
