// A control's extent, its window and what its container was asked for are one size, whatever comes first.

#include "tests/com/each/EachTest.h"

#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/com/MakeCom.h"

#include <olectl.h>

#include <functional>
#include <optional>

namespace kiv::test
{

namespace
{

constexpr int PixelsPerInch = 96;
constexpr int HimetricPerInch = 2540;

SIZEL Himetric(SIZE pixels)
{
    return {MulDiv(pixels.cx, HimetricPerInch, PixelsPerInch),
            MulDiv(pixels.cy, HimetricPerInch, PixelsPerInch)};
}

SIZE SizeOf(const RECT& place)
{
    return {place.right - place.left, place.bottom - place.top};
}

std::string Figures(SIZE size)
{
    return std::to_string(size.cx) + "x" + std::to_string(size.cy);
}

// A control on a site that answers a wish for another place as it is told to.
class SizedControl : public HeldControl
{
public:
    enum class Answer
    {
        Granted, // by SetObjectRects with the place asked for
        Ignored,
        Refused // by SetObjectRects with the place that it gave
    };

    SizedControl(REFCLSID classId, Answer answer) : HeldControl(classId), answer_(answer)
    {
        Site().Log().AllowAll();
        Site().Log().OnCall([this](const std::string& call) {
            if (call == "OnPosRectChange")
                Asked();
        });
    }
    ~SizedControl() { Site().Log().OnCall({}); }

    void Activate(SIZE size)
    {
        place_ = {10, 10, 10 + size.cx, 10 + size.cy};
        Site().PlaceAt(place_);
        EXPECT_EQ(Hr(Query<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0,
                                                 Site().Window().Handle(), &place_)),
                  Hr(S_OK));
    }
    void SetObjectRects(SIZE size)
    {
        place_ = {20, 20, 20 + size.cx, 20 + size.cy};
        asked_.reset();
        Check(Query<IOleInPlaceObject>()->SetObjectRects(&place_, &place_));
    }
    void SetExtent(SIZE size)
    {
        SIZEL extent = Himetric(size);
        asked_.reset();
        EXPECT_EQ(Hr(Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent)), Hr(S_OK));
    }

    SIZE Extent() const
    {
        SIZEL extent = {};
        Check(Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
        return {MulDiv(extent.cx, PixelsPerInch, HimetricPerInch),
                MulDiv(extent.cy, PixelsPerInch, HimetricPerInch)};
    }
    // Of the window, while the control is active; else of its extent, there being no window to ask for.
    SIZE WindowSize() const
    {
        HWND window = nullptr;
        if (FAILED(Query<IOleInPlaceObject>()->GetWindow(&window)))
            return Extent();
        RECT place = {};
        GetWindowRect(window, &place);
        return SizeOf(place);
    }
    void ExpectOneSize(const std::string& when) const
    {
        SCOPED_TRACE(when);
        EXPECT_EQ(Figures(Extent()), Figures(WindowSize()));
        if (asked_ && answer_ != Answer::Refused)
        {
            EXPECT_EQ(Figures(Extent()), Figures(SizeOf(*asked_))) << "what the site was asked for last";
        }
    }

private:
    // Inside the control's own call, too, nothing is stale.
    void Asked()
    {
        asked_ = Site().AskedPosition();
        ExpectOneSize("while the site is asked");
        RECT given = answer_ == Answer::Granted ? *asked_ : place_;
        if (answer_ == Answer::Ignored)
            return;
        Check(Query<IOleInPlaceObject>()->SetObjectRects(&given, &given));
        if (answer_ == Answer::Refused)
        {
            EXPECT_EQ(Figures(Extent()), Figures(SizeOf(given)));
        }
    }

    const Answer answer_;
    RECT place_ = {};
    std::optional<RECT> asked_;
};

constexpr SIZE Sizes[] = {{160, 24}, {160, 26}, {150, 6}, {160, 4}, {160, 0},  {160, 2},
                          {2, 20},   {0, 0},    {1, 1},   {3, 200}, {300, 40}, {20, 3}};
constexpr SizedControl::Answer Answers[] = {SizedControl::Answer::Granted, SizedControl::Answer::Ignored,
                                            SizedControl::Answer::Refused};

class EachExtent : public EachTest
{
};

TEST_P(EachExtent, IsTheWindowsWhicheverWayItIsGiven)
{
    for (const SIZE& first : Sizes)
    {
        for (const SizedControl::Answer answer : Answers)
        {
            const SIZE second = {100, 21};
            SCOPED_TRACE(Figures(first) + " answered " + std::to_string(static_cast<int>(answer)));
            SizedControl control(ClassId(), answer);
            control.InitNew();
            control.ExpectOneSize("new");
            control.SetExtent(first);
            control.ExpectOneSize("given before activation");
            control.Activate(first);
            control.ExpectOneSize("activated");
            control.SetObjectRects(second);
            control.ExpectOneSize("placed");
            control.SetExtent(first);
            control.ExpectOneSize("given while active");
            control.SetObjectRects(first);
            control.ExpectOneSize("placed after that");
            Check(control.Query<IOleInPlaceObject>()->InPlaceDeactivate());
            control.ExpectOneSize("deactivated");
            control.SetExtent(second);
            control.Activate(first);
            control.ExpectOneSize("activated in another size than given");
        }
    }
}

// A size that the control has taken is one that it keeps: being given it again changes nothing.
TEST_P(EachExtent, SettlesAtOnce)
{
    for (const SIZE& given : Sizes)
    {
        SCOPED_TRACE(Figures(given));
        SizedControl control(ClassId(), SizedControl::Answer::Granted);
        control.InitNew();
        control.Activate({100, 30});
        control.SetObjectRects(given);
        const SIZE taken = control.WindowSize();
        EXPECT_GE(taken.cx, given.cx);
        for (int again = 0; again < 3; ++again)
        {
            control.SetObjectRects(taken);
            EXPECT_EQ(Figures(control.WindowSize()), Figures(taken));
        }
        // Only a direction in which it does not fit is changed.
        if (given.cx >= 50)
        {
            EXPECT_EQ(taken.cx, given.cx);
        }
        if (given.cy >= 50)
        {
            EXPECT_EQ(taken.cy, GetParam().Name == std::wstring(L"ChkCombo") ? taken.cy : given.cy);
        }
    }
}

TEST_P(EachExtent, FollowsAFontThatNeedsMoreRoom)
{
    FontFacts large;
    large.Size.int64 = 360000;
    const Variant font(static_cast<IDispatch*>(MakeFont(large).Get()));
    for (const bool loaded : {false, true})
    {
        SizedControl control(ClassId(), SizedControl::Answer::Granted);
        if (loaded)
            control.Site().SetAmbient(DISPID_AMBIENT_FONT, font);
        control.InitNew();
        control.Activate({150, 20});
        control.ExpectOneSize("activated");
        // One without a font has nothing to follow.
        if (!loaded && GetParam().Name != std::wstring(L"PicLite"))
            control.Put(L"Font", font);
        control.ExpectOneSize("font given");
        // A new start while it is active, as a designer's undo makes it.
        control.InitNew();
        control.ExpectOneSize("made new");
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, EachExtent, testing::ValuesIn(PublishedClasses()), ClassName());

// Only the height of an EnumList that is too low changes.
TEST_F(LibraryTest, ALowEnumListKeepsItsWidth)
{
    for (LONG height = 0; height <= 25; ++height)
    {
        SCOPED_TRACE(height);
        SizedControl control(CLSID_EnumList, SizedControl::Answer::Granted);
        control.InitNew();
        control.SetExtent({160, height});
        EXPECT_EQ(control.Extent().cx, 160);
        control.Activate({160, height});
        EXPECT_EQ(control.WindowSize().cx, 160);
        EXPECT_EQ(control.WindowSize().cy, std::max<LONG>(height, 16 + 4));
        // Placed again and again, as a designer does.
        for (int again = 0; again < 3; ++again)
            control.SetObjectRects({160, height});
        EXPECT_EQ(Figures(control.WindowSize()), Figures({160, std::max<LONG>(height, 16 + 4)}));
    }
}

} // namespace

} // namespace kiv::test
