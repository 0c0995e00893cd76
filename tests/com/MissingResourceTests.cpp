// A library that has lost one of its pictures, as by somebody's resource editor: it must do without.

#include "tests/support/Files.h"
#include "tests/support/Library.h"
#include "tests/support/Pixels.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>

#include <gtest/gtest.h>

#include <ocidl.h>
#include <ole2.h>

#include <algorithm>
#include <stdexcept>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr SIZE PictureSize = {120, 40};

// RT_BITMAP, whose macro is a narrow one in this build.
const wchar_t* const BitmapType = MAKEINTRESOURCEW(2);

// Gives a resource of a file another name, which comes at the same place in their order. (A name lies in the
// resources with its length in front.)
void HideResource(const std::wstring& path, std::wstring name)
{
    std::vector<std::uint8_t> file = ReadWholeFile(path);
    const auto stored = [](const std::wstring& text) {
        std::vector<std::uint8_t> bytes = {static_cast<std::uint8_t>(text.size()), 0};
        for (const wchar_t character : text)
            bytes.insert(bytes.end(), {static_cast<std::uint8_t>(character), 0});
        return bytes;
    };
    const auto former = stored(name);
    --name.back();
    const auto next = [&](auto from) { return std::search(from, file.end(), former.begin(), former.end()); };
    const auto found = next(file.begin());
    if (found == file.end() || next(found + 1) != file.end())
        throw std::runtime_error("not exactly one resource of that name");
    std::ranges::copy(stored(name), found);
    WriteWholeFile(path, file);
}

// A control drawn while inactive.
Pixels Draw(const Library& library, AnswerEnums value)
{
    ComPtr<_YesNo> control;
    Check(library.Create(CLSID_YesNo).As(&control));
    ComPtr<IPersistStreamInit> persist;
    Check(control.As(&persist));
    EXPECT_EQ(Hr(persist->InitNew()), Hr(S_OK));
    EXPECT_EQ(Hr(control->put_Value(value)), Hr(S_OK));
    ComPtr<IViewObject> view;
    Check(control.As(&view));
    const Canvas canvas(PictureSize);
    const RECTL bounds = {0, 0, PictureSize.cx, PictureSize.cy};
    EXPECT_EQ(Hr(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas.Dc(), &bounds, nullptr,
                            nullptr, 0)),
              Hr(S_OK));
    return canvas.Content();
}

int PixelsUnlike(const Pixels& pixels, COLORREF color, int left, int right)
{
    int count = 0;
    for (int y = 0; y < PictureSize.cy; ++y)
    {
        for (int x = left; x < right; ++x)
            count += pixels.At(x, y) != color ? 1 : 0;
    }
    return count;
}

class MissingResourceTest : public testing::TestWithParam<const wchar_t*>
{
protected:
    void SetUp() override { Check(OleInitialize(nullptr)); }
    void TearDown() override { OleUninitialize(); }
};

TEST_P(MissingResourceTest, CostsNoMoreThanItsPicture)
{
    TemporaryFile file(L".ocx");
    file.CopyFrom(Library::UnderTest().Path());
    HideResource(file.Path(), GetParam());
    {
        const Library damaged(file.Path());
        ASSERT_EQ(FindResourceW(damaged.Module(), GetParam(), BitmapType), nullptr);
        ASSERT_NE(FindResourceW(Library::UnderTest().Module(), GetParam(), BitmapType), nullptr);
        for (const AnswerEnums value : {Neither, Yes, No})
        {
            const Pixels pixels = Draw(damaged, value);
            // The caption "Yes" stands right of the option's 14 pixels; the corner shows the paper.
            EXPECT_GT(PixelsUnlike(pixels, pixels.At(PictureSize.cx / 2, 0), 15, PictureSize.cx / 3), 20)
                << value;
        }
        EXPECT_EQ(Hr(damaged.CanUnloadNow()), Hr(S_OK));
    }
}

INSTANTIATE_TEST_SUITE_P(Bitmaps, MissingResourceTest, testing::Values(L"YNMASK", L"YNSET", L"YNCLEAR"),
                         [](const auto& row) { return Narrow(row.param); });

} // namespace

} // namespace kiv::test
