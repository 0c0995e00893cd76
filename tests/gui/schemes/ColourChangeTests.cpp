// The user chooses other colours while the form is open.

#include "tests/gui/HostedTest.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Pictures.h"
#include "tests/support/SystemColour.h"

#include <KivControls.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct ClassRow : NamedRow
{
    const CLSID& ClassId;
};

const ClassRow ClassRows[] = {
    {"YesNo", CLSID_YesNo},           {"NumberBox", CLSID_NumberBox},
    {"DateBox", CLSID_DateBox},       {"CurrencyBox", CLSID_CurrencyBox},
    {"PercentBox", CLSID_PercentBox}, {"EnumList", CLSID_EnumList},
    {"ChkCombo", CLSID_ChkCombo},     {"PicCommand", CLSID_PicCommand},
    {"PicLite", CLSID_PicLite},
};

class ColourChange : public HostedTest, public testing::WithParamInterface<ClassRow>
{
protected:
    host::ControlSite& Shown(bool enabled)
    {
        AddElsewhere();
        host::ControlSite& site =
            TheForm().Add(Library::UnderTest().Create(GetParam().ClassId).Get(), Placed({20, 40, 160, 64}));
        if (site.HasMember(L"Enabled"))
            site.Put(L"Enabled", Variant(enabled));
        ShowForm();
        return site;
    }
    Pixels Look(const host::ControlSite& site)
    {
        PumpPending(TheForm());
        return PixelsOfWholeWindow(site.Window());
    }
};

// As one does that was made under the new scheme.
TEST_P(ColourChange, IsFollowed)
{
    for (const bool enabled : {true, false})
    {
        SCOPED_TRACE(enabled);
        StartAnew();
        host::ControlSite& former = Shown(enabled);
        const Pixels before = Look(former);
        {
            const HighContrast scheme(RGB(0, 0, 0));
            const Pixels changed = Look(former);
            StartAnew();
            EXPECT_EQ(Difference(Look(Shown(enabled)), changed), "");
            EXPECT_NE(Difference(before, changed), "");
        }
        StartAnew();
        EXPECT_EQ(Difference(before, Look(Shown(enabled))), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ColourChange, testing::ValuesIn(ClassRows), RowName());

constexpr COLORREF Red = RGB(255, 0, 0);
constexpr OLE_COLOR Face = 0x80000000 | COLOR_BTNFACE;

class RecolouredPicture : public HostedTest
{
protected:
    void Show(OLE_COLOR replace)
    {
        site_ = &TheForm().Add(Library::UnderTest().Create(CLSID_PicLite).Get(), Placed({20, 20, 80, 60}));
        EXPECT_HRESULT_SUCCEEDED(
            site_->Query<_PicLite>()->putref_Picture(PictureOf(TwoColours({10, 10}, Red, Red, {})).Get()));
        site_->Put(L"MaskColor", Variant(static_cast<long>(Red)));
        site_->Put(L"ReplaceColor", Variant(static_cast<long>(replace)));
        ShowForm();
    }
    COLORREF ShownColour()
    {
        PumpPending(TheForm());
        return PixelsOfWindow(site_->Window()).At(5, 5);
    }
    ComPtr<IPictureDisp> Result() const
    {
        ComPtr<IPictureDisp> result;
        EXPECT_HRESULT_SUCCEEDED(site_->Query<_PicLite>()->get_ResultPicture(&result));
        return result;
    }
    HWND Window() const { return site_->Window(); }

private:
    host::ControlSite* site_ = nullptr;
};

// The exchange is made anew, from the picture as it was given.
TEST_F(RecolouredPicture, FollowsTheSystemsColours)
{
    Show(Face);
    const COLORREF usual = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(ShownColour(), usual);
    const ComPtr<IPictureDisp> former = Result();
    for (const COLORREF face : {RGB(1, 2, 3), Red, RGB(10, 200, 30)})
    {
        const SystemColour set(COLOR_BTNFACE, face);
        EXPECT_EQ(ShownColour(), face);
        EXPECT_NE(Result().Get(), former.Get());
    }
    EXPECT_EQ(ShownColour(), usual);
}

TEST_F(RecolouredPicture, OfPlainColoursIsLeftAlone)
{
    Show(RGB(0, 0, 255));
    const ComPtr<IPictureDisp> former = Result();
    const SystemColour set(COLOR_BTNFACE, RGB(1, 2, 3));
    EXPECT_EQ(ShownColour(), RGB(0, 0, 255));
    EXPECT_EQ(Result().Get(), former.Get());
}

// Its window is told by the host, as the system's own controls are.
TEST_F(RecolouredPicture, StaysAsItIsUntilTheHostTellsOfTheChange)
{
    Show(Face);
    const HWND form = TheForm().Window();
    const auto procedure = reinterpret_cast<LONG_PTR>(&DefWindowProcW);
    const LONG_PTR former = SetWindowLongPtrW(form, GWLP_WNDPROC, procedure);
    const COLORREF usual = ShownColour();
    const SystemColour set(COLOR_BTNFACE, RGB(1, 2, 3));
    EXPECT_EQ(ShownColour(), usual);
    SendMessageW(Window(), WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(ShownColour(), RGB(1, 2, 3));
    SetWindowLongPtrW(form, GWLP_WNDPROC, former);
}

} // namespace

} // namespace kiv::test
