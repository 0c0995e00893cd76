// What a control finds in its host, and what the host makes of controls that are not as they should be.

#include "tests/gui/HostedTest.h"

#include "host/container/Automation.h"
#include "runtime/com/Errors.h"
#include "runtime/com/MakeCom.h"

#include <olectl.h>

#include <algorithm>
#include <string>

namespace kiv::test
{

namespace
{

using Microsoft::WRL::ComPtr;

class ControlSite : public HostedTest
{
protected:
    host::ControlSite& Add(host::SiteOptions options = Placed())
    {
        return TheForm().Add(CreateYesNo().Get(), Recorded(std::move(options)));
    }

    static ComPtr<IOleClientSite> SiteOf(const host::ControlSite& site)
    {
        ComPtr<IOleClientSite> found;
        EXPECT_HRESULT_SUCCEEDED(site.Query<IOleObject>()->GetClientSite(&found));
        return found;
    }

    static Variant Ambient(const host::ControlSite& site, DISPID ambient)
    {
        ComPtr<IDispatch> ambients;
        SiteOf(site).As(&ambients);
        return host::GetProperty(ambients.Get(), ambient);
    }

    static bool Called(const host::ControlSite& site, std::string_view call)
    {
        return std::find(RecordOf(site).Calls().begin(), RecordOf(site).Calls().end(), call) !=
               RecordOf(site).Calls().end();
    }
};

TEST_F(ControlSite, GivesAmbientProperties)
{
    host::ControlSite& site = Add();
    EXPECT_TRUE(Ambient(site, DISPID_AMBIENT_USERMODE).Bool());
    EXPECT_FALSE(Ambient(site, DISPID_AMBIENT_UIDEAD).Bool());
    EXPECT_EQ(Ambient(site, DISPID_AMBIENT_DISPLAYNAME).Text(), L"ynQuestion");
    EXPECT_EQ(Ambient(site, DISPID_AMBIENT_BACKCOLOR).Long(), static_cast<long>(0x8000000F));
    EXPECT_EQ(Ambient(site, DISPID_AMBIENT_FONT).Object(), TheForm().FontObject());
    EXPECT_THROW(Ambient(site, DISPID_AMBIENT_PALETTE), ComError);

    site.SetUserMode(false);
    EXPECT_FALSE(Ambient(site, DISPID_AMBIENT_USERMODE).Bool());
    EXPECT_TRUE(Ambient(site, DISPID_AMBIENT_UIDEAD).Bool());
}

TEST_F(ControlSite, LeavesOutWhatItIsToldTo)
{
    host::SiteOptions options = Placed();
    options.giveAmbients = false;
    options.extendedControl = false;
    options.refused = {IID_IOleInPlaceSiteEx};
    host::ControlSite& site = Add(options);
    const ComPtr<IOleClientSite> client = SiteOf(site);
    ComPtr<IUnknown> found;
    EXPECT_EQ(client->QueryInterface(IID_IDispatch, &found), E_NOINTERFACE);
    EXPECT_EQ(client->QueryInterface(IID_IOleInPlaceSiteEx, &found), E_NOINTERFACE);
    EXPECT_EQ(client->QueryInterface(IID_IOleInPlaceSite, &found), S_OK);
    ComPtr<IOleControlSite> control;
    ComPtr<IDispatch> extended;
    client.As(&control);
    EXPECT_EQ(control->GetExtendedControl(&extended), E_NOTIMPL);
    EXPECT_EQ(site.State(), host::SiteState::InPlaceActive);
}

TEST_F(ControlSite, LetsATestAnswerACall)
{
    host::SiteOptions options = Placed();
    options.activate = false;
    host::ControlSite& site = Add(options);
    RecordOf(site).HandleCalls([](std::string_view call) -> std::optional<HRESULT> {
        if (call == "IOleInPlaceSite::CanInPlaceActivate")
            return S_FALSE;
        return std::nullopt;
    });
    EXPECT_HRESULT_FAILED(site.Activate());
    EXPECT_EQ(site.State(), host::SiteState::Loaded);
    EXPECT_TRUE(Called(site, "IOleInPlaceSite::CanInPlaceActivate"));
    EXPECT_FALSE(Called(site, "IOleInPlaceSite::GetWindowContext"));
}

TEST_F(ControlSite, ExtendsTheControl)
{
    host::ControlSite& site = Add();
    IDispatch* const extended = site.ExtendedControl();
    const auto get = [&](const wchar_t* name) { return host::GetProperty(extended, name); };
    EXPECT_EQ(get(L"name").Text(), L"ynQuestion");
    EXPECT_EQ(get(L"Object").Object(), site.Control());
    EXPECT_EQ(get(L"Left").Long(), 20 * 15);
    EXPECT_EQ(get(L"Width").Long(), 120 * 15);
    EXPECT_EQ(get(L"Tag").Text(), L"");
    EXPECT_EQ(get(L"HelpContextID").Long(), 0);
    // The control's own members, through the same object.
    EXPECT_EQ(get(L"YesText").Text(), L"Y");

    host::PutProperty(extended, L"Left", Variant(450L));
    host::PutProperty(extended, L"Height", Variant(600L));
    const RECT moved = {30, 20, 150, 60};
    EXPECT_TRUE(EqualRect(&site.Bounds(), &moved));
    RECT window = {};
    GetWindowRect(site.Window(), &window);
    MapWindowPoints(nullptr, TheForm().Window(), reinterpret_cast<POINT*>(&window), 2);
    EXPECT_TRUE(EqualRect(&window, &moved));

    host::PutProperty(extended, L"Tag", Variant(L"mine"));
    host::PutProperty(extended, L"HelpContextID", Variant(7L));
    EXPECT_EQ(get(L"Tag").Text(), L"mine");
    EXPECT_EQ(get(L"HelpContextID").Long(), 7);
    host::PutProperty(extended, L"Enabled", Variant(false));
    EXPECT_FALSE(site.Get(L"Enabled").Bool());
    host::PutProperty(extended, L"Visible", Variant(false));
    EXPECT_FALSE(IsWindowVisible(site.Window()));
    EXPECT_THROW(host::PutProperty(extended, L"Name", Variant(L"other")), ComError);
}

TEST_F(ControlSite, TakesTheControlsOwnSizeWhereTheFormGivesNone)
{
    host::ControlSite& site = Add(Placed({20, 30, 20, 30}));
    EXPECT_EQ(site.Bounds().left, 20);
    EXPECT_EQ(site.Bounds().top, 30);
    EXPECT_GT(site.Bounds().right, 20);
    EXPECT_GT(site.Bounds().bottom, 30);
}

TEST_F(ControlSite, HearsEventsByNameAndAnswersThem)
{
    for (const bool quick : {true, false})
    {
        host::SiteOptions options = Placed();
        options.quickActivate = quick;
        host::ControlSite& site = Add(options);
        ShowForm();
        RecordOf(site).HandleEvents([](const host::EventRecord& event, DISPPARAMS& raised) {
            EXPECT_EQ(host::Return(event, raised, L"cancel", Variant(true)), event.Name == L"Click");
        });
        site.Focus();
        Key('Y');
        ASSERT_EQ(RecordOf(site).Events().size(), 1U);
        EXPECT_EQ(RecordOf(site).Events()[0].Name, L"Click");
        ASSERT_EQ(RecordOf(site).Events()[0].Arguments.size(), 1U);
        EXPECT_EQ(RecordOf(site).Events()[0].Arguments[0].Name, L"Cancel");
        EXPECT_FALSE(RecordOf(site).Events()[0].Arguments[0].Value.Bool());
        EXPECT_EQ(site.Get(L"Value").Long(), 0);
        EXPECT_TRUE(RecordOf(site).Notifications().empty());

        RecordOf(site).HandleEvents({});
        RecordOf(site).ClearEvents();
        Key('Y');
        ASSERT_EQ(RecordOf(site).Events().size(), 2U);
        EXPECT_EQ(RecordOf(site).Events()[1].Name, L"Change");
        EXPECT_EQ(RecordOf(site).Notifications(), (std::vector<std::wstring>{L"Value", L"Text"}));
        TheForm().Remove(site);
    }
}

TEST_F(ControlSite, MayBeRemovedByItsOwnEvent)
{
    host::ControlSite& site = Add();
    AddElsewhere();
    ShowForm();
    site.Focus();
    bool removed = false;
    RecordOf(site).HandleEvents([&](const host::EventRecord&, DISPPARAMS&) {
        TheForm().Remove(site);
        removed = true;
    });
    Key('Y');
    EXPECT_TRUE(removed);
    EXPECT_EQ(TheForm().Items().size(), 1U);
    EXPECT_EQ(TheForm().ActiveSite(), nullptr);
}

TEST_F(ControlSite, ClosesOnceAndThenKnowsNothing)
{
    host::ControlSite& site = Add();
    const ComPtr<IOleClientSite> client = SiteOf(site);
    EXPECT_HRESULT_SUCCEEDED(site.Close());
    EXPECT_EQ(site.State(), host::SiteState::Closed);
    EXPECT_EQ(site.Control(), nullptr);
    EXPECT_EQ(site.Window(), nullptr);
    EXPECT_EQ(site.Close(), S_FALSE);
    EXPECT_EQ(site.Activate(), S_FALSE);
    EXPECT_THROW(site.Get(L"Value"), ComError);
    // A control that still holds its site gets errors.
    const std::size_t calls = RecordOf(site).Calls().size();
    EXPECT_EQ(client->ShowObject(), E_UNEXPECTED);
    ComPtr<IOleInPlaceSite> inPlace;
    client.As(&inPlace);
    HWND window = nullptr;
    EXPECT_EQ(inPlace->GetWindow(&window), E_UNEXPECTED);
    EXPECT_EQ(RecordOf(site).Calls().size(), calls);
}

TEST_F(ControlSite, LeavesNothingWithAControlThatLivesOn)
{
    for (const bool quick : {true, false})
    {
        host::SiteOptions options = Placed();
        options.quickActivate = quick;
        host::ControlSite& site = Add(options);
        const auto control = site.Query<IUnknown>();
        const auto points = site.Query<IConnectionPointContainer>();
        const auto object = site.Query<IOleObject>();
        const auto view = site.Query<IViewObject>();
        site.Close();

        ComPtr<IOleClientSite> client;
        EXPECT_HRESULT_SUCCEEDED(object->GetClientSite(&client));
        EXPECT_EQ(client, nullptr);
        ComPtr<IAdviseSink> sink;
        EXPECT_HRESULT_SUCCEEDED(view->GetAdvise(nullptr, nullptr, &sink));
        EXPECT_EQ(sink, nullptr);
        for (const IID& iid : {IID_IPropertyNotifySink, __uuidof(__YesNo)})
        {
            ComPtr<IConnectionPoint> point;
            ComPtr<IEnumConnections> connections;
            CONNECTDATA connection = {};
            ASSERT_HRESULT_SUCCEEDED(points->FindConnectionPoint(iid, &point));
            ASSERT_HRESULT_SUCCEEDED(point->EnumConnections(&connections));
            EXPECT_EQ(connections->Next(1, &connection, nullptr), S_FALSE);
        }
        TheForm().Remove(site);
    }
}

TEST_F(ControlSite, SavesAndLoadsThroughABag)
{
    host::ControlSite& site = Add();
    site.Put(L"YesText", Variant(L"Oui"));
    const auto persist = site.Query<IPersistStreamInit>();
    EXPECT_EQ(persist->IsDirty(), S_OK);
    const auto bag = MakeCom<host::PropertyBag>();
    ASSERT_HRESULT_SUCCEEDED(site.Save(*bag.Get()));
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    host::SiteOptions options = Placed();
    options.load = bag.Get();
    EXPECT_EQ(Add(options).Get(L"YesText").Text(), L"Oui");
    EXPECT_NE(std::find(bag->Asked().begin(), bag->Asked().end(), L"YesText"), bag->Asked().end());
}

TEST_F(ControlSite, LogsWhatAControlCannotLoad)
{
    const auto bag = MakeCom<host::PropertyBag>();
    bag->Set(L"Value", Variant(L"not a number"));
    host::SiteOptions options = Placed();
    options.load = bag.Get();
    host::ControlSite& site = Add(options);
    ASSERT_EQ(RecordOf(site).ErrorLog().size(), 1U);
    EXPECT_EQ(RecordOf(site).ErrorLog()[0].Property, L"Value");
    EXPECT_EQ(RecordOf(site).ErrorLog()[0].Result, DISP_E_TYPEMISMATCH);
}

// A font is an automation object, but nothing of a control.
TEST_F(ControlSite, BearsWithWhatIsNoControl)
{
    ComPtr<IFontDisp> font;
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = const_cast<LPOLESTR>(L"Tahoma");
    description.cySize.int64 = 80000;
    ASSERT_HRESULT_SUCCEEDED(OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    host::ControlSite& site = TheForm().Add(font.Get(), Recorded(Placed()));
    EXPECT_EQ(site.Get(L"Name").Text(), L"Tahoma");
    EXPECT_EQ(site.Window(), nullptr);
    EXPECT_EQ(site.Activate(), S_FALSE);
    EXPECT_FALSE(site.TakesFocus());
    EXPECT_TRUE(RecordOf(site).Events().empty());
    AddElsewhere();
    ShowForm();
    EXPECT_EQ(TheForm().FocusedItem(), TheForm().Find(L"elsewhere"));
    EXPECT_EQ(site.Close(), S_OK);
}

TEST_F(ControlSite, FailsToMakeWhatIsNotRegistered)
{
    EXPECT_THROW(TheForm().Add(L"No.Such.Control", Placed()), ComError);
    EXPECT_THROW(TheForm().Add(static_cast<IUnknown*>(nullptr), Placed()), ComError);
    EXPECT_TRUE(TheForm().Items().empty());
}

} // namespace

} // namespace kiv::test
