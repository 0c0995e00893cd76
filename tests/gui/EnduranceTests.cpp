// Long loops: nothing is left behind, however often.

#include "tests/gui/HostedTest.h"
#include "tests/support/TestFont.h"

#include "host/container/Button.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// Takes all drawing objects that a process can hold, some 65,000, but a few: a loop that leaves one at each
// turn then fails soon.
class DrawingObjectsRunShort
{
public:
    static constexpr int Left = 1000;

    DrawingObjectsRunShort()
    {
        while (const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3)))
            pens_.push_back(pen);
        for (int i = 0; i < Left; ++i)
            Free();
    }
    DrawingObjectsRunShort(const DrawingObjectsRunShort&) = delete;
    DrawingObjectsRunShort& operator=(const DrawingObjectsRunShort&) = delete;
    ~DrawingObjectsRunShort()
    {
        while (!pens_.empty())
            Free();
    }

private:
    void Free()
    {
        DeleteObject(pens_.back());
        pens_.pop_back();
    }

    std::vector<HPEN> pens_;
};

constexpr int MoreThanDrawingObjects = 3 * DrawingObjectsRunShort::Left;

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
        std::vector<HPEN> pens;
        for (int i = 0; i < DrawingObjectsRunShort::Left / 2; ++i)
            pens.push_back(CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
        EXPECT_NE(pens.back(), nullptr);
        for (const HPEN pen : pens)
            DeleteObject(pen);
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
        TheForm().PumpPending();
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
