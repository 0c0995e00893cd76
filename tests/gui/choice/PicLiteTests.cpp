// A PicLite on a form: what shows of its picture, and the caption that it gives all message boxes.

#include "tests/gui/HostedTest.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Pictures.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>
#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr COLORREF Red = RGB(255, 0, 0);
constexpr COLORREF Green = RGB(0, 255, 0);
constexpr COLORREF Blue = RGB(0, 0, 255);

// Red above, green below.
ComPtr<IPictureDisp> RedAndGreen(int width, int height)
{
    return PictureOf(TwoColours({width, height}, Red, Green, {width, height / 2}));
}

class PicLiteShown : public HostedTest
{
protected:
    host::ControlSite& Shown()
    {
        site_ = &TheForm().Add(Library::UnderTest().Create(CLSID_PicLite).Get(), Placed({20, 20, 80, 60}));
        ShowForm();
        return *site_;
    }
    void PutPicture(const ComPtr<IPictureDisp>& picture) const
    {
        EXPECT_HRESULT_SUCCEEDED(site_->Query<_PicLite>()->putref_Picture(picture.Get()));
    }
    // Before any message is handled.
    COLORREF At(int x, int y) const { return PixelsOfWindow(site_->Window()).At(x, y); }

private:
    host::ControlSite* site_ = nullptr;
};

TEST_F(PicLiteShown, ShowsEachChangeAtOnce)
{
    host::ControlSite& site = Shown();
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(At(0, 0), face);
    PutPicture(RedAndGreen(30, 20));
    EXPECT_EQ(At(0, 0), Red);
    EXPECT_EQ(At(29, 19), Green);
    EXPECT_EQ(At(30, 19), face);
    EXPECT_EQ(At(29, 20), face);
    site.Put(L"MaskColor", Variant(static_cast<long>(Red)));
    EXPECT_EQ(At(0, 0), RGB(0, 0, 0));
    site.Put(L"ReplaceColor", Variant(static_cast<long>(Blue)));
    EXPECT_EQ(At(0, 0), Blue);
    EXPECT_EQ(At(29, 19), Green);
    site.Put(L"ReplaceColor", Variant(static_cast<long>(0x8000000F)));
    EXPECT_EQ(At(0, 0), face);
    PutPicture(nullptr);
    EXPECT_EQ(At(29, 19), face);
}

TEST_F(PicLiteShown, ShowsWhatFitsOfALargePicture)
{
    Shown();
    PutPicture(RedAndGreen(200, 60));
    EXPECT_EQ(At(59, 29), Red);
    EXPECT_EQ(At(59, 30), Green);
    PumpPending(TheForm());
    EXPECT_EQ(At(59, 39), Green);
}

// What covers it for a moment takes nothing away.
TEST_F(PicLiteShown, IsPaintedAgain)
{
    host::ControlSite& site = Shown();
    PutPicture(RedAndGreen(30, 20));
    InvalidateRect(site.Window(), nullptr, TRUE);
    PumpPending(TheForm());
    EXPECT_EQ(At(0, 0), Red);
    site.SetVisible(false);
    site.SetVisible(true);
    PumpPending(TheForm());
    EXPECT_EQ(At(0, 0), Red);
}

TEST_F(PicLiteShown, SetAppTitleIsForAllControlsOfTheThread)
{
    host::ControlSite& site = Shown();
    HostedYesNo answer(TheForm(), Placed({100, 20, 220, 40}));
    const auto caption = [&] {
        MessageBoxWatcher watcher;
        EXPECT_HRESULT_SUCCEEDED(answer.Control()->ShowAboutBox());
        const std::vector<ShownMessageBox> shown = watcher.Stop();
        return shown.empty() ? std::wstring() : shown[0].Caption;
    };
    const std::wstring former = caption();
    site.Call(L"SetAppTitle", {Variant(L"Form Folio 2001")});
    EXPECT_EQ(caption(), L"Form Folio 2001");
    site.Call(L"SetAppTitle", {Variant(L"")});
    // Without a caption of its own a box says that there is an error.
    EXPECT_NE(caption(), L"Form Folio 2001");
    site.Call(L"SetAppTitle", {Variant(former)});
    EXPECT_EQ(caption(), former);
}

} // namespace

} // namespace kiv::test
