// What the controls' layouts and painting rely on in the library's own pictures.

#include "tools/pictures/PictureFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>

namespace kiv::test
{

using namespace kiv::pictures;

namespace
{

constexpr Colour Black{0, 0, 0};
constexpr Colour White{255, 255, 255};
constexpr Colour Silver{192, 192, 192};

struct Shipped
{
    PictureKind kind;
    std::size_t width;
    std::size_t height;
    bool operator==(const Shipped&) const = default;
};

std::map<std::string, Picture> ReadShipped()
{
    const PictureFolder folder = ReadPictureFolder(KIV_PICTURES_DIR);
    if (!folder.errors.empty())
        throw std::runtime_error(folder.errors.front());
    std::map<std::string, Picture> pictures;
    for (const auto& [name, picture, drawing] : folder.pictures)
        pictures.emplace(name, picture);
    return pictures;
}

const std::map<std::string, Shipped> Expected{
    {"checkmark", {PictureKind::Icon, 15, 10}},
    {"partial", {PictureKind::Icon, 15, 10}},
    {"plus", {PictureKind::Icon, 18, 18}},
    {"minus", {PictureKind::Icon, 18, 18}},
    {"note", {PictureKind::Icon, 23, 23}},
    {"graph", {PictureKind::Icon, 23, 23}},
    {"weblink", {PictureKind::Icon, 23, 23}},
    {"chkcmb_chk", {PictureKind::Icon, 14, 14}},
    {"chkcmb_chk_sel", {PictureKind::Icon, 14, 14}},
    {"chkcmb_par", {PictureKind::Icon, 14, 14}},
    {"chkcmb_par_sel", {PictureKind::Icon, 14, 14}},
    {"ynclear", {PictureKind::Bitmap, 14, 14}},
    {"ynset", {PictureKind::Bitmap, 14, 14}},
    {"ynmask", {PictureKind::Bitmap, 14, 14}},
    {"toolbox_enumlist", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_yesno", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_datebox", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_piccommand", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_chkcombo", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_piclite", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_percentbox", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_numberbox", {PictureKind::Toolbox, 16, 15}},
    {"toolbox_currencybox", {PictureKind::Toolbox, 16, 15}},
};

bool ColumnDrawn(const Picture& picture, std::size_t x)
{
    for (std::size_t y = 0; y < picture.height; ++y)
    {
        if (picture.At(x, y))
            return true;
    }
    return false;
}

bool RowDrawn(const Picture& picture, std::size_t y)
{
    for (std::size_t x = 0; x < picture.width; ++x)
    {
        if (picture.At(x, y))
            return true;
    }
    return false;
}

} // namespace

TEST(ShippedPictures, AreAllThereInTheirSizes)
{
    std::map<std::string, Shipped> found;
    for (const auto& [name, picture] : ReadShipped())
        found.emplace(name, Shipped{picture.kind, picture.width, picture.height});
    for (const auto& [name, shipped] : Expected)
        EXPECT_TRUE(found.contains(name) && found.at(name) == shipped) << name;
    EXPECT_EQ(found.size(), Expected.size());
}

// But for the marks of a status, which keep off the focus rectangle (StatusSigns.HaveOneSizeInOnePlace).
TEST(ShippedPictures, ButtonIconsReachAllFourEdges)
{
    const auto pictures = ReadShipped();
    for (const char* name : {"plus", "minus", "note", "graph", "weblink"})
    {
        const Picture& picture = pictures.at(name);
        EXPECT_TRUE(ColumnDrawn(picture, 0)) << name;
        EXPECT_TRUE(ColumnDrawn(picture, picture.width - 1)) << name;
        EXPECT_TRUE(RowDrawn(picture, 0)) << name;
        EXPECT_TRUE(RowDrawn(picture, picture.height - 1)) << name;
    }
}

TEST(ShippedPictures, ListIconsLeaveRoomBeforeTheText)
{
    const auto pictures = ReadShipped();
    for (const char* name : {"chkcmb_chk", "chkcmb_chk_sel", "chkcmb_par", "chkcmb_par_sel"})
    {
        EXPECT_TRUE(ColumnDrawn(pictures.at(name), 12)) << name;
        EXPECT_FALSE(ColumnDrawn(pictures.at(name), 13)) << name;
    }
}

TEST(ShippedPictures, OptionImagesMeetTheirMask)
{
    const auto pictures = ReadShipped();
    const Picture& mask = pictures.at("ynmask");
    for (std::size_t i = 0; i < mask.pixels.size(); ++i)
    {
        ASSERT_TRUE(mask.pixels[i] == Black || mask.pixels[i] == White) << "pixel " << i;
        if (mask.pixels[i] == Black)
            continue;
        EXPECT_EQ(pictures.at("ynset").pixels[i], Black) << "pixel " << i;
        EXPECT_EQ(pictures.at("ynclear").pixels[i], Black) << "pixel " << i;
    }
}

TEST(ShippedPictures, SetAndClearOptionsDifferInTheDotAlone)
{
    const auto pictures = ReadShipped();
    const Picture& set = pictures.at("ynset");
    const Picture& clear = pictures.at("ynclear");
    std::size_t dot = 0;
    for (std::size_t i = 0; i < set.pixels.size(); ++i)
    {
        if (set.pixels[i] == clear.pixels[i])
            continue;
        EXPECT_EQ(set.pixels[i], Black) << "pixel " << i;
        EXPECT_EQ(clear.pixels[i], White) << "pixel " << i;
        ++dot;
    }
    EXPECT_EQ(dot, 12u); // 4x4 without its corners
}

TEST(ShippedPictures, ToolboxImagesGiveTheButtonFaceAsTransparent)
{
    for (const auto& [name, picture] : ReadShipped())
    {
        if (picture.kind == PictureKind::Toolbox)
        {
            EXPECT_EQ(picture.At(0, picture.height - 1), Silver) << name;
        }
    }
}

} // namespace kiv::test
