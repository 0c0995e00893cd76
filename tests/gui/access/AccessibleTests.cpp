// What a client of the system's accessibility interface reads of each control on the container's form, in
// this process and from another one.

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "tests/gui/access/AccessTest.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

using Microsoft::WRL::ComPtr;
using Lines = std::vector<std::wstring>;

// A client site that takes part itself in what assistive tools are told: as a window of the host's does.
class SpeakingSite final : public ComObject<IOleClientSite>
{
public:
    SpeakingSite(ComPtr<IOleClientSite> site, HWND speaker) : site_(std::move(site)), speaker_(speaker) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        if (iid == __uuidof(IAccessible))
            return AccessibleObjectFromWindow(speaker_, static_cast<DWORD>(OBJID_CLIENT), iid, object);
        return iid == IID_IUnknown || iid == IID_IOleClientSite ? ComObject::QueryInterface(iid, object)
                                                                : site_->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return site_->SaveObject(); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override
    {
        return site_->GetMoniker(assign, which, moniker);
    }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override
    {
        return site_->GetContainer(container);
    }
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return site_->ShowObject(); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL shown) noexcept override
    {
        return site_->OnShowWindow(shown);
    }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override
    {
        return site_->RequestNewObjectLayout();
    }

private:
    ComPtr<IOleClientSite> site_;
    HWND speaker_;
};

} // namespace

TEST_F(AccessTest, YesNoIsAGroupOfTwoRadioButtons)
{
    host::ControlSite& site = AddLabelled(L"&Resident?", CLSID_YesNo);
    ShowForm();
    ExpectReadings(site.Window(), {L"grouping \"Resident?\" = \"\" [focusable]",
                                   L"  radio button \"Yes\" [focusable] {Select} <Y>",
                                   L"  radio button \"No\" [focusable] {Select} <N>"});
    site.Focus();
    Type(L"y");
    ExpectReadings(site.Window(), {L"grouping \"Resident?\" = \"Yes\" [focused, focusable]",
                                   L"  radio button \"Yes\" [focused, checked, focusable] {Clear} <Y>",
                                   L"  radio button \"No\" [focusable] {Select} <N>"});
    Key(VK_RIGHT);
    ExpectReadings(site.Window(), {L"grouping \"Resident?\" = \"Yes\" [focused, focusable]",
                                   L"  radio button \"Yes\" [checked, focusable] {Clear} <Y>",
                                   L"  radio button \"No\" [focused, focusable] {Select} <N>"});
    site.Put(L"Enabled", Variant(false));
    ExpectReadings(site.Window(), {L"grouping \"Resident?\" = \"Yes\" [unavailable]",
                                   L"  radio button \"Yes\" [unavailable, checked] {Clear} <Y>",
                                   L"  radio button \"No\" [unavailable] {Select} <N>"});
}

TEST_F(AccessTest, NumberBoxTellsTheDigitsWithoutTheMask)
{
    host::ControlSite& site = AddLabelled(L"SSN:", CLSID_NumberBox);
    ShowForm();
    const std::wstring meaning = L" (Social Security number, nine digits) [focusable]";
    ExpectReadings(site.Window(), {L"text \"SSN:\" = \"\"" + meaning});
    site.Put(L"Value", Variant(L"123-45-6789"));
    ExpectReadings(site.Window(), {L"text \"SSN:\" = \"123456789\"" + meaning});
    site.Put(L"Value", Variant::Null());
    site.Focus();
    Type(L"12");
    ExpectReadings(GetFocus(),
                   {L"text \"SSN:\" = \"12\" (Social Security number, nine digits) [focused, focusable]"});
    const std::pair<long, const wchar_t*> styles[] = {
        {Federal_ID, L"Federal identification number, nine digits"},
        {Routing__, L"Routing number, nine digits"},
        {Custom, L"Number, at most 9 digits"}};
    for (const auto& [style, words] : styles)
    {
        site.Put(L"Style", Variant(style));
        if (style == Custom)
            site.Put(L"MaxLength", Variant(9L));
        ExpectReadings(site.Window(),
                       {L"text \"SSN:\" = \"\" (" + std::wstring(words) + L") [focused, focusable]"});
    }
}

TEST_F(AccessTest, DateBoxTellsTheDigitsAndTheLayout)
{
    host::ControlSite& site = AddLabelled(L"Born:", CLSID_DateBox);
    site.Put(L"Style", Variant(2L));
    site.Call(L"InitStyle");
    ShowForm();
    const std::wstring meaning = L" (Month and day, two digits each, and year, four digits)";
    site.Focus();
    Type(L"12");
    ExpectReadings(site.Window(), {L"text \"Born:\" = \"12\"" + meaning + L" [focused, focusable]"});
    site.Put(L"Value", Variant(L"02/28/1971"));
    ExpectReadings(site.Window(), {L"text \"Born:\" = \"02281971\"" + meaning + L" [focused, focusable]"});
}

TEST_F(AccessTest, AmountsAreToldAsShownAtRestToo)
{
    struct Row
    {
        const CLSID& Class;
        const wchar_t* Typed;
        const wchar_t* Shown;
        const wchar_t* TooMuch;
        const wchar_t* Complaint;
    };
    const Row rows[] = {
        {CLSID_CurrencyBox, L"1234", L"1,234", L"9999", L"Please enter a value between 0 and 9000"},
        {CLSID_PercentBox, L"12", L"12", L"101", L"Please enter a value within the range 0 to 100."},
    };
    for (const Row& row : rows)
    {
        StartAnew();
        host::Button& elsewhere = AddElsewhere();
        host::ControlSite& site = AddLabelled(L"Amount:", row.Class);
        ShowForm();
        if (row.Class == CLSID_CurrencyBox)
        {
            site.Put(L"MaxValue", Variant(9000L));
            site.Put(L"MinValue", Variant(0L));
        }
        ExpectReadings(site.Window(), {L"text \"Amount:\" = \"\" [focusable]"});
        site.Focus();
        Type(row.Typed);
        ExpectReadings(GetFocus(),
                       {L"text \"Amount:\" = \"" + std::wstring(row.Typed) + L"\" [focused, focusable]"});
        elsewhere.Focus();
        Settle();
        const std::wstring atRest = L"text \"Amount:\" = \"" + std::wstring(row.Shown) + L"\" [focusable]";
        ExpectReadings(site.Window(), {atRest});
        // Nothing of it is anywhere else than the control, least of all the box that lies below it.
        const HWND box = GetWindow(site.Window(), GW_CHILD);
        ExpectReadings(box, {atRest});
        const RECT place = PlaceOf(box);
        const RECT whole = PlaceOf(site.Window());
        EXPECT_TRUE(EqualRect(&place, &whole));
        site.Focus();
        Type(row.TooMuch);
        ExpectReadings(site.Window(), {L"text \"Amount:\" = \"" + std::wstring(row.TooMuch) + L"\" (" +
                                       row.Complaint + L") [focused, focusable]"});
    }
}

TEST_F(AccessTest, ChkComboIsAComboBoxWithItsList)
{
    host::ControlSite& site = AddLabelled(L"Forms:", CLSID_ChkCombo);
    for (const wchar_t* item : {L"One", L"Two", L"Three"})
        site.Call(L"AddItem", {Variant(item)});
    site.Put(L"ListCompletionStatus", Variant(1L), {Variant(1L)});
    site.Put(L"ListCompletionStatus", Variant(2L), {Variant(2L)});
    ShowForm();
    const Lines items = {
        L"  list \"Forms:\" [invisible]",
        L"    item \"One\" [invisible, focusable, selectable] {Double Click}",
        L"    item \"Two\" (partial) [selected, invisible, focusable, selectable] {Double Click}",
        L"    item \"Three\" (complete) [invisible, focusable, selectable] {Double Click}"};
    site.Put(L"ListIndex", Variant(1L));
    const auto with = [&](const std::wstring& first) {
        Lines all = {first};
        all.insert(all.end(), items.begin(), items.end());
        return all;
    };
    ExpectReadings(site.Window(), with(L"combo box \"Forms:\" = \"Two\" (partial) [collapsed, focusable, has "
                                       L"popup] {Open} <Alt+Down>"));
    // The one that has the focus is a scroll bar that nobody sees.
    site.Focus();
    ExpectReadings(GetFocus(),
                   with(L"combo box \"Forms:\" = \"Two\" (partial) [focused, collapsed, focusable, "
                        L"has popup] {Open} <Alt+Down>"));
    Key(VK_F4);
    const Lines open = ReadingsOf(GetFocus());
    ASSERT_EQ(open.size(), 5U);
    EXPECT_EQ(open[0],
              L"combo box \"Forms:\" = \"Two\" (partial) [focused, expanded, focusable, has popup] {Close} "
              L"<Alt+Down>");
    EXPECT_EQ(open[1], L"  list \"Forms:\" []");
    EXPECT_EQ(open[3],
              L"    item \"Two\" (partial) [selected, focused, focusable, selectable] {Double Click}");
    Key(VK_F4);
    TheForm().FocusNext(false);
    site.Put(L"Enabled", Variant(false));
    EXPECT_EQ(
        ReadingsOf(site.Window())[0],
        L"combo box \"Forms:\" = \"Two\" (partial) [unavailable, collapsed, has popup] {Open} <Alt+Down>");
}

TEST_F(AccessTest, EnumListIsAComboBoxThatOpensThePicker)
{
    host::ControlSite& site = AddLabelled(L"County:", CLSID_EnumList);
    ShowForm();
    site.Put(L"EnumCode", Variant(L"17"));
    ExpectReadings(site.Window(),
                   {L"combo box \"County:\" = \"17\" [collapsed, focusable, has popup] {Choose} <F4>"});
    site.Focus();
    ExpectReadings(
        GetFocus(),
        {L"combo box \"County:\" = \"17\" [focused, collapsed, focusable, has popup] {Choose} <F4>"});
}

TEST_F(AccessTest, PicCommandIsAButtonOrALink)
{
    host::ControlSite& site = AddLabelled(L"No part of it", CLSID_PicCommand);
    ShowForm();
    site.Put(L"Caption", Variant(L"&Details && more"));
    const std::tuple<long, long, const wchar_t*> rows[] = {
        {0, 0, L"button \"Details & more\" [focusable] {Press} <Alt+D>"},
        {0, 1, L"button \"Details & more\" (partial) [focusable] {Press} <Alt+D>"},
        {0, 2, L"button \"Details & more\" (complete) [focusable] {Press} <Alt+D>"},
        {1, 0, L"button \"Details & more\" (plus) [focusable] {Press} <Alt+D>"},
        {2, 0, L"button \"Details & more\" (minus) [focusable] {Press} <Alt+D>"},
        {3, 0, L"link \"Details & more\" (note) [focusable] {Jump} <Alt+D>"},
        {4, 0, L"link \"Details & more\" (graph) [focusable] {Jump} <Alt+D>"},
        {5, 0, L"link \"Details & more\" (web link) [focusable] {Jump} <Alt+D>"},
        {9, 0, L"button \"Details & more\" [focusable] {Press} <Alt+D>"},
    };
    for (const auto& [type, status, reading] : rows)
    {
        site.Put(L"PictureType", Variant(type));
        site.Put(L"DetailStatus", Variant(status));
        ExpectReadings(site.Window(), {reading});
    }
    // The links have a focus that can be heard.
    site.Put(L"PictureType", Variant(5L));
    site.Focus();
    ExpectReadings(GetFocus(), {L"link \"Details & more\" (web link) [focused, focusable] {Jump} <Alt+D>"});
}

TEST_F(AccessTest, PicLiteIsAPictureThatNobodyStopsAt)
{
    host::ControlSite& site = AddLabelled(L"No part of it", CLSID_PicLite);
    ShowForm();
    ExpectReadings(site.Window(), {L"graphic \"ctlOne\" []"});
    Extended(site, L"ToolTipText", L"The seal");
    ExpectReadings(site.Window(), {L"graphic \"The seal\" []"});
    Extended(site, L"AccessibleName", L"Seal of the state");
    ExpectReadings(site.Window(), {L"graphic \"Seal of the state\" []"});
}

TEST_F(AccessTest, TheNameIsWhatTheHostGaveFirst)
{
    host::ControlSite& site = AddLabelled(L"&Wages && tips:", CLSID_CurrencyBox);
    ShowForm();
    ExpectReadings(site.Window(), {L"text \"Wages & tips:\" = \"\" [focusable]"});
    Extended(site, L"AccessibleName", L"Wages of the year");
    ExpectReadings(site.Window(), {L"text \"Wages of the year\" = \"\" [focusable]"});
    // With neither, what the container calls it.
    host::ControlSite& other = TheForm().Add(CLSID_YesNo, Placed({20, 60, 140, 80}));
    EXPECT_EQ(ReadingsOf(other.Window())[0], L"grouping \"ynQuestion\" = \"\" [focusable]");
}

// After what the extended control says, before the label.
TEST_F(AccessTest, TheNameIsWhatTheSiteItselfSays)
{
    host::ControlSite& site = AddLabelled(L"&Wages:", CLSID_CurrencyBox);
    ShowForm();
    const HWND speaker = CreateWindowExW(0, L"STATIC", L"Said by the site", WS_POPUP, 0, 0, 0, 0, nullptr,
                                         nullptr, nullptr, nullptr);
    const auto object = site.Query<IOleObject>();
    ComPtr<IOleClientSite> usual;
    ASSERT_HRESULT_SUCCEEDED(object->GetClientSite(&usual));
    const auto speaking = MakeCom<SpeakingSite>(usual, speaker);
    ASSERT_HRESULT_SUCCEEDED(object->SetClientSite(speaking.Get()));
    const ComPtr<IAccessible> accessible = AccessibleOf(site.Window());
    EXPECT_EQ(Reading(*accessible.Get()), L"text \"Said by the site\" = \"\" [focusable]");
    SetWindowTextW(speaker, L"");
    EXPECT_EQ(Reading(*accessible.Get()), L"text \"Wages:\" = \"\" [focusable]");
    SetWindowTextW(speaker, L"Said by the site");
    Extended(site, L"AccessibleName", L"Wages of the year");
    EXPECT_EQ(Reading(*accessible.Get()), L"text \"Wages of the year\" = \"\" [focusable]");
    DestroyWindow(speaker);
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(usual.Get()));
}

TEST_F(AccessTest, TheFormTellsAllThatStandsOnIt)
{
    host::FrameOptions frame;
    frame.name = L"fraOne";
    frame.caption = L"&About you";
    frame.bounds = {10, 10, 250, 100};
    host::Frame& about = TheForm().AddFrame(frame);
    AddLabelled(L"&Wages:", CLSID_CurrencyBox);
    ShowForm();
    const HWND page = GetParent(TheForm().FindSite(L"ctlOne")->Window());
    ExpectReadings(page, {L"client \"Test\" [focusable]",
                          L"  button \"Elsewhere\" [focused, focusable] {Press} <Alt+E>",
                          L"  grouping \"About you\" []", L"  label \"Wages:\" []",
                          L"  text \"Wages:\" = \"\" [focusable]"});
    about.SetEnabled(false);
    EXPECT_EQ(ReadingsOf(page).at(2), L"  grouping \"About you\" [unavailable]");
    about.SetVisible(false);
    EXPECT_EQ(ReadingsOf(page).size(), 4U) << "what cannot be seen is not told";
}

} // namespace kiv::test
