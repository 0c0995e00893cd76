#include "tools/pictures/PictureSheet.h"

#include <algorithm>
#include <stdexcept>

namespace kiv::pictures
{

namespace
{

constexpr std::size_t Scale = 8;
constexpr std::size_t Columns = 6;
constexpr std::size_t Margin = 1; // around each picture, in its own pixels
constexpr std::size_t Gap = 8;    // between pictures, in pixels of the sheet

void Fill(Picture& sheet, std::size_t left, std::size_t top, std::size_t width, std::size_t height,
          Colour colour)
{
    for (std::size_t y = top; y < top + height; ++y)
    {
        for (std::size_t x = left; x < left + width; ++x)
            sheet.pixels.at(y * sheet.width + x) = colour;
    }
}

} // namespace

Picture MakeSheet(const std::vector<Picture>& pictures)
{
    if (pictures.empty())
        throw std::invalid_argument("there is no picture for the sheet");
    std::size_t side = 0;
    for (const Picture& picture : pictures)
        side = std::max({side, picture.width, picture.height});
    const std::size_t cell = (side + 2 * Margin) * Scale;
    const std::size_t columns = std::min(Columns, pictures.size());
    const std::size_t rows = (pictures.size() + Columns - 1) / Columns;

    Picture sheet;
    sheet.kind = PictureKind::Bitmap;
    sheet.width = Gap + columns * (cell + Gap);
    sheet.height = Gap + rows * (cell + Gap);
    sheet.background = Colour{255, 255, 255};
    sheet.pixels.resize(sheet.width * sheet.height);
    for (std::size_t i = 0; i < pictures.size(); ++i)
    {
        const Picture& picture = pictures[i];
        const std::size_t left = Gap + i % Columns * (cell + Gap);
        const std::size_t top = Gap + i / Columns * (cell + Gap);
        Fill(sheet, left, top, cell, cell, picture.background);
        const std::size_t pictureLeft = left + (cell - picture.width * Scale) / 2;
        const std::size_t pictureTop = top + (cell - picture.height * Scale) / 2;
        for (std::size_t y = 0; y < picture.height; ++y)
        {
            for (std::size_t x = 0; x < picture.width; ++x)
                Fill(sheet, pictureLeft + x * Scale, pictureTop + y * Scale, Scale, Scale,
                     picture.At(x, y).value_or(picture.background));
        }
    }
    return sheet;
}

} // namespace kiv::pictures
