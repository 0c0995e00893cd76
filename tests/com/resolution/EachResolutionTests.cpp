// A control is laid out for the screen that its window is on, whichever way it came there.

#include "tests/com/each/EachTest.h"
#include "tests/com/resolution/ScreenedControl.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <cmath>
#include <memory>

namespace kiv::test
{

namespace
{

// Of systems that tell windows' resolutions apart.
constexpr UINT DpiChanged = 0x02E0;
constexpr UINT DpiChangedAfterParent = 0x02E3;

class EachResolution : public EachTest
{
protected:
    static bool Is(const wchar_t* name) { return GetParam().Name == std::wstring_view(name); }

    // One with something to be seen on it.
    std::unique_ptr<ScreenedControl> Made(int pixelsPerInch)
    {
        auto control = std::make_unique<ScreenedControl>(screens_, ClassId(), pixelsPerInch);
        control->InitNew();
        if (Is(L"PicCommand"))
        {
            control->Put(L"Caption", Variant(L"Caption"));
            control->Put(L"PictureType", Variant(4L));
        }
        else if (Is(L"CurrencyBox") || Is(L"PercentBox"))
        {
            control->Put(L"Value", Variant(12L));
        }
        else if (Is(L"EnumList"))
        {
            control->Put(L"EnumCode", Variant(L"CODE"));
        }
        else if (Is(L"NumberBox"))
        {
            control->Put(L"Value", Variant(L"123-45-6789"));
        }
        else if (Is(L"ChkCombo"))
        {
            Check(CallByName(control->Get(), L"AddItem", {Variant(L"Item")}).Result);
            control->Put(L"ListIndex", Variant(static_cast<short>(0)));
        }
        else if (Is(L"YesNo"))
        {
            control->Put(L"Value", Variant(2L));
        }
        return control;
    }
    Layout FreshAt(int pixelsPerInch)
    {
        const auto control = Made(pixelsPerInch);
        control->Activate();
        return control->Seen();
    }

    SeveralScreens screens_;
};

TEST_P(EachResolution, KeepsItsSizeInInches)
{
    for (const int perInch : PixelsPerInch)
    {
        SCOPED_TRACE(perInch);
        const auto control = Made(perInch);
        const SIZE before = control->SizeOfExtent();
        control->Activate();
        EXPECT_EQ(Figures(control->SizeOfWindow()), Figures(control->SizeOfExtent()));
        EXPECT_EQ(control->SizeOfWindow().cx, before.cx);
        // A list is as high as the system makes it.
        if (!Is(L"ChkCombo"))
        {
            EXPECT_EQ(control->SizeOfWindow().cy, before.cy);
            EXPECT_EQ(control->Asked(), 0);
        }
    }
}

TEST_P(EachResolution, HasItsFontInPoints)
{
    if (Is(L"PicLite"))
        return; // has none
    for (const int perInch : PixelsPerInch)
    {
        SCOPED_TRACE(perInch);
        const auto control = Made(perInch);
        control->Activate();
        // The object's size is a whole number of pixels of the system's screen, and there 8.25 points may be
        // none.
        const double points =
            static_cast<double>(FactsOf(control->Property(L"Font").Object()).Size.int64) / 10000;
        EXPECT_NEAR(points, 8.25, 0.5 * 72 / ScreenResolution());
        EXPECT_EQ(FontHeight(control->Window()), -std::lround(points * perInch / 72));
        FontFacts larger;
        larger.Size.int64 = 120000;
        control->Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont(larger).Get())));
        EXPECT_EQ(FontHeight(control->Window()), -12 * perInch / 72);
    }
}

// At the screen's own resolution the font object's own font is used, as its owner would find it.
TEST_P(EachResolution, TakesTheFontObjectsOwnFontWhereItFits)
{
    if (Is(L"PicLite"))
        return; // has none
    const int screen = ScreenResolution();
    const auto control = Made(screen);
    control->Activate();
    const Variant object = control->Property(L"Font");
    Microsoft::WRL::ComPtr<IFont> font;
    Check(object.Object()->QueryInterface(IID_PPV_ARGS(&font)));
    HFONT own = nullptr;
    Check(font->get_hFont(&own));
    const auto used = [&] {
        return reinterpret_cast<HFONT>(SendMessageW(control->Window(), WM_GETFONT, 0, 0));
    };
    EXPECT_EQ(used(), own);
    control->MoveTo(screen + 48);
    control->Fit();
    EXPECT_NE(used(), own);
    control->MoveTo(screen);
    control->Fit();
    EXPECT_EQ(used(), own);
}

TEST_P(EachResolution, IsTheSameWhicheverWayItCame)
{
    struct Way
    {
        const char* Name;
        void (*Go)(ScreenedControl& control, int pixelsPerInch);
    };
    const Way ways[] = {
        {"placed anew",
         [](ScreenedControl& control, int perInch) {
             control.MoveTo(perInch);
             control.Fit();
         }},
        {"told before it is placed",
         [](ScreenedControl& control, int perInch) {
             const SIZE size = control.SizeOfExtent();
             control.MoveTo(perInch);
             const SIZE fitting = control.SizeOfExtent();
             EXPECT_GE(fitting.cx * 1000, size.cx);
             SendMessageW(control.Window(), DpiChangedAfterParent, 0, 0);
             control.Place(fitting);
         }},
        {"told after it was placed",
         [](ScreenedControl& control, int perInch) {
             control.MoveTo(perInch);
             control.Fit();
             SendMessageW(control.Window(), DpiChangedAfterParent, 0, 0);
         }},
        {"told as its host was",
         [](ScreenedControl& control, int perInch) {
             control.MoveTo(perInch);
             const SIZE fitting = control.SizeOfExtent();
             SendMessageW(control.Window(), DpiChanged, MAKEWPARAM(perInch, perInch), 0);
             control.Place(fitting);
         }},
        {"activated anew",
         [](ScreenedControl& control, int perInch) {
             Check(control.Query<IOleInPlaceObject>()->InPlaceDeactivate());
             control.MoveTo(perInch);
             control.Activate();
         }},
        {"by way of another screen",
         [](ScreenedControl& control, int perInch) {
             for (const int each : {240, 120, perInch})
             {
                 control.MoveTo(each);
                 control.Fit();
             }
         }},
    };
    for (const int perInch : PixelsPerInch)
    {
        SCOPED_TRACE(perInch);
        const Layout expected = FreshAt(perInch);
        for (const Way& way : ways)
        {
            SCOPED_TRACE(way.Name);
            const auto control = Made(96);
            control->Activate();
            way.Go(*control, perInch);
            ExpectSame(expected, control->Seen());
        }
    }
}

TEST_P(EachResolution, IsRightOnSeveralScreensAtOnce)
{
    std::vector<std::unique_ptr<ScreenedControl>> controls;
    for (const int perInch : PixelsPerInch)
    {
        controls.push_back(Made(perInch));
        controls.back()->Activate();
    }
    for (std::size_t at = 0; at < std::size(PixelsPerInch); ++at)
    {
        SCOPED_TRACE(PixelsPerInch[at]);
        ExpectSame(FreshAt(PixelsPerInch[at]), controls[at]->Seen());
    }
}

// A host that leaves it as it is has it laid out for the screen all the same.
TEST_P(EachResolution, FollowsAHostThatPlacesNothing)
{
    for (const bool isPlaced : {false, true})
    {
        SCOPED_TRACE(isPlaced ? "placed where it is" : "told");
        const auto moved = Made(96);
        moved->Activate();
        moved->MoveTo(192);
        if (isPlaced)
            moved->Place(moved->SizeOfWindow());
        else
            SendMessageW(moved->Window(), DpiChangedAfterParent, 0, 0);
        const SIZE size = moved->SizeOfWindow();
        const auto fresh = Made(192);
        fresh->Activate();
        fresh->Place(size);
        ExpectSame(fresh->Seen(), moved->Seen());
    }
}

// Word that is no news changes nothing.
TEST_P(EachResolution, HearsOfNothingNew)
{
    const auto control = Made(144);
    control->Activate();
    const Layout before = control->Seen();
    const int asked = control->Asked();
    for (const UINT message : {DpiChanged, DpiChangedAfterParent})
        SendMessageW(control->Window(), message, MAKEWPARAM(192, 192), 0);
    ExpectSame(before, control->Seen());
    EXPECT_EQ(control->Asked(), asked);
}

// A control that is put away is what it was where it was last.
TEST_P(EachResolution, KeepsItsLastOneWhilePutAway)
{
    const auto control = Made(192);
    control->Activate();
    const SIZE size = control->SizeOfExtent();
    Check(control->Query<IOleInPlaceObject>()->InPlaceDeactivate());
    EXPECT_EQ(Figures(control->SizeOfExtent()), Figures(size));
    control->Activate();
    EXPECT_EQ(Figures(control->SizeOfWindow()), Figures(size));
}

INSTANTIATE_TEST_SUITE_P(Controls, EachResolution, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
