// What the library keeps for each thread: the shared pictures and the title of its message boxes.

#include "framework/subclass/ModuleData.h"
#include "runtime/com/PerThread.h"
#include "tests/support/Pixels.h"
#include "tests/support/Thread.h"

#include <gtest/gtest.h>
#include <olectl.h>

namespace kiv::test
{

namespace
{

struct PicturePlace
{
    const wchar_t* Resource;
    Picture SharedPictures::*Place;
};

// All that are in the program of the tests.
constexpr PicturePlace Icons[] = {
    {L"CHECKMARK", &SharedPictures::checkmark},
    {L"PARTIAL", &SharedPictures::partial},
    {L"PLUS", &SharedPictures::plus},
    {L"MINUS", &SharedPictures::minus},
    {L"NOTE", &SharedPictures::note},
    {L"WEBLINK", &SharedPictures::weblink},
    {L"CHKCMB_CHK", &SharedPictures::chkcmb_chk},
    {L"CHKCMB_CHK_SEL", &SharedPictures::chkcmb_chk_sel},
    {L"CHKCMB_PAR", &SharedPictures::chkcmb_par},
    {L"CHKCMB_PAR_SEL", &SharedPictures::chkcmb_par_sel},
};

constexpr PicturePlace Bitmaps[] = {
    {L"YNCLEAR", &SharedPictures::YNCLEAR},
    {L"YNSET", &SharedPictures::YNSET},
    {L"YNMASK", &SharedPictures::YNMASK},
};

IPicture* At(const PicturePlace& place)
{
    return (Module().SharedPictures.*place.Place).Get();
}

short KindOf(const Picture& picture)
{
    short kind = PICTYPE_UNINITIALIZED;
    EXPECT_HRESULT_SUCCEEDED(picture->get_Type(&kind));
    return kind;
}

HANDLE HandleOf(const Picture& picture)
{
    OLE_HANDLE handle = 0;
    EXPECT_HRESULT_SUCCEEDED(picture->get_Handle(&handle));
    return LongToHandle(static_cast<LONG>(handle));
}

Pixels Drawn(HICON icon)
{
    const Canvas canvas({32, 32});
    DrawIconEx(canvas.Dc(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL);
    return canvas.Content();
}

Pixels Drawn(HBITMAP bitmap)
{
    const Canvas canvas({14, 14});
    const HDC source = CreateCompatibleDC(nullptr);
    const HGDIOBJ former = SelectObject(source, bitmap);
    BitBlt(canvas.Dc(), 0, 0, 14, 14, source, 0, 0, SRCCOPY);
    SelectObject(source, former);
    DeleteDC(source);
    return canvas.Content();
}

class ModuleDataTest : public testing::Test
{
protected:
    void SetUp() override { Main(); }
};

TEST_F(ModuleDataTest, HasEachIconInItsPlace)
{
    for (const PicturePlace& icon : Icons)
    {
        SCOPED_TRACE(testing::Message() << icon.Resource);
        const Picture& picture = Module().SharedPictures.*icon.Place;
        ASSERT_NE(picture.Get(), nullptr);
        EXPECT_EQ(KindOf(picture), PICTYPE_ICON);
        const auto expected =
            static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), icon.Resource, IMAGE_ICON, 32, 32, 0));
        ASSERT_NE(expected, nullptr);
        EXPECT_EQ(Difference(Drawn(expected), Drawn(static_cast<HICON>(HandleOf(picture)))), "");
        DestroyIcon(expected);
    }
}

TEST_F(ModuleDataTest, HasEachBitmapInItsPlace)
{
    for (const PicturePlace& bitmap : Bitmaps)
    {
        SCOPED_TRACE(testing::Message() << bitmap.Resource);
        const Picture& picture = Module().SharedPictures.*bitmap.Place;
        ASSERT_NE(picture.Get(), nullptr);
        EXPECT_EQ(KindOf(picture), PICTYPE_BITMAP);
        const HBITMAP handle = BitmapOf(picture);
        ASSERT_EQ(handle, HandleOf(picture));
        BITMAP facts = {};
        GetObjectW(handle, sizeof facts, &facts);
        EXPECT_EQ(facts.bmWidth, 14);
        EXPECT_EQ(facts.bmHeight, 14);
        const auto expected = static_cast<HBITMAP>(
            LoadImageW(GetModuleHandleW(nullptr), bitmap.Resource, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
        ASSERT_NE(expected, nullptr);
        EXPECT_EQ(Difference(Drawn(expected), Drawn(handle)), "");
        DeleteObject(expected);
    }
    EXPECT_EQ(BitmapOf(nullptr), nullptr);
}

// The program has no GRAPH: that leaves one place empty and the ones behind it filled.
TEST_F(ModuleDataTest, LeavesThePlaceOfAMissingPictureEmpty)
{
    EXPECT_EQ(Module().SharedPictures.graph.Get(), nullptr);
    EXPECT_NE(Module().SharedPictures.weblink.Get(), nullptr);
}

TEST_F(ModuleDataTest, HasPicturesInOtherSizesWhenTheyAreAskedFor)
{
    for (const PicturePlace& icon : Icons)
        EXPECT_EQ(PictureIn({100}, icon.Place).Get(), At(icon)) << icon.Resource;
    const Picture mark = PictureIn({200}, &SharedPictures::checkmark);
    ASSERT_NE(mark.Get(), nullptr);
    EXPECT_EQ(KindOf(mark), PICTYPE_ICON);
    ICONINFO facts = {};
    ASSERT_TRUE(GetIconInfo(IconOf(mark), &facts));
    BITMAP mask = {};
    GetObjectW(facts.hbmMask, sizeof mask, &mask);
    EXPECT_EQ(mask.bmWidth, 32) << "30 pixels in an icon of 32";
    DeleteObject(facts.hbmMask);
    DeleteObject(facts.hbmColor);
    EXPECT_EQ(PictureIn({200}, &SharedPictures::checkmark).Get(), mark.Get()) << "loaded once";

    const Picture option = PictureIn({150}, &SharedPictures::YNSET);
    ASSERT_NE(option.Get(), nullptr);
    BITMAP bitmap = {};
    GetObjectW(BitmapOf(option), sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, 21);
    EXPECT_EQ(bitmap.bmHeight, 21);
    // Not there.
    EXPECT_EQ(PictureIn({150}, &SharedPictures::checkmark).Get(), nullptr);
    EXPECT_EQ(PictureIn({200}, &SharedPictures::YNSET).Get(), nullptr);

    const Thread thread([&mark] {
        const HRESULT entered = OleInitialize(nullptr);
        EXPECT_HRESULT_SUCCEEDED(entered);
        EXPECT_NE(PictureIn({200}, &SharedPictures::checkmark).Get(), mark.Get()) << "each thread's own";
        FreeThreadData();
        OleUninitialize();
    });
}

TEST_F(ModuleDataTest, IsReplacedByAnotherStart)
{
    const SharedPictures before = Module().SharedPictures;
    Module().AppTitle = L"Another title";
    Module().SharedPictures.note.Reset();
    Module().SharedPictures.graph = before.plus;
    Main();
    EXPECT_EQ(Module().AppTitle, L"Host of the control tests");
    EXPECT_EQ(Module().SharedPictures.graph.Get(), nullptr)
        << "a picture that fails to load leaves nothing behind";
    for (const PicturePlace& icon : Icons)
    {
        EXPECT_NE(At(icon), nullptr) << icon.Resource;
        EXPECT_NE(At(icon), (before.*icon.Place).Get()) << icon.Resource;
    }
    // Who held an old one still has it.
    EXPECT_FALSE(Drawn(BitmapOf(before.YNSET)) == Drawn(BitmapOf(before.YNCLEAR)));
}

TEST_F(ModuleDataTest, IsEachThreadsOwn)
{
    const SharedPictures before = Module().SharedPictures;
    Module().AppTitle = L"The first thread's";
    {
        const Thread thread([] {
            const HRESULT entered = OleInitialize(nullptr);
            EXPECT_HRESULT_SUCCEEDED(entered);
            EXPECT_FALSE(Module().Started);
            EXPECT_EQ(Module().AppTitle, L"");
            EXPECT_EQ(Module().SharedPictures.YNSET.Get(), nullptr);
            Main();
            EXPECT_EQ(Module().AppTitle, L"Host of the control tests");
            EXPECT_NE(Module().SharedPictures.YNSET.Get(), nullptr);
            Module().AppTitle = L"The second thread's";
            FreeThreadData();
            EXPECT_FALSE(Module().Started) << "after its end a thread begins anew";
            FreeThreadData();
            OleUninitialize();
        });
    }
    EXPECT_EQ(Module().AppTitle, L"The first thread's");
    for (const PicturePlace& icon : Icons)
        EXPECT_EQ(At(icon), (before.*icon.Place).Get()) << icon.Resource;
    EXPECT_FALSE(Drawn(BitmapOf(before.YNSET)) == Drawn(BitmapOf(before.YNCLEAR)));
    Main();
}

} // namespace

} // namespace kiv::test
