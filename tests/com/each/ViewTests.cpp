// The control as a picture and a size: drawn by the host wherever it likes, active or not.

#include "tests/com/DrawnControl.h"
#include "tests/com/each/PersistedControls.h"

#include "tests/support/Pixels.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <oleidl.h>

#include <memory>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

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

class EachView : public EachPersisted
{
protected:
    void SetUp() override
    {
        EachPersisted::SetUp();
        control_ = std::make_unique<EasyControl>(ClassId());
        control_->InitNew();
        if (Has(L"BackColor"))
            control_->Put(L"BackColor", Variant(static_cast<long>(Back)));
        FitToBounds(*control_);
    }
    void TearDown() override
    {
        control_.reset();
        EachPersisted::TearDown();
    }

    static bool Is(const wchar_t* name) { return GetParam().Name == std::wstring_view(name); }
    // Inside the bounds the back colour and something on it, outside nothing. slack: by how many pixels the
    // edges may be off.
    static void ExpectPicture(const Pixels& pixels, int slack = 0, bool staysInside = true)
    {
        RECT reach = Bounds;
        InflateRect(&reach, slack, slack);
        std::vector<POINT> outside;
        int back = 0;
        int ink = 0;
        for (int y = 0; y < CanvasSize.cy; ++y)
        {
            for (int x = 0; x < CanvasSize.cx; ++x)
            {
                const POINT point = {x, y};
                const COLORREF color = pixels.At(x, y);
                if (!PtInRect(&reach, point) && color != Paper)
                    outside.push_back(point);
                back += color == Back ? 1 : 0;
                ink += color != Back && color != Paper ? 1 : 0;
            }
        }
        EXPECT_EQ(outside.empty(), staysInside)
            << outside.size() << " pixels outside"
            << (outside.empty()
                    ? std::string()
                    : ", the first at " + std::to_string(outside[0].x) + " " + std::to_string(outside[0].y));
        // Closed and without an item, a list has no use for its colour.
        if (Has(L"BackColor") && !Is(L"ChkCombo"))
        {
            EXPECT_GT(back, 1000);
        }
        EXPECT_GT(ink, 100) << "captions, a border or a picture";
    }

    std::unique_ptr<EasyControl> control_;
};

TEST_P(EachView, IsDrawnWhileInactive)
{
    ExpectPicture(Drawn(*control_));
}

TEST_P(EachView, IsDrawnWhileActive)
{
    const Pixels inactive = Drawn(*control_);
    ASSERT_EQ(Hr(control_->Query<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &control_->Site(),
                                                       0, control_->Site().Window().Handle(),
                                                       &control_->Site().Position())),
              Hr(S_OK));
    EXPECT_EQ(Difference(inactive, Drawn(*control_)), "");
}

TEST_P(EachView, LeavesTheDeviceContextAsItWas)
{
    const Canvas canvas(CanvasSize);
    FillPaper(canvas);
    SetTextColor(canvas.Dc(), RGB(1, 2, 3));
    SetBkColor(canvas.Dc(), RGB(4, 5, 6));
    SetBkMode(canvas.Dc(), OPAQUE);
    const HGDIOBJ font = GetCurrentObject(canvas.Dc(), OBJ_FONT);
    POINT origin = {};
    EXPECT_EQ(Hr(DrawInBounds(*control_, canvas.Dc())), Hr(S_OK));
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
TEST_P(EachView, IsDrawnIntoAnEnhancedMetafile)
{
    const RECTL window = {0, 0, CanvasSize.cx, CanvasSize.cy}; // origin and extent
    // As large as the canvas, in hundredths of a millimetre of the screen.
    const HDC screen = GetDC(nullptr);
    const RECT frame = {
        0, 0, MulDiv(CanvasSize.cx, 100 * GetDeviceCaps(screen, HORZSIZE), GetDeviceCaps(screen, HORZRES)),
        MulDiv(CanvasSize.cy, 100 * GetDeviceCaps(screen, VERTSIZE), GetDeviceCaps(screen, VERTRES))};
    ReleaseDC(nullptr, screen);
    for (const RECTL* windowBounds : {static_cast<const RECTL*>(nullptr), &window})
    {
        const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
        ASSERT_NE(recording, nullptr);
        EXPECT_EQ(Hr(DrawInBounds(*control_, recording, windowBounds)), Hr(S_OK));
        const HENHMETAFILE metafile = CloseEnhMetaFile(recording);
        ASSERT_NE(metafile, nullptr);
        const Canvas canvas(CanvasSize);
        FillPaper(canvas);
        const RECT whole = {0, 0, CanvasSize.cx, CanvasSize.cy};
        EXPECT_TRUE(PlayEnhMetaFile(canvas.Dc(), metafile, &whole));
        DeleteEnhMetaFile(metafile);
        SCOPED_TRACE(windowBounds ? "with the window's bounds" : "without the window's bounds");
        ExpectPicture(canvas.Content(), 1);
    }
}

// The older kind knows a logical window only, which the host sets and the player maps to where it likes.
TEST_P(EachView, IsDrawnIntoAWindowsMetafile)
{
    const HDC recording = CreateMetaFileW(nullptr);
    ASSERT_NE(recording, nullptr);
    SetMapMode(recording, MM_ANISOTROPIC);
    SetWindowOrgEx(recording, 0, 0, nullptr);
    SetWindowExtEx(recording, CanvasSize.cx, CanvasSize.cy, nullptr);
    const RECTL window = {0, 0, CanvasSize.cx, CanvasSize.cy};
    EXPECT_EQ(Hr(DrawInBounds(*control_, recording, &window)), Hr(S_OK));
    const HMETAFILE metafile = CloseMetaFile(recording);
    ASSERT_NE(metafile, nullptr);
    const Canvas canvas(CanvasSize);
    FillPaper(canvas);
    SetMapMode(canvas.Dc(), MM_ANISOTROPIC);
    SetViewportExtEx(canvas.Dc(), CanvasSize.cx, CanvasSize.cy, nullptr);
    EXPECT_TRUE(PlayMetaFile(canvas.Dc(), metafile));
    DeleteMetaFile(metafile);
    // Of its own height, a drop-down list is scaled to the bounds; a list of codes leaves them.
    ExpectPicture(canvas.Content(), Is(L"ChkCombo") ? 1 : 0, !Is(L"EnumList"));
}

TEST_P(EachView, RefusesToDrawWhatItCannot)
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
TEST_P(EachView, SurvivesOddBounds)
{
    const Canvas canvas(CanvasSize);
    const RECTL rows[] = {{0, 0, 0, 0},  {0, 0, 1, 1},        {50, 50, 10, 10}, {-1000, -1000, -900, -980},
                          {0, 0, 20, 5}, {0, 0, 30000, 30000}};
    for (const RECTL& bounds : rows)
        Draw(*control_, canvas.Dc(), bounds);
    ExpectPicture(Drawn(*control_));
}

TEST_P(EachView, TellsItsAdviseSinkOfAnotherPicture)
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
    Change(control_->Get());
    DrainMessages();
    // What the text boxes of these show is their own, and nobody is told of it.
    EXPECT_EQ(sink->ViewChanges > 0, !Is(L"NumberBox") && !Is(L"DateBox"));
    EXPECT_EQ(Hr(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr)), Hr(S_OK));
    EXPECT_EQ(References(sink.Get()), 1U);
    sink->ViewChanges = 0;
    Change(control_->Get());
    DrainMessages();
    EXPECT_EQ(sink->ViewChanges, 0);
}

TEST_P(EachView, TellsItsAdviseSinkThatItCloses)
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

TEST_P(EachView, HasASizeFromTheBeginning)
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

TEST_P(EachView, RefusesSizesThatCannotBe)
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

INSTANTIATE_TEST_SUITE_P(Controls, EachView, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
