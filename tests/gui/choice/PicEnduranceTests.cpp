// Long loops with picture buttons and recoloured pictures: nothing is left behind, however often.

#include "tests/gui/DrawingObjectsRunShort.h"
#include "tests/gui/HostedTest.h"
#include "tests/gui/choice/HostedButton.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>
#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr int Paints = 10000;
constexpr int Recolorings = 10000;
constexpr int Creations = 1000;

DWORD Handles()
{
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

class PicEndurance : public HostedTest
{
};

TEST_F(PicEndurance, PaintsAButton)
{
    HostedButton button(TheForm(), Placed({20, 20, 140, 48}));
    button.Put(L"PictureType", 1);
    ShowForm();
    const DrawingObjectsRunShort shortage;
    for (int turn = 0; turn < Paints; ++turn)
        RedrawWindow(button.Button(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    DrawingObjectsRunShort::ExpectSomeLeft();
    EXPECT_EQ(Difference(PaintPicCommand(button.Look()), button.Shown()), "");
}

TEST_F(PicEndurance, CreatesButtons)
{
    AddElsewhere();
    ShowForm();
    const DrawingObjectsRunShort shortage;
    DWORD handles = 0;
    for (int turn = 0; turn < Creations; ++turn)
    {
        HostedButton button(TheForm(), Placed({20, 20, 140, 48}));
        button.Put(L"PictureType", turn % 6);
        button.SetCaption(L"&Details");
        button.Site().Focus();
        PumpPending(TheForm());
        TheForm().Remove(button.Site());
        if (turn == 100)
            handles = Handles();
    }
    constexpr DWORD systemsOwn = 20;
    EXPECT_LE(Handles(), handles + systemsOwn);
    EXPECT_EQ(ControlWindows(), 0);
    DrawingObjectsRunShort::ExpectSomeLeft();
}

ComPtr<IPictureDisp> SmallPicture()
{
    const HDC screen = GetDC(nullptr);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateCompatibleBitmap(screen, 5, 5);
    ReleaseDC(nullptr, screen);
    ComPtr<IPictureDisp> picture;
    EXPECT_HRESULT_SUCCEEDED(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                                      reinterpret_cast<void**>(picture.GetAddressOf())));
    return picture;
}

TEST_F(PicEndurance, Recolours)
{
    host::ControlSite& site = TheForm().Add(Library::UnderTest().Create(CLSID_PicLite).Get(), Placed());
    ShowForm();
    const ComPtr<_PicLite> control = site.Query<_PicLite>();
    ASSERT_HRESULT_SUCCEEDED(control->putref_Picture(SmallPicture().Get()));
    const DrawingObjectsRunShort shortage;
    for (int turn = 0; turn < Recolorings; ++turn)
    {
        OLE_COLOR color = static_cast<OLE_COLOR>(turn % 2 + 1);
        ASSERT_HRESULT_SUCCEEDED(control->put_ReplaceColor(&color));
        ComPtr<IPictureDisp> result;
        ASSERT_HRESULT_SUCCEEDED(control->get_ResultPicture(&result));
        ASSERT_NE(result.Get(), nullptr) << "turn " << turn;
    }
    DrawingObjectsRunShort::ExpectSomeLeft();
}

TEST_F(PicEndurance, CreatesRecolouredPictures)
{
    const ComPtr<IPictureDisp> picture = SmallPicture();
    ShowForm();
    const DrawingObjectsRunShort shortage;
    for (int turn = 0; turn < Creations; ++turn)
    {
        host::ControlSite& site = TheForm().Add(Library::UnderTest().Create(CLSID_PicLite).Get(), Placed());
        ASSERT_HRESULT_SUCCEEDED(site.Query<_PicLite>()->putref_Picture(picture.Get()));
        PumpPending(TheForm());
        TheForm().Remove(site);
    }
    EXPECT_EQ(ControlWindows(), 0);
    EXPECT_EQ(References(picture.Get()), 1U);
    DrawingObjectsRunShort::ExpectSomeLeft();
}

} // namespace

} // namespace kiv::test
