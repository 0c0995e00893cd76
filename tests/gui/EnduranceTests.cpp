// Long loops: nothing is left behind, however often.

#include "tests/gui/DrawingObjectsRunShort.h"
#include "tests/gui/HostedTest.h"
#include "tests/support/TestFont.h"

#include "host/container/Button.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

DWORD Handles()
{
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

class EnduranceTest : public HostedTest
{
protected:
    // The picture is right only while all that it takes can still be made.
    static void ExpectDrawingObjectsLeft(const HostedYesNo& control)
    {
        DrawingObjectsRunShort::ExpectSomeLeft();
        EXPECT_EQ(control.FocusShown(), "Yes");
    }
};

TEST_F(EnduranceTest, CreatesActivatesAndDestroys)
{
    AddElsewhere();
    HostedYesNo first(TheForm(), Placed({20, 50, 140, 70}));
    ShowForm();
    const DrawingObjectsRunShort shortage;
    DWORD handles = 0;
    for (int turn = 0; turn < 2000; ++turn)
    {
        HostedYesNo control(TheForm(), Placed());
        control.Site().Focus();
        control.SetValue(turn % 3);
        PumpPending(TheForm());
        TheForm().Remove(control.Site());
        if (turn % 100 != 0)
            continue;
        ASSERT_EQ(ControlWindows(), 1) << "turn " << turn;
        // What the first turns make stays.
        if (turn == 100)
            handles = Handles();
    }
    constexpr DWORD systemsOwn = 20;
    EXPECT_LE(Handles(), handles + systemsOwn);
    first.Site().Focus();
    ExpectDrawingObjectsLeft(first);
}

TEST_F(EnduranceTest, Paints)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const DrawingObjectsRunShort shortage;
    for (int turn = 0; turn < MoreThanDrawingObjects; ++turn)
        RedrawWindow(control.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ExpectDrawingObjectsLeft(control);
}

TEST_F(EnduranceTest, MovesTheFocusRectangle)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const DrawingObjectsRunShort shortage;
    const ComPtr<_YesNo> called = control.Control();
    for (int turn = 0; turn < MoreThanDrawingObjects; ++turn)
    {
        AnswerEnums target = turn % 2 == 0 ? No : Yes;
        ASSERT_HRESULT_SUCCEEDED(called->DrawFocusState(&target));
    }
    ExpectDrawingObjectsLeft(control);
}

TEST_F(EnduranceTest, ChangesItsFont)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const DrawingObjectsRunShort shortage;
    ComPtr<IFontDisp> object;
    ComPtr<IFont> font;
    ASSERT_HRESULT_SUCCEEDED(control.Control()->get_Font(&object));
    ASSERT_HRESULT_SUCCEEDED(object.As(&font));
    for (int turn = 0; turn < MoreThanDrawingObjects; ++turn)
        ASSERT_HRESULT_SUCCEEDED(font->put_Underline(turn % 2 == 0));
    ExpectDrawingObjectsLeft(control);
}

TEST_F(EnduranceTest, TakesAnotherFont)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const DrawingObjectsRunShort shortage;
    const ComPtr<_YesNo> called = control.Control();
    const ComPtr<IFontDisp> fonts[] = {MakeFont(), MakeFont()};
    for (int turn = 0; turn < MoreThanDrawingObjects; ++turn)
        ASSERT_HRESULT_SUCCEEDED(called->putref_Font(fonts[turn % 2].Get()));
    ExpectDrawingObjectsLeft(control);
    for (const ComPtr<IFontDisp>& font : fonts)
        EXPECT_LE(References(font.Get()), 4U);
}

} // namespace

} // namespace kiv::test
