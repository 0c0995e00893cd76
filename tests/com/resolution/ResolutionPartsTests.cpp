// How large a new control is on screens of 100 to 400 %, and where its parts are in it.

#include "tests/com/resolution/ScreenedControl.h"

#include "tests/com/PublishedClasses.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

namespace kiv::test
{

namespace
{

struct PartRow
{
    const wchar_t* Control;
    const wchar_t* WindowClass; // none for the control itself
    int Number;
    // Left, top, width and height in pixels of the window. The height is left out where it is that of a line
    // of the font.
    const char* Places[9];
};

const PartRow PartRows[] = {
    {L"YesNo",
     L"",
     0,
     {"0,0 120x20", "0,0 150x25", "0,0 180x30", "0,0 210x35", "0,0 240x40", "0,0 270x45", "0,0 300x50",
      "0,0 360x60", "0,0 480x80"}},
    {L"PicCommand",
     L"",
     0,
     {"0,0 120x25", "0,0 150x31", "0,0 180x37", "0,0 210x44", "0,0 240x50", "0,0 270x56", "0,0 300x62",
      "0,0 360x75", "0,0 480x100"}},
    {L"PicCommand",
     L"Button",
     0,
     {"0,0 120x25", "0,0 150x31", "0,0 180x37", "0,0 210x44", "0,0 240x50", "0,0 270x56", "0,0 300x62",
      "0,0 360x75", "0,0 480x100"}},
    {L"PicLite",
     L"",
     0,
     {"0,0 96x96", "0,0 120x120", "0,0 144x144", "0,0 168x168", "0,0 192x192", "0,0 216x216", "0,0 240x240",
      "0,0 288x288", "0,0 384x384"}},
    {L"NumberBox",
     L"",
     0,
     {"0,0 96x19", "0,0 120x24", "0,0 144x29", "0,0 168x33", "0,0 192x38", "0,0 216x43", "0,0 240x48",
      "0,0 288x57", "0,0 384x76"}},
    {L"NumberBox",
     L"Edit",
     0,
     {"0,0 96x19", "0,0 120x24", "0,0 144x29", "0,0 168x33", "0,0 192x38", "0,0 216x43", "0,0 240x48",
      "0,0 288x57", "0,0 384x76"}},
    {L"NumberBox",
     L"Edit",
     1,
     {"0,0 96x19", "0,0 120x24", "0,0 144x29", "0,0 168x33", "0,0 192x38", "0,0 216x43", "0,0 240x48",
      "0,0 288x57", "0,0 384x76"}},
    {L"DateBox",
     L"",
     0,
     {"0,0 80x19", "0,0 100x24", "0,0 120x29", "0,0 140x33", "0,0 160x38", "0,0 180x43", "0,0 200x48",
      "0,0 240x57", "0,0 320x76"}},
    {L"DateBox",
     L"Edit",
     0,
     {"0,0 80x19", "0,0 100x24", "0,0 120x29", "0,0 140x33", "0,0 160x38", "0,0 180x43", "0,0 200x48",
      "0,0 240x57", "0,0 320x76"}},
    {L"CurrencyBox",
     L"",
     0,
     {"0,0 96x19", "0,0 120x24", "0,0 144x29", "0,0 168x33", "0,0 192x38", "0,0 216x43", "0,0 240x48",
      "0,0 288x57", "0,0 384x76"}},
    {L"CurrencyBox",
     L"Edit",
     0,
     {"1,666 90x", "1,833 114x", "1,1000 138x", "1,1166 162x", "1,1333 186x", "1,1500 210x", "1,1666 234x",
      "1,2000 282x", "1,2666 378x"}},
    {L"PercentBox",
     L"",
     0,
     {"0,0 60x19", "0,0 75x24", "0,0 90x29", "0,0 105x33", "0,0 120x38", "0,0 135x43", "0,0 150x48",
      "0,0 180x57", "0,0 240x76"}},
    {L"PercentBox",
     L"Edit",
     0,
     {"1,666 54x", "1,833 69x", "1,1000 84x", "1,1166 99x", "1,1333 114x", "1,1500 129x", "1,1666 144x",
      "1,2000 174x", "1,2666 234x"}},
    {L"ChkCombo",
     L"",
     0,
     {"0,0 120x", "0,0 150x", "0,0 180x", "0,0 210x", "0,0 240x", "0,0 270x", "0,0 300x", "0,0 360x",
      "0,0 480x"}},
    {L"ChkCombo",
     L"ComboBox",
     0,
     {"0,0 120x", "0,0 150x", "0,0 180x", "0,0 210x", "0,0 240x", "0,0 270x", "0,0 300x", "0,0 360x",
      "0,0 480x"}},
    {L"EnumList",
     L"",
     0,
     {"0,0 121x19", "0,0 151x24", "0,0 181x29", "0,0 212x33", "0,0 242x38", "0,0 272x43", "0,0 302x48",
      "0,0 363x57", "0,0 484x76"}},
    {L"EnumList",
     L"Button",
     0,
     {"100,0 17x15", "125,0 21x20", "151,0 25x25", "178,0 29x29", "204,0 34x34", "229,0 38x39", "255,0 42x44",
      "308,0 51x53", "412,0 68x72"}},
};

class ResolutionPartsTest : public LibraryTest
{
};

TEST_F(ResolutionPartsTest, AreInTheirPlaces)
{
    SeveralScreens screens;
    for (const PartRow& row : PartRows)
    {
        for (std::size_t at = 0; at < std::size(PixelsPerInch); ++at)
        {
            SCOPED_TRACE(Narrow(row.Control) + " at " + std::to_string(PixelsPerInch[at]));
            ScreenedControl control(screens, Id(ClassNamed(row.Control).Class), PixelsPerInch[at]);
            control.InitNew();
            control.Activate();
            const SIZE size = control.SizeOfWindow();
            const RECT place = *row.WindowClass != L'\0' ? control.Part(row.WindowClass, row.Number)
                                                         : RECT{0, 0, size.cx, size.cy};
            const std::string expected = row.Places[at];
            EXPECT_EQ(Figures(place).substr(0, expected.size()), expected);
        }
    }
}

} // namespace

} // namespace kiv::test
