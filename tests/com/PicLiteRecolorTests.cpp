// The exchange of colours, held bit by bit against its definition.

#include "tests/com/HeldControl.h"
#include "tests/com/PicLitePictures.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr SIZE Sizes[] = {{1, 1}, {2, 3}, {3, 2}, {7, 5}, {8, 8}, {17, 31}, {33, 2}, {64, 9}};

class PicLiteRecolor : public LibraryTest, public testing::WithParamInterface<BitmapFormat>
{
};

class PicLiteRecolorTest : public LibraryTest
{
};

// The result that a control makes of a bitmap, which it gets to keep.
ComPtr<IPictureDisp> ResultOf(_PicLite* control, GdiObject<HBITMAP> bitmap, OLE_COLOR mask, OLE_COLOR replace)
{
    Check(control->put_MaskColor(&mask));
    Check(control->put_ReplaceColor(&replace));
    Check(control->putref_Picture(PictureOf(std::move(bitmap)).Get()));
    ComPtr<IPictureDisp> result;
    Check(control->get_ResultPicture(&result));
    return result;
}

void ExpectAsDefined(_PicLite* control, const BitmapFormat& format, SIZE size, COLORREF mask,
                     COLORREF replace, unsigned seed)
{
    std::mt19937 random(seed);
    GdiObject<HBITMAP> bitmap = RandomBitmap(format, size, random);
    const GdiObject<HBITMAP> expected = ExchangedPixelByPixel(bitmap.Get(), mask, replace);
    const BitmapFacts before = FactsOf(bitmap.Get());
    const HBITMAP source = bitmap.Get();
    const ComPtr<IPictureDisp> result = ResultOf(control, std::move(bitmap), mask, replace);
    EXPECT_EQ(Difference(FactsOf(expected.Get()), FactsOf(BitmapIn(result.Get()))), "")
        << format << ", " << size.cx << " by " << size.cy << ", " << std::hex << mask << " by " << replace
        << ", seed " << std::dec << seed;
    EXPECT_EQ(Difference(before, FactsOf(source)), "") << "the source stays as it is";
}

TEST_P(PicLiteRecolor, DoesAsItIsDefined)
{
    const HeldControl control(CLSID_PicLite);
    control.Site().Log().AllowAll();
    control.InitNew();
    const auto picture = control.Query<_PicLite>();
    unsigned seed = 1;
    for (const SIZE size : Sizes)
    {
        for (int turn = 0; turn < 8; ++turn, ++seed)
        {
            SCOPED_TRACE(seed);
            std::mt19937 random(seed);
            const GdiObject<HBITMAP> same = RandomBitmap(GetParam(), size, random);
            // A colour of the picture, and one that is hardly in it; a colour that most formats have to
            // round, and the same one again.
            const COLORREF present = ColorAt(same.Get(), size.cx / 2, size.cy / 2);
            const COLORREF other = random() & 0xFFFFFF;
            for (const COLORREF mask : {present, other})
                for (const COLORREF replace : {other, present, RGB(255, 255, 255), RGB(1, 2, 3)})
                    ExpectAsDefined(picture.Get(), GetParam(), size, mask, replace, seed);
            if (HasFailure())
                return;
        }
    }
}

// Numbers that are no plain colours: a palette's entry, the nearest of a palette.
TEST_P(PicLiteRecolor, TakesEveryNumberForAColour)
{
    const HeldControl control(CLSID_PicLite);
    control.Site().Log().AllowAll();
    control.InitNew();
    const auto picture = control.Query<_PicLite>();
    const SIZE size = {9, 5};
    std::mt19937 random(3);
    const GdiObject<HBITMAP> same = RandomBitmap(GetParam(), size, random);
    const COLORREF present = ColorAt(same.Get(), 4, 2);
    for (const COLORREF kind : {0x01000000U, 0x02000000U, 0x10FF0000U, 0x7F000000U})
    {
        ExpectAsDefined(picture.Get(), GetParam(), size, kind | present, RGB(1, 2, 3), 3);
        ExpectAsDefined(picture.Get(), GetParam(), size, present, kind | 0x123456, 3);
        ExpectAsDefined(picture.Get(), GetParam(), size, present, kind | 1, 3);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, PicLiteRecolor, testing::ValuesIn(BitmapFormats()),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST_F(PicLiteRecolorTest, EqualColoursGiveThePictureAgain)
{
    const HeldControl control(CLSID_PicLite);
    control.Site().Log().AllowAll();
    control.InitNew();
    std::mt19937 random(11);
    GdiObject<HBITMAP> bitmap = RandomBitmap(BitmapFormats()[11], {31, 7}, random);
    const BitmapFacts source = FactsOf(bitmap.Get());
    const COLORREF color = ColorAt(bitmap.Get(), 3, 3);
    const auto result = ResultOf(control.Query<_PicLite>().Get(), std::move(bitmap), color, color);
    EXPECT_EQ(Difference(source, FactsOf(BitmapIn(result.Get()))), "");
}

// System colours stand for what they are when the exchange is made; only the lowest byte is looked at.
TEST_F(PicLiteRecolorTest, ResolvesSystemColours)
{
    const HeldControl control(CLSID_PicLite);
    control.Site().Log().AllowAll();
    control.InitNew();
    const auto picture = control.Query<_PicLite>();
    const COLORREF formerFace = GetSysColor(COLOR_BTNFACE);
    const INT face = COLOR_BTNFACE;
    const auto colored = [&] {
        std::mt19937 random(5);
        GdiObject<HBITMAP> bitmap = RandomBitmap(BitmapFormats()[11], {4, 4}, random);
        const COLORREF mask = ColorAt(bitmap.Get(), 0, 0);
        return ResultOf(picture.Get(), std::move(bitmap), mask, 0x80123400U | COLOR_BTNFACE);
    };
    const ComPtr<IPictureDisp> result = colored();
    EXPECT_EQ(ColorAt(BitmapIn(result.Get()), 0, 0), formerFace);

    const COLORREF otherFace = RGB(12, 34, 56);
    SetSysColors(1, &face, &otherFace);
    ComPtr<IPictureDisp> still;
    Check(picture->get_ResultPicture(&still));
    EXPECT_EQ(ColorAt(BitmapIn(still.Get()), 0, 0), formerFace);
    EXPECT_EQ(ColorAt(BitmapIn(colored().Get()), 0, 0), otherFace);
    SetSysColors(1, &face, &formerFace);

    // As the mask, too.
    const HDC screen = GetDC(nullptr);
    GdiObject<HBITMAP> bitmap(CreateCompatibleBitmap(screen, 1, 1));
    ReleaseDC(nullptr, screen);
    {
        const BitmapDc dc(bitmap.Get());
        SetPixel(dc.Get(), 0, 0, formerFace);
    }
    const auto exchanged =
        ResultOf(picture.Get(), std::move(bitmap), 0x80000000U | COLOR_BTNFACE, RGB(9, 8, 7));
    EXPECT_EQ(ColorAt(BitmapIn(exchanged.Get()), 0, 0), RGB(9, 8, 7));
}

TEST_F(PicLiteRecolorTest, RefusesMoreThan32768PixelsAside)
{
    const HeldControl control(CLSID_PicLite);
    control.Site().Log().AllowAll();
    control.InitNew();
    const auto picture = control.Query<_PicLite>();
    const struct
    {
        SIZE Size;
        HRESULT Result;
    } rows[] = {{{32768, 1}, S_OK}, {{1, 32768}, S_OK}, {{32769, 1}, Overflow}, {{1, 32769}, Overflow}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::to_string(row.Size.cx) + " by " + std::to_string(row.Size.cy));
        const ComPtr<IPictureDisp> source =
            PictureOf(GdiObject<HBITMAP>(CreateBitmap(row.Size.cx, row.Size.cy, 1, 1, nullptr)));
        EXPECT_EQ(Hr(picture->putref_Picture(source.Get())), Hr(row.Result));
        ComPtr<IPictureDisp> kept;
        ComPtr<IPictureDisp> result;
        Check(picture->get_Picture(&kept));
        Check(picture->get_ResultPicture(&result));
        EXPECT_EQ(kept.Get(), source.Get()) << "the picture is kept all the same";
        EXPECT_EQ(result.Get() != nullptr, row.Result == S_OK);
    }
}

// A device's own bitmap goes into a device context of its depth only.
TEST_F(PicLiteRecolorTest, GivesNothingForADevicesBitmapOfAForeignDepth)
{
    const HeldControl control(CLSID_PicLite);
    control.Site().Log().AllowAll();
    control.InitNew();
    const auto picture = control.Query<_PicLite>();
    for (const UINT depth : {4U, 8U, 16U, 24U})
    {
        SCOPED_TRACE(depth);
        GdiObject<HBITMAP> bitmap(CreateBitmap(4, 4, 1, depth, nullptr));
        {
            const BitmapDc dc(bitmap.Get());
            ASSERT_FALSE(dc.Holds()) << "this system takes it";
        }
        EXPECT_EQ(ResultOf(picture.Get(), std::move(bitmap), 0, 255).Get(), nullptr);
    }
}

// The host may be drawing with the bitmap at that moment, and a bitmap is in one device context only.
TEST_F(PicLiteRecolorTest, GivesNothingForABitmapThatIsInUse)
{
    const HeldControl control(CLSID_PicLite);
    control.Site().Log().AllowAll();
    control.InitNew();
    std::mt19937 random(7);
    const ComPtr<IPictureDisp> source = PictureOf(RandomBitmap(BitmapFormats()[11], {4, 4}, random));
    const BitmapDc dc(BitmapIn(source.Get()));
    const auto picture = control.Query<_PicLite>();
    EXPECT_EQ(Hr(picture->putref_Picture(source.Get())), Hr(S_OK));
    ComPtr<IPictureDisp> result;
    Check(picture->get_ResultPicture(&result));
    EXPECT_EQ(result.Get(), nullptr);
}

} // namespace

} // namespace kiv::test
