// PicLite as COM sees it: its properties, what it tells its host, how it is kept, and what it makes of
// pictures that are no bitmaps.

#include "tests/com/HeldControl.h"
#include "tests/com/PicLitePictures.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MemoryStorage.h"
#include "tests/support/Pixels.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>
#include <olectl.h>

#include <memory>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr DISPID PictureId = 1;
constexpr DISPID MaskColorId = 2;
constexpr DISPID ReplaceColorId = 3;
using Ids = std::vector<DISPID>;
using Names = std::vector<std::wstring>;

constexpr COLORREF Red = RGB(255, 0, 0);
constexpr COLORREF Green = RGB(0, 255, 0);

// Red, with one green pixel in the middle.
ComPtr<IPictureDisp> RedPicture(SIZE size = {7, 5})
{
    const HDC screen = GetDC(nullptr);
    GdiObject<HBITMAP> bitmap(CreateCompatibleBitmap(screen, size.cx, size.cy));
    ReleaseDC(nullptr, screen);
    {
        const BitmapDc dc(bitmap.Get());
        const GdiObject<HBRUSH> brush(CreateSolidBrush(Red));
        const RECT whole = {0, 0, size.cx, size.cy};
        FillRect(dc.Get(), &whole, brush.Get());
        SetPixel(dc.Get(), size.cx / 2, size.cy / 2, Green);
    }
    return PictureOf(std::move(bitmap));
}

Variant AsValue(const ComPtr<IPictureDisp>& picture)
{
    return Variant(static_cast<IDispatch*>(picture.Get()));
}

class PicLiteTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = std::make_unique<HeldControl>(CLSID_PicLite);
        Control().Site().Log().AllowAll();
    }
    void TearDown() override
    {
        connection_.reset();
        control_.reset();
        LibraryTest::TearDown();
    }
    const HeldControl& Control() const { return *control_; }
    ComPtr<_PicLite> PicLite() const { return Control().Query<_PicLite>(); }
    void Listen()
    {
        connection_ =
            std::make_unique<Connection>(Control().Get(), IID_IPropertyNotifySink, properties_.Get());
    }
    ComPtr<IPictureDisp> Result() const
    {
        ComPtr<IPictureDisp> result;
        EXPECT_EQ(Hr(PicLite()->get_ResultPicture(&result)), Hr(S_OK));
        return result;
    }
    ComPtr<IPictureDisp> Source() const
    {
        ComPtr<IPictureDisp> source;
        EXPECT_EQ(Hr(PicLite()->get_Picture(&source)), Hr(S_OK));
        return source;
    }
    void SetMask(OLE_COLOR color) const { EXPECT_EQ(Hr(PicLite()->put_MaskColor(&color)), Hr(S_OK)); }
    void SetReplace(OLE_COLOR color) const { EXPECT_EQ(Hr(PicLite()->put_ReplaceColor(&color)), Hr(S_OK)); }
    Pixels Drawn(SIZE size = {20, 10}) const
    {
        SIZEL extent = {MulDiv(size.cx, 2540, 96), MulDiv(size.cy, 2540, 96)};
        Check(Control().Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent));
        const Canvas canvas(size);
        const RECTL bounds = {0, 0, size.cx, size.cy};
        EXPECT_EQ(Hr(Control().Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                          canvas.Dc(), &bounds, nullptr, nullptr, 0)),
                  Hr(S_OK));
        return canvas.Content();
    }
    static bool IsEmpty(const Pixels& pixels)
    {
        for (int y = 0; y < pixels.Size().cy; ++y)
            for (int x = 0; x < pixels.Size().cx; ++x)
                if (pixels.At(x, y) != GetSysColor(COLOR_BTNFACE))
                    return false;
        return true;
    }

    ComPtr<PropertyNotifyRecorder> properties_ = MakeCom<PropertyNotifyRecorder>();

private:
    std::unique_ptr<HeldControl> control_;
    std::unique_ptr<Connection> connection_;
};

TEST_F(PicLiteTest, BeginsWithNothing)
{
    Control().InitNew();
    EXPECT_EQ(Control().Shown(L"Picture"), "VT 9 nothing");
    EXPECT_EQ(Control().Shown(L"ResultPicture"), "VT 9 nothing");
    EXPECT_EQ(Control().Property(L"MaskColor").Long(), 0);
    EXPECT_EQ(Control().Property(L"ReplaceColor").Long(), 0);
    EXPECT_TRUE(IsEmpty(Drawn()));
    // It has neither a font nor colours of its own, and no enabled state.
    for (const wchar_t* name : {L"BackColor", L"ForeColor", L"Font", L"Enabled", L"hwnd"})
        EXPECT_EQ(IdOfName(Control().Get(), name), DISPID_UNKNOWN) << Narrow(name);
}

TEST_F(PicLiteTest, ExchangesTheColourWheneverAnythingChanges)
{
    Control().InitNew();
    Control().Put(L"Picture", AsValue(RedPicture()));
    EXPECT_EQ(ColorAt(BitmapIn(Result().Get()), 0, 0), Red);
    Control().Put(L"MaskColor", Variant(static_cast<long>(Red)));
    EXPECT_EQ(ColorAt(BitmapIn(Result().Get()), 0, 0), RGB(0, 0, 0));
    Control().Put(L"ReplaceColor", Variant(static_cast<long>(RGB(1, 2, 3))));
    EXPECT_EQ(ColorAt(BitmapIn(Result().Get()), 0, 0), RGB(1, 2, 3));
    EXPECT_EQ(ColorAt(BitmapIn(Result().Get()), 3, 2), Green);
    EXPECT_EQ(ColorAt(BitmapIn(Source().Get()), 0, 0), Red) << "the source stays as it is";
    Control().Put(L"Picture", Variant(static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ(Result().Get(), nullptr);
}

TEST_F(PicLiteTest, TellsOfEveryPictureAndOfOtherColours)
{
    Control().InitNew();
    Listen();
    const ComPtr<IPictureDisp> picture = RedPicture();
    ComPtr<IPictureDisp> former;
    for (int turn = 0; turn < 2; ++turn)
    {
        Control().Put(L"Picture", AsValue(picture));
        EXPECT_EQ(properties_->TakeChanges(), Ids{PictureId});
        EXPECT_NE(Result().Get(), former.Get()) << "exchanged anew";
        former = Result();
    }
    Control().Put(L"MaskColor", Variant(5L));
    EXPECT_EQ(properties_->TakeChanges(), Ids{MaskColorId});
    Control().Put(L"ReplaceColor", Variant(6L));
    EXPECT_EQ(properties_->TakeChanges(), Ids{ReplaceColorId});
    former = Result();
    Control().Put(L"MaskColor", Variant(5L));
    Control().Put(L"ReplaceColor", Variant(6L));
    EXPECT_EQ(properties_->TakeChanges(), Ids());
    EXPECT_EQ(Result().Get(), former.Get()) << "nothing was exchanged";
    Control().Put(L"Picture", Variant(static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ(properties_->TakeChanges(), Ids{PictureId});
}

TEST_F(PicLiteTest, TellsNothingOfAColourThatComesWithAPictureTooLarge)
{
    Control().InitNew();
    const ComPtr<IPictureDisp> large = PictureOf(GdiObject<HBITMAP>(CreateBitmap(32769, 1, 1, 1, nullptr)));
    Listen();
    const CallOutcome outcome = PutRefByName(Control().Get(), L"Picture", AsValue(large));
    EXPECT_EQ(Hr(outcome.ErrorCode), Hr(RunTimeError(6)));
    EXPECT_EQ(Narrow(outcome.ErrorSource), "PicLite");
    EXPECT_EQ(properties_->TakeChanges(), Ids());
    EXPECT_EQ(Source().Get(), large.Get());
    EXPECT_EQ(Result().Get(), nullptr);
    EXPECT_TRUE(IsEmpty(Drawn()));
}

TEST_F(PicLiteTest, TakesColoursByReferenceAndByValue)
{
    Control().InitNew();
    for (const wchar_t* name : {L"MaskColor", L"ReplaceColor"})
    {
        Control().Put(name, Variant(static_cast<long>(0x8000000F)));
        EXPECT_EQ(static_cast<OLE_COLOR>(Control().Property(name).Long()), 0x8000000FU);
        LONG number = 77;
        Control().Put(name, Variant::ByReference(VT_I4, &number));
        EXPECT_EQ(Control().Property(name).Long(), 77);
        EXPECT_EQ(number, 77);
        Control().Put(name, Variant(L"&H10"));
        EXPECT_EQ(Control().Property(name).Long(), 16);
        EXPECT_NE(Hr(PutByName(Control().Get(), name, Variant(L"red")).Result), Hr(S_OK));
        EXPECT_EQ(Control().Property(name).Long(), 16);
    }
    EXPECT_EQ(Hr(PicLite()->put_MaskColor(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(PicLite()->SetAppTitle(nullptr)), Hr(E_POINTER));
}

TEST_F(PicLiteTest, TheResultOwnsItsBitmap)
{
    Control().InitNew();
    Control().Put(L"MaskColor", Variant(static_cast<long>(Red)));
    Control().Put(L"Picture", AsValue(RedPicture()));
    ComPtr<IPictureDisp> kept = Result();
    const HBITMAP bitmap = BitmapIn(kept.Get());
    // The control has another one by now, and this one still is what it was.
    Control().Put(L"ReplaceColor", Variant(static_cast<long>(Green)));
    EXPECT_NE(BitmapIn(Result().Get()), bitmap);
    EXPECT_EQ(ColorAt(bitmap, 0, 0), RGB(0, 0, 0));
    EXPECT_EQ(References(kept.Get()), 1U);
    kept.Reset();
    BITMAP header = {};
    EXPECT_EQ(GetObjectA(bitmap, sizeof header, &header), 0) << "the bitmap goes with its picture";
}

TEST_F(PicLiteTest, DrawsTheResultUnscaledInTheCorner)
{
    Control().InitNew();
    Control().Put(L"MaskColor", Variant(static_cast<long>(Red)));
    Control().Put(L"ReplaceColor", Variant(static_cast<long>(RGB(0, 0, 255))));
    Control().Put(L"Picture", AsValue(RedPicture()));
    const Pixels drawn = Drawn();
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x)
        {
            const bool inside = x < 7 && y < 5;
            const COLORREF picture = x == 3 && y == 2 ? Green : RGB(0, 0, 255);
            ASSERT_EQ(drawn.At(x, y), inside ? picture : GetSysColor(COLOR_BTNFACE)) << x << ", " << y;
        }
    // Cut off where the surface ends.
    EXPECT_EQ(Drawn({4, 3}).At(3, 2), Green);
}

struct PictureKind
{
    const char* Name;
    ComPtr<IPictureDisp> (*Make)();
    SHORT Kind;
};

const PictureKind PictureKinds[] = {
    {"icon", &IconPicture, PICTYPE_ICON},
    {"metafile", &MetafilePicture, PICTYPE_METAFILE},
    {"enhanced metafile", &EnhancedMetafilePicture, PICTYPE_ENHMETAFILE},
    {"empty", &EmptyPicture, PICTYPE_NONE},
};

TEST_F(PicLiteTest, ShowsNothingForPicturesThatAreNoBitmaps)
{
    Control().InitNew();
    Listen();
    for (const PictureKind& kind : PictureKinds)
    {
        SCOPED_TRACE(kind.Name);
        Control().Put(L"Picture", AsValue(RedPicture()));
        properties_->TakeChanges();
        const ComPtr<IPictureDisp> picture = kind.Make();
        Control().Put(L"Picture", AsValue(picture));
        EXPECT_EQ(properties_->TakeChanges(), Ids{PictureId});
        EXPECT_EQ(Source().Get(), picture.Get());
        EXPECT_EQ(Result().Get(), nullptr);
        EXPECT_TRUE(IsEmpty(Drawn()));
        SetMask(static_cast<OLE_COLOR>(1 + std::size(PictureKinds)));
        SetMask(0);
    }
}

TEST_F(PicLiteTest, ReadsAndWritesInItsOrder)
{
    const auto bag = MakeCom<TestPropertyBag>();
    const auto persist = Control().Query<IPersistPropertyBag>();
    EXPECT_EQ(Hr(persist->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(bag->NamesRead(), (Names{L"Picture", L"ReplaceColor", L"MaskColor"}));
    const auto defaults = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(persist->Save(defaults.Get(), TRUE, FALSE)), Hr(S_OK));
    EXPECT_EQ(defaults->NamesWritten(), Names());

    Control().Put(L"Picture", AsValue(RedPicture()));
    SetMask(Red);
    SetReplace(0x8000000F);
    const auto whole = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(persist->Save(whole.Get(), TRUE, FALSE)), Hr(S_OK));
    EXPECT_EQ(whole->NamesWritten(), (Names{L"Picture", L"ReplaceColor", L"MaskColor"}));
    EXPECT_EQ(static_cast<OLE_COLOR>(whole->Find(L"ReplaceColor").Long()), 0x8000000FU);

    const HeldControl other(CLSID_PicLite);
    other.Site().Log().AllowAll();
    const auto connection =
        std::make_unique<Connection>(other.Get(), IID_IPropertyNotifySink, properties_.Get());
    EXPECT_EQ(Hr(other.Query<IPersistPropertyBag>()->Load(whole.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(properties_->TakeChanges(), Ids());
    ComPtr<IPictureDisp> result;
    Check(other.Query<_PicLite>()->get_ResultPicture(&result));
    EXPECT_EQ(ColorAt(BitmapIn(result.Get()), 0, 0), GetSysColor(COLOR_BTNFACE)) << "exchanged once loaded";
}

TEST_F(PicLiteTest, TakesTheDefaultForWhatItCannotUse)
{
    const struct
    {
        const wchar_t* Name;
        Variant Stored;
    } rows[] = {{L"Picture", Variant(L"picture.bmp")},
                {L"MaskColor", Variant(L"red")},
                {L"ReplaceColor", AsValue(RedPicture())}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Name));
        const auto bag = MakeCom<TestPropertyBag>();
        const auto log = MakeCom<TestErrorLog>();
        bag->Put(row.Name, row.Stored);
        EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Load(bag.Get(), log.Get())), Hr(S_OK));
        EXPECT_EQ(log->Entries().size(), 1U);
        EXPECT_EQ(Source().Get(), nullptr);
        EXPECT_EQ(Control().Property(L"MaskColor").Long(), 0);
    }
}

// Saved into a stream and a storage, and back again.
void ExpectKept(const HeldControl& saved, const HeldControl& loaded, bool inStorage)
{
    if (inStorage)
    {
        const ComPtr<IStorage> storage = MakeMemoryStorage();
        ASSERT_EQ(Hr(saved.Query<IPersistStorage>()->Save(storage.Get(), FALSE)), Hr(S_OK));
        saved.Query<IPersistStorage>()->SaveCompleted(nullptr);
        ASSERT_EQ(Hr(loaded.Query<IPersistStorage>()->Load(storage.Get())), Hr(S_OK));
        return;
    }
    const auto stream = MakeCom<TestStream>();
    ASSERT_EQ(Hr(saved.Query<IPersistStreamInit>()->Save(stream.Get(), FALSE)), Hr(S_OK));
    stream->Rewind();
    ASSERT_EQ(Hr(loaded.Query<IPersistStreamInit>()->Load(stream.Get())), Hr(S_OK));
}

TEST_F(PicLiteTest, ComesBackFromAStreamAndAStorage)
{
    Control().InitNew();
    SetReplace(RGB(1, 2, 3));
    for (const BitmapFormat& format : BitmapFormats())
    {
        if (!format.IsSection || format.Masks[0] != 0 || format.BitsPerPixel == 16 ||
            format.BitsPerPixel == 32)
            continue;
        SCOPED_TRACE(format.Name);
        std::mt19937 random(9);
        GdiObject<HBITMAP> bitmap = RandomBitmap(format, {13, 9}, random);
        SetMask(ColorAt(bitmap.Get(), 5, 5));
        Control().Put(L"Picture", AsValue(PictureOf(std::move(bitmap))));
        for (const bool inStorage : {false, true})
        {
            const HeldControl other(CLSID_PicLite);
            other.Site().Log().AllowAll();
            ExpectKept(Control(), other, inStorage);
            EXPECT_EQ(other.Shown(L"MaskColor"), Control().Shown(L"MaskColor"));
            EXPECT_EQ(other.Shown(L"ReplaceColor"), Control().Shown(L"ReplaceColor"));
            ComPtr<IPictureDisp> picture;
            Check(other.Query<_PicLite>()->get_Picture(&picture));
            ASSERT_NE(BitmapIn(picture.Get()), nullptr);
            for (int y = 0; y < 9; ++y)
                for (int x = 0; x < 13; ++x)
                    ASSERT_EQ(ColorAt(BitmapIn(picture.Get()), x, y), ColorAt(BitmapIn(Source().Get()), x, y))
                        << x << ", " << y;
            ComPtr<IPictureDisp> result;
            Check(other.Query<_PicLite>()->get_ResultPicture(&result));
            EXPECT_NE(BitmapIn(result.Get()), nullptr);
        }
    }
}

// Whether the picture comes back from a stream as one of its kind.
bool IsKept(const HeldControl& control, const PictureKind& kind)
{
    control.Put(L"Picture", AsValue(kind.Make()));
    const auto stream = MakeCom<TestStream>();
    if (FAILED(control.Query<IPersistStreamInit>()->Save(stream.Get(), FALSE)))
        return false;
    stream->Rewind();
    const HeldControl other(CLSID_PicLite);
    other.Site().Log().AllowAll();
    ComPtr<IPictureDisp> picture;
    ComPtr<IPicture> loaded;
    SHORT loadedKind = PICTYPE_UNINITIALIZED;
    return SUCCEEDED(other.Query<IPersistStreamInit>()->Load(stream.Get())) &&
           SUCCEEDED(other.Query<_PicLite>()->get_Picture(&picture)) && picture &&
           SUCCEEDED(picture.As(&loaded)) && SUCCEEDED(loaded->get_Type(&loadedKind)) &&
           loadedKind == kind.Kind;
}

TEST_F(PicLiteTest, KeepsPicturesThatItCannotShow)
{
    Control().InitNew();
    for (const PictureKind& kind : PictureKinds)
    {
        SCOPED_TRACE(kind.Name);
        if (kind.Kind == PICTYPE_METAFILE || kind.Kind == PICTYPE_ENHMETAFILE)
            KnownPlatformGap("the standard picture object saves no metafiles",
                             [&] { return IsKept(Control(), kind); });
        else
            EXPECT_TRUE(IsKept(Control(), kind));
    }
}

TEST_F(PicLiteTest, KeepsTheColoursOf32Bits)
{
    Control().InitNew();
    Control().Put(L"Picture", AsValue(RedPicture()));
    const HeldControl other(CLSID_PicLite);
    other.Site().Log().AllowAll();
    ExpectKept(Control(), other, false);
    ComPtr<IPictureDisp> picture;
    Check(other.Query<_PicLite>()->get_Picture(&picture));
    KnownPlatformGap("the standard picture object saves pictures of 32 bits without where their bits begin",
                     [&] { return ColorAt(BitmapIn(picture.Get()), 0, 0) == Red; });
}

} // namespace

} // namespace kiv::test
