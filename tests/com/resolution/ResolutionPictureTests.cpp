// The library's own pictures on controls: in the size for the screen that each is on, pixel by pixel.

#include "tests/com/resolution/ScreenedControl.h"

#include "tests/com/PublishedClasses.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/ShippedPicture.h"

#include "runtime/com/Errors.h"

namespace kiv::test
{

namespace
{

struct Screen
{
    int PixelsPerInch;
    std::size_t Percent;
};

constexpr Screen Screens[] = {{96, 100},  {120, 125}, {144, 150}, {168, 150}, {192, 200},
                              {216, 200}, {240, 200}, {288, 300}, {384, 400}};

COLORREF ColourOf(const pictures::Colour& colour)
{
    return RGB(colour.red, colour.green, colour.blue);
}

// Whether all that a picture draws is to be seen with its corner there.
bool IsAt(const Pixels& shown, const pictures::Picture& picture, int left, int top)
{
    for (std::size_t y = 0; y < picture.height; ++y)
    {
        for (std::size_t x = 0; x < picture.width; ++x)
        {
            const pictures::Pixel& pixel = picture.At(x, y);
            if (pixel && shown.At(left + static_cast<int>(x), top + static_cast<int>(y)) != ColourOf(*pixel))
                return false;
        }
    }
    return true;
}

// Wherever it is.
bool IsShown(const Pixels& shown, const pictures::Picture& picture)
{
    const int lastLeft = shown.Size().cx - static_cast<int>(picture.width);
    const int lastTop = shown.Size().cy - static_cast<int>(picture.height);
    for (int top = 0; top <= lastTop; ++top)
    {
        for (int left = 0; left <= lastLeft; ++left)
        {
            if (IsAt(shown, picture, left, top))
                return true;
        }
    }
    return false;
}

class ResolutionPictureTest : public LibraryTest
{
protected:
    std::unique_ptr<ScreenedControl> Made(const wchar_t* name, const Screen& screen)
    {
        auto control =
            std::make_unique<ScreenedControl>(screens_, Id(ClassNamed(name).Class), screen.PixelsPerInch);
        control->InitNew();
        return control;
    }

private:
    SeveralScreens screens_;
};

TEST_F(ResolutionPictureTest, OptionsAreDrawnAtTheLeftOfEachRegion)
{
    for (const Screen& screen : Screens)
    {
        SCOPED_TRACE(screen.PixelsPerInch);
        const auto control = Made(L"YesNo", screen);
        constexpr COLORREF back = RGB(0, 200, 0);
        control->Put(L"BackColor", Variant(static_cast<long>(back)));
        control->Put(L"Value", Variant(1L));
        control->Activate();
        const Pixels shown = control->Seen().Picture;
        const pictures::Picture mask = ShippedPicture("ynmask", screen.Percent);
        const pictures::Picture set = ShippedPicture("ynset", screen.Percent);
        const int top = (shown.Size().cy - static_cast<int>(mask.height)) / 2;
        int wrong = 0;
        for (std::size_t y = 0; y < mask.height; ++y)
        {
            for (std::size_t x = 0; x < mask.width; ++x)
            {
                const bool isCircle = *mask.At(x, y) == pictures::Colour{};
                wrong += shown.At(static_cast<int>(x), top + static_cast<int>(y)) ==
                                 (isCircle ? ColourOf(*set.At(x, y)) : back)
                             ? 0
                             : 1;
            }
        }
        EXPECT_EQ(wrong, 0);
    }
}

TEST_F(ResolutionPictureTest, ButtonsShowTheirIcons)
{
    const char* const names[] = {"checkmark", "plus", "minus", "note", "graph", "weblink"};
    for (const Screen& screen : Screens)
    {
        for (long type = 0; type <= 5; ++type)
        {
            SCOPED_TRACE(std::string(names[type]) + " at " + std::to_string(screen.PixelsPerInch));
            const auto control = Made(L"PicCommand", screen);
            control->Put(L"PictureType", Variant(type));
            control->Put(L"DetailStatus", Variant(2L));
            control->Put(L"Caption", Variant(L"Caption"));
            control->Activate();
            const Pixels shown = control->Seen().Picture;
            EXPECT_TRUE(IsShown(shown, ShippedPicture(names[type], screen.Percent)));
        }
    }
}

TEST_F(ResolutionPictureTest, ListsShowTheirMarks)
{
    for (const Screen& screen : Screens)
    {
        for (const long status : {1L, 2L})
        {
            SCOPED_TRACE(std::to_string(status) + " at " + std::to_string(screen.PixelsPerInch));
            const auto control = Made(L"ChkCombo", screen);
            control->Activate();
            Check(CallByName(control->Get(), L"AddItem", {Variant(L"Item")}).Result);
            control->Put(L"ListIndex", Variant(static_cast<short>(0)));
            Microsoft::WRL::ComPtr<_ChkCombo> list;
            Check(control->Get()->QueryInterface(IID_PPV_ARGS(&list)));
            Check(list->put_ListCompletionStatus(0, static_cast<DetailStatusEnums>(status)));
            const Pixels shown = control->Seen().Picture;
            EXPECT_TRUE(
                IsShown(shown, ShippedPicture(status == 1 ? "chkcmb_par" : "chkcmb_chk", screen.Percent)));
        }
    }
}

// Each control at its own size, at once.
TEST_F(ResolutionPictureTest, SeveralSizesAreUsedAtOnce)
{
    std::vector<std::unique_ptr<ScreenedControl>> controls;
    for (const Screen& screen : Screens)
    {
        controls.push_back(Made(L"PicCommand", screen));
        controls.back()->Put(L"PictureType", Variant(4L));
        controls.back()->Activate();
    }
    for (std::size_t at = 0; at < std::size(Screens); ++at)
    {
        const Pixels shown = controls[at]->Seen().Picture;
        for (const std::size_t percent : {100U, 125U, 150U, 200U, 300U, 400U})
        {
            EXPECT_EQ(IsShown(shown, ShippedPicture("graph", percent)), percent == Screens[at].Percent)
                << percent << " % at " << Screens[at].PixelsPerInch;
        }
    }
}

} // namespace

} // namespace kiv::test
