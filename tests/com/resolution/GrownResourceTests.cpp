// The library's pictures in their larger sizes, read as any program reads a file's resources.

#include "tests/support/Library.h"
#include "tests/support/Pixels.h"
#include "tests/support/ShippedPicture.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

constexpr std::size_t Percents[] = {125, 150, 200, 300, 400};

// What a picture is on black.
Pixels Expected(const pictures::Picture& picture, SIZE size)
{
    Pixels pixels(size);
    for (int y = 0; y < size.cy; ++y)
    {
        for (int x = 0; x < size.cx; ++x)
        {
            const auto column = static_cast<std::size_t>(x);
            const auto row = static_cast<std::size_t>(y);
            const pictures::Pixel pixel =
                column < picture.width && row < picture.height ? picture.At(column, row) : std::nullopt;
            pixels.Set(x, y, pixel ? RGB(pixel->red, pixel->green, pixel->blue) : RGB(0, 0, 0));
        }
    }
    return pixels;
}

TEST(GrownResourceTest, IconsAreWhatTheirDrawingsMake)
{
    constexpr SIZE size = {96, 96};
    for (const char* name : {"checkmark", "partial", "plus", "minus", "note", "graph", "weblink",
                             "chkcmb_chk", "chkcmb_chk_sel", "chkcmb_par", "chkcmb_par_sel"})
    {
        for (const std::size_t percent : Percents)
        {
            const std::string resource = name + std::string("_") + std::to_string(percent);
            const auto icon = static_cast<HICON>(LoadImageA(Library::UnderTest().Module(), resource.c_str(),
                                                            IMAGE_ICON, 0, 0, LR_DEFAULTCOLOR));
            ASSERT_TRUE(icon) << resource;
            const Canvas canvas(size);
            DrawIconEx(canvas.Dc(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL);
            DestroyIcon(icon);
            EXPECT_EQ(Difference(Expected(ShippedPicture(name, percent), size), canvas.Content()), "")
                << resource;
        }
    }
}

TEST(GrownResourceTest, OptionImagesAreWhatTheirDrawingsMake)
{
    for (const char* name : {"ynclear", "ynset", "ynmask"})
    {
        for (const std::size_t percent : Percents)
        {
            const std::string resource = name + std::string("_") + std::to_string(percent);
            const pictures::Picture picture = ShippedPicture(name, percent);
            const SIZE size = {static_cast<LONG>(picture.width), static_cast<LONG>(picture.height)};
            const auto bitmap = static_cast<HBITMAP>(LoadImageA(
                Library::UnderTest().Module(), resource.c_str(), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
            ASSERT_TRUE(bitmap) << resource;
            const Canvas canvas(size);
            const HDC memory = CreateCompatibleDC(canvas.Dc());
            const HGDIOBJ former = SelectObject(memory, bitmap);
            BitBlt(canvas.Dc(), 0, 0, size.cx, size.cy, memory, 0, 0, SRCCOPY);
            SelectObject(memory, former);
            DeleteDC(memory);
            DeleteObject(bitmap);
            EXPECT_EQ(Difference(Expected(picture, size), canvas.Content()), "") << resource;
        }
    }
}

} // namespace

} // namespace kiv::test
