// The control as a picture and a size: drawn by the host wherever it likes, active or not.

#include "tests/com/SitedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Pixels.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/core/Units.h"

#include <oleidl.h>

#include <memory>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr COLORREF Paper = RGB(255, 0, 255);
constexpr COLORREF Back = RGB(0, 200, 0);
constexpr SIZE CanvasSize = {200, 100};
constexpr RECT Bounds = {20, 10, 140, 50};

// Hears of changes of the picture.
class AdviseRecorder final : public ComObject<IAdviseSink>
{
public:
    int ViewChanges = 0;
    int Closings = 0;

    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override { ++ViewChanges; }
    void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override {}
    void STDMETHODCALLTYPE OnSave() noexcept override {}
    void STDMETHODCALLTYPE OnClose() noexcept override { ++Closings; }
};

class ViewTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = std::make_unique<SitedControl>();
        control_->Site().Log().AllowAll();
        control_->InitNew();
        Check(control_->Get()->put_BackColor(Back));
        // As large as the bounds, so that nothing is scaled.
        SIZEL size = {PixelsToHimetric(Bounds.right - Bounds.left, 96),
                      PixelsToHimetric(Bounds.bottom - Bounds.top, 96)};
        Check(control_->Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size));
    }
    void TearDown() override
    {
        control_.reset();
        LibraryTest::TearDown();
    }

    static void FillPaper(const Canvas& canvas)
    {
        const RECT all = {0, 0, CanvasSize.cx, CanvasSize.cy};
        const HBRUSH brush = CreateSolidBrush(Paper);
        FillRect(canvas.Dc(), &all, brush);
        DeleteObject(brush);
    }
    HRESULT Draw(HDC dc, const RECTL& bounds) const
    {
        return control_->Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc,
                                                    &bounds, nullptr, nullptr, 0);
    }
    Pixels Drawn() const
    {
        const Canvas canvas(CanvasSize);
        FillPaper(canvas);
        EXPECT_EQ(Hr(Draw(canvas.Dc(), {Bounds.left, Bounds.top, Bounds.right, Bounds.bottom})), Hr(S_OK));
        return canvas.Content();
    }
    // Inside the bounds the back colour and something on it, outside nothing. slack: by how many pixels the
    // edges may be off.
    static void ExpectPicture(const Pixels& pixels, int slack = 0)
    {
        RECT reach = Bounds;
        InflateRect(&reach, slack, slack);
        int back = 0;
        int ink = 0;
        for (int y = 0; y < CanvasSize.cy; ++y)
        {
            for (int x = 0; x < CanvasSize.cx; ++x)
            {
                const POINT point = {x, y};
                const COLORREF color = pixels.At(x, y);
                if (!PtInRect(&reach, point))
                {
                    ASSERT_EQ(color, Paper) << "outside, at " << x << ' ' << y;
                }
                back += color == Back ? 1 : 0;
                ink += color != Back && color != Paper ? 1 : 0;
            }
        }
        EXPECT_GT(back, 1000);
        EXPECT_GT(ink, 100) << "two options and two captions";
    }

    std::unique_ptr<SitedControl> control_;
};

TEST_F(ViewTest, IsDrawnWhileInactive)
{
    ExpectPicture(Drawn());
}

TEST_F(ViewTest, IsDrawnWhileActive)
{
    const Pixels inactive = Drawn();
    ASSERT_EQ(Hr(control_->Query<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &control_->Site(),
                                                       0, control_->Site().Window().Handle(),
                                                       &control_->Site().Position())),
              Hr(S_OK));
    EXPECT_EQ(Difference(inactive, Drawn()), "");
}

TEST_F(ViewTest, ShowsTheAnswer)
{
    const Pixels neither = Drawn();
    Check(control_->Get()->put_Value(Yes));
    const Pixels yes = Drawn();
    Check(control_->Get()->put_Value(No));
    const Pixels no = Drawn();
    PutByName(control_->Get(), L"Value", Variant(5L));
    EXPECT_NE(Difference(neither, yes), "");
    EXPECT_NE(Difference(neither, no), "");
    EXPECT_NE(Difference(yes, no), "");
    EXPECT_EQ(Difference(neither, Drawn()), "") << "an unknown number shows no answer";
}

TEST_F(ViewTest, LeavesTheDeviceContextAsItWas)
{
    const Canvas canvas(CanvasSize);
    FillPaper(canvas);
    SetTextColor(canvas.Dc(), RGB(1, 2, 3));
    SetBkColor(canvas.Dc(), RGB(4, 5, 6));
    SetBkMode(canvas.Dc(), OPAQUE);
    const HGDIOBJ font = GetCurrentObject(canvas.Dc(), OBJ_FONT);
    POINT origin = {};
    EXPECT_EQ(Hr(Draw(canvas.Dc(), {Bounds.left, Bounds.top, Bounds.right, Bounds.bottom})), Hr(S_OK));
    EXPECT_EQ(GetTextColor(canvas.Dc()), RGB(1, 2, 3));
    EXPECT_EQ(GetBkColor(canvas.Dc()), RGB(4, 5, 6));
    EXPECT_EQ(GetBkMode(canvas.Dc()), OPAQUE);
    EXPECT_EQ(GetCurrentObject(canvas.Dc(), OBJ_FONT), font);
    GetViewportOrgEx(canvas.Dc(), &origin);
    EXPECT_EQ(origin.x, 0);
    EXPECT_EQ(origin.y, 0);
    RECT clip = {};
    GetClipBox(canvas.Dc(), &clip);
    EXPECT_EQ(clip.right, CanvasSize.cx);
    EXPECT_EQ(clip.bottom, CanvasSize.cy);
}

// As a host prints, or puts a form on the clipboard. The logical window is the whole form.
TEST_F(ViewTest, IsDrawnIntoAnEnhancedMetafile)
{
    const RECTL bounds = {Bounds.left, Bounds.top, Bounds.right, Bounds.bottom};
    const RECTL window = {0, 0, CanvasSize.cx, CanvasSize.cy}; // origin and extent
    for (const RECTL* windowBounds : {static_cast<const RECTL*>(nullptr), &window})
    {
        const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(recording, nullptr);
        EXPECT_EQ(Hr(control_->Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                          recording, &bounds, windowBounds, nullptr, 0)),
                  Hr(S_OK));
        const HENHMETAFILE metafile = CloseEnhMetaFile(recording);
        ASSERT_NE(metafile, nullptr);
        ENHMETAHEADER header = {};
        GetEnhMetaFileHeader(metafile, sizeof header, &header);
        const Canvas canvas(CanvasSize);
        FillPaper(canvas);
        // Its own frame, so that one unit of it is one pixel.
        const RECT frame = {header.rclBounds.left, header.rclBounds.top, header.rclBounds.right + 1,
                            header.rclBounds.bottom + 1};
        EXPECT_TRUE(PlayEnhMetaFile(canvas.Dc(), metafile, &frame));
        DeleteEnhMetaFile(metafile);
        SCOPED_TRACE(windowBounds ? "with the window's bounds" : "without the window's bounds");
        ExpectPicture(canvas.Content(), 1);
    }
}

// The older kind knows a logical window only, which the host sets and the player maps to where it likes.
TEST_F(ViewTest, IsDrawnIntoAWindowsMetafile)
{
    const HDC recording = CreateMetaFileW(nullptr);
    ASSERT_NE(recording, nullptr);
    SetMapMode(recording, MM_ANISOTROPIC);
    SetWindowOrgEx(recording, 0, 0, nullptr);
    SetWindowExtEx(recording, CanvasSize.cx, CanvasSize.cy, nullptr);
    const RECTL bounds = {Bounds.left, Bounds.top, Bounds.right, Bounds.bottom};
    const RECTL window = {0, 0, CanvasSize.cx, CanvasSize.cy};
    EXPECT_EQ(Hr(control_->Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                      recording, &bounds, &window, nullptr, 0)),
              Hr(S_OK));
    const HMETAFILE metafile = CloseMetaFile(recording);
    ASSERT_NE(metafile, nullptr);
    const Canvas canvas(CanvasSize);
    FillPaper(canvas);
    SetMapMode(canvas.Dc(), MM_ANISOTROPIC);
    SetViewportExtEx(canvas.Dc(), CanvasSize.cx, CanvasSize.cy, nullptr);
    EXPECT_TRUE(PlayMetaFile(canvas.Dc(), metafile));
    DeleteMetaFile(metafile);
    ExpectPicture(canvas.Content());
}

TEST_F(ViewTest, RefusesToDrawWhatItCannot)
{
    const auto view = control_->Query<IViewObject>();
    const Canvas canvas(CanvasSize);
    const RECTL bounds = {0, 0, 10, 10};
    for (const DWORD aspect : {DWORD{DVASPECT_ICON}, DWORD{DVASPECT_THUMBNAIL}, DWORD{0}})
        EXPECT_EQ(
            Hr(view->Draw(aspect, -1, nullptr, nullptr, nullptr, canvas.Dc(), &bounds, nullptr, nullptr, 0)),
            Hr(DV_E_DVASPECT))
            << aspect;
    EXPECT_TRUE(FAILED(
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr, nullptr, 0)));
    EXPECT_TRUE(FAILED(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas.Dc(), nullptr,
                                  nullptr, nullptr, 0)))
        << "inactive, it has no bounds of its own";
}

// Empty, inside out, or far away: nothing of it is the control's fault.
TEST_F(ViewTest, SurvivesOddBounds)
{
    const Canvas canvas(CanvasSize);
    const RECTL rows[] = {{0, 0, 0, 0},  {0, 0, 1, 1},        {50, 50, 10, 10}, {-1000, -1000, -900, -980},
                          {0, 0, 20, 5}, {0, 0, 30000, 30000}};
    for (const RECTL& bounds : rows)
        Draw(canvas.Dc(), bounds);
    EXPECT_HRESULT_SUCCEEDED(control_->Get()->put_Value(Yes));
    ExpectPicture(Drawn());
}

TEST_F(ViewTest, TellsItsAdviseSinkOfAnotherPicture)
{
    const auto view = control_->Query<IViewObject>();
    const auto sink = MakeCom<AdviseRecorder>();
    EXPECT_EQ(Hr(view->SetAdvise(DVASPECT_CONTENT, 0, sink.Get())), Hr(S_OK));
    DWORD aspects = 0;
    DWORD flags = 7;
    ComPtr<IAdviseSink> current;
    EXPECT_EQ(Hr(view->GetAdvise(&aspects, &flags, &current)), Hr(S_OK));
    EXPECT_EQ(current.Get(), sink.Get());
    EXPECT_EQ(aspects, DWORD{DVASPECT_CONTENT});
    current.Reset();
    control_->Get()->put_Value(Yes);
    DrainMessages();
    EXPECT_GT(sink->ViewChanges, 0);
    EXPECT_EQ(Hr(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr)), Hr(S_OK));
    EXPECT_EQ(References(sink.Get()), 1U);
    sink->ViewChanges = 0;
    control_->Get()->put_Value(No);
    DrainMessages();
    EXPECT_EQ(sink->ViewChanges, 0);
}

TEST_F(ViewTest, TellsItsAdviseSinkThatItCloses)
{
    const auto object = control_->Query<IOleObject>();
    const auto sink = MakeCom<AdviseRecorder>();
    DWORD connection = 0;
    EXPECT_EQ(Hr(object->Advise(sink.Get(), &connection)), Hr(S_OK));
    EXPECT_HRESULT_SUCCEEDED(object->Close(OLECLOSE_NOSAVE));
    EXPECT_EQ(sink->Closings, 1);
    EXPECT_EQ(Hr(object->Unadvise(connection)), Hr(S_OK));
    EXPECT_TRUE(FAILED(object->Unadvise(connection)));
    EXPECT_EQ(References(sink.Get()), 1U);
}

// --- Sizes ---

TEST_F(ViewTest, HasASizeFromTheBeginning)
{
    SIZEL extent = {};
    EXPECT_EQ(Hr(control_->Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent)), Hr(S_OK));
    EXPECT_GT(extent.cx, 500);
    EXPECT_GT(extent.cy, 200);
    SIZEL viewExtent = {};
    EXPECT_EQ(Hr(control_->Query<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &viewExtent)),
              Hr(S_OK));
    EXPECT_EQ(viewExtent.cx, extent.cx);
    EXPECT_EQ(viewExtent.cy, extent.cy);
}

TEST_F(ViewTest, KeepsTheSizeThatItIsGiven)
{
    const auto object = control_->Query<IOleObject>();
    for (const SIZEL& given : {SIZEL{2540, 635}, SIZEL{1, 1}, SIZEL{5000, 2501}})
    {
        SIZEL size = given;
        SIZEL extent = {};
        EXPECT_EQ(Hr(object->SetExtent(DVASPECT_CONTENT, &size)), Hr(S_OK));
        EXPECT_EQ(Hr(object->GetExtent(DVASPECT_CONTENT, &extent)), Hr(S_OK));
        EXPECT_EQ(extent.cx, given.cx);
        EXPECT_EQ(extent.cy, given.cy);
    }
}

TEST_F(ViewTest, RefusesSizesThatCannotBe)
{
    const auto object = control_->Query<IOleObject>();
    SIZEL before = {};
    ASSERT_HRESULT_SUCCEEDED(object->GetExtent(DVASPECT_CONTENT, &before));
    SIZEL negative = {-1, 100};
    EXPECT_TRUE(FAILED(object->SetExtent(DVASPECT_CONTENT, &negative)));
    EXPECT_EQ(Hr(object->SetExtent(DVASPECT_CONTENT, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(object->GetExtent(DVASPECT_CONTENT, nullptr)), Hr(E_POINTER));
    SIZEL icon = {100, 100};
    EXPECT_TRUE(FAILED(object->SetExtent(DVASPECT_ICON, &icon)));
    EXPECT_EQ(Hr(object->GetExtent(DVASPECT_ICON, &icon)), Hr(DV_E_DVASPECT));
    SIZEL after = {};
    EXPECT_HRESULT_SUCCEEDED(object->GetExtent(DVASPECT_CONTENT, &after));
    EXPECT_EQ(after.cx, before.cx);
    EXPECT_EQ(after.cy, before.cy);
}

} // namespace

} // namespace kiv::test
