// The picker on the screen of the form that it stands over.

#include "tests/gui/lists/ListsTest.h"
#include "tests/support/SeveralScreens.h"

namespace kiv::test
{

namespace
{

using PickerResolutionTest = ListsTest;

constexpr UINT DpiChanged = 0x02E0; // of systems that tell windows' resolutions apart

// Places in pixels, as left, top, width, height.
using Place = std::vector<long>;

Place At(const Picker& picker, HWND part)
{
    const RECT place = picker.Place(part);
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

LONG FontHeight(HWND window)
{
    LOGFONTW attributes = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof attributes,
               &attributes);
    return attributes.lfHeight;
}

struct PickerRow
{
    int PixelsPerInch;
    Place Inner;
    Place List;
    Place Frame;
    Place Option;
    Place Ok;
    Place Cancel;
    LONG FontHeight;
};

const PickerRow Rows[] = {
    {96,
     {252, 272},
     {8, 24, 236, 158},
     {8, 190, 236, 41},
     {20, 206, 61, 17},
     {90, 239, 73, 25},
     {171, 239, 73, 25},
     -11},
    {168,
     {441, 476},
     {14, 42, 413, 276},
     {14, 332, 413, 71},
     {35, 360, 106, 29},
     {157, 418, 127, 43},
     {299, 418, 127, 43},
     -19},
    {192,
     {504, 544},
     {16, 48, 472, 316},
     {16, 380, 472, 82},
     {40, 412, 122, 34},
     {180, 478, 146, 50},
     {342, 478, 146, 50},
     -22},
    {240,
     {630, 680},
     {20, 60, 590, 395},
     {20, 475, 590, 102},
     {50, 515, 152, 42},
     {225, 597, 182, 62},
     {427, 597, 182, 62},
     -28},
};

void ExpectRow(const PickerRow& row, const Picker& picker)
{
    EXPECT_EQ((Place{picker.InnerSize().cx, picker.InnerSize().cy}), row.Inner);
    EXPECT_EQ(At(picker, picker.List()), row.List);
    EXPECT_EQ(At(picker, picker.Frame()), row.Frame);
    EXPECT_EQ(At(picker, picker.Option(0)), row.Option);
    EXPECT_EQ(At(picker, picker.Ok()), row.Ok);
    EXPECT_EQ(At(picker, picker.CancelButton()), row.Cancel);
    for (const HWND part : {picker.List(), picker.Option(1), picker.Ok()})
        EXPECT_EQ(FontHeight(part), row.FontHeight);
}

TEST_F(PickerResolutionTest, IsLaidOutForTheScreenOfItsOwner)
{
    SeveralScreens screens;
    ShownList();
    for (const PickerRow& row : Rows)
    {
        SCOPED_TRACE(row.PixelsPerInch);
        screens.Put(TheForm().Window(), row.PixelsPerInch);
        Pick([&](Picker& picker) { ExpectRow(row, picker); });
    }
}

// Dragged onto another screen, it is what it would have been there from the beginning.
TEST_F(PickerResolutionTest, FollowsItsFrameToAnotherScreen)
{
    SeveralScreens screens;
    ShownList();
    for (const PickerRow& row : Rows)
    {
        SCOPED_TRACE(row.PixelsPerInch);
        screens.Put(TheForm().Window(), 120);
        Pick([&](Picker& picker) {
            EXPECT_EQ(FontHeight(picker.List()), -14);
            screens.Put(TheForm().Window(), row.PixelsPerInch);
            RECT outer = {};
            GetWindowRect(picker.Window(), &outer);
            // The frame stays as wide as it was on this one screen.
            const LONG frameWidth = outer.right - outer.left - picker.InnerSize().cx;
            const LONG frameHeight = outer.bottom - outer.top - picker.InnerSize().cy;
            const RECT there = {10, 10, 10 + row.Inner[0] + frameWidth, 10 + row.Inner[1] + frameHeight};
            SendMessageW(picker.Window(), DpiChanged, MAKEWPARAM(row.PixelsPerInch, row.PixelsPerInch),
                         reinterpret_cast<LPARAM>(&there));
            ExpectRow(row, picker);
        });
    }
}

} // namespace

} // namespace kiv::test
