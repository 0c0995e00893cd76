// What a control tells about itself, quick activation, and life in several threads.

#include "runtime/com/TypeDescription.h"
#include "tests/com/SitedControl.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"
#include "tests/support/Thread.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>
#include <olectl.h>

#include <optional>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// Draws anew when resized, cannot be linked to, stays active beside others and whenever visible, wants its
// site before it is loaded.
constexpr DWORD MiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                             OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;
static_assert(MiscStatus == 131473);

class ObjectTest : public LibraryTest
{
};

TEST_F(ObjectTest, TellsItsStatus)
{
    const SitedControl control;
    DWORD status = 0;
    EXPECT_EQ(Hr(control.Query<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status)), Hr(S_OK));
    EXPECT_EQ(status, MiscStatus);
    EXPECT_EQ(Hr(control.Query<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, nullptr)), Hr(E_POINTER));
}

TEST_F(ObjectTest, TellsItsClassAndItsEvents)
{
    const SitedControl control;
    const auto provider = control.Query<IProvideClassInfo2>();
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(Hr(provider->GetClassInfo(&info)), Hr(S_OK));
    const TypeAttributes attributes(info.Get());
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_EQ(GuidText(attributes->guid), GuidText(CLSID_YesNo));

    GUID guid = {};
    EXPECT_EQ(Hr(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid)), Hr(S_OK));
    EXPECT_EQ(GuidText(guid), GuidText(DIID___YesNo));
    EXPECT_EQ(Hr(provider->GetGUID(0, &guid)), Hr(E_INVALIDARG));
    EXPECT_EQ(Hr(provider->GetGUID(4711, &guid)), Hr(E_INVALIDARG));
    EXPECT_EQ(Hr(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(provider->GetClassInfo(nullptr)), Hr(E_POINTER));
}

TEST_F(ObjectTest, GivesItsSiteBack)
{
    const SitedControl control;
    const auto object = control.Query<IOleObject>();
    ComPtr<IOleClientSite> site;
    EXPECT_EQ(Hr(object->GetClientSite(&site)), Hr(S_OK));
    EXPECT_EQ(site.Get(), static_cast<IOleClientSite*>(&control.Site()));
    site.Reset();
    EXPECT_EQ(Hr(object->GetClientSite(nullptr)), Hr(E_POINTER));
}

TEST_F(ObjectTest, MovesFromOneSiteToAnother)
{
    const auto first = MakeCom<RecordingSite>();
    const auto second = MakeCom<RecordingSite>();
    ComPtr<IOleObject> object;
    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Create(CLSID_YesNo).As(&object));
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(first.Get()));
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(second.Get()));
    EXPECT_EQ(References(static_cast<IOleClientSite*>(first.Get())), 1U);
    EXPECT_GT(References(static_cast<IOleClientSite*>(second.Get())), 1U);
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(nullptr));
    EXPECT_EQ(References(static_cast<IOleClientSite*>(second.Get())), 1U);
}

TEST_F(ObjectTest, NamesItself)
{
    const SitedControl control;
    const auto object = control.Query<IOleObject>();
    CLSID clsid = {};
    EXPECT_EQ(Hr(object->GetUserClassID(&clsid)), Hr(S_OK));
    EXPECT_EQ(GuidText(clsid), GuidText(CLSID_YesNo));
    LPOLESTR name = nullptr;
    ASSERT_EQ(Hr(object->GetUserType(USERCLASSTYPE_FULL, &name)), Hr(S_OK));
    EXPECT_STRNE(name, L"");
    CoTaskMemFree(name);
    EXPECT_EQ(Hr(object->GetUserClassID(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(object->GetUserType(USERCLASSTYPE_FULL, nullptr)), Hr(E_POINTER));
    EXPECT_HRESULT_SUCCEEDED(object->SetHostNames(L"Host", nullptr));
    EXPECT_HRESULT_SUCCEEDED(object->IsUpToDate());
    EXPECT_HRESULT_SUCCEEDED(object->Update());
}

// --- IQuickActivate ---

struct QuickHost
{
    ComPtr<RecordingSite> Site = MakeCom<RecordingSite>();
    ComPtr<EventRecorder> Events = MakeCom<EventRecorder>(DIID___YesNo);
    ComPtr<PropertyNotifyRecorder> Properties = MakeCom<PropertyNotifyRecorder>();
    QACONTAINER Container = {};
    QACONTROL Answer = {};

    QuickHost()
    {
        Site->Log().AllowAll();
        Site->SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont().Get())));
        Container.cbSize = sizeof Container;
        Container.pClientSite = Site.Get();
        Container.pPropertyNotifySink = Properties.Get();
        Container.pUnkEventSink = Events.Get();
        Container.dwAmbientFlags = QACONTAINER_USERMODE;
        Answer.cbSize = sizeof Answer;
    }
};

void LetGo(ComPtr<_YesNo>& control)
{
    ComPtr<IOleObject> object;
    Check(control.As(&object));
    EXPECT_HRESULT_SUCCEEDED(object->Close(OLECLOSE_NOSAVE));
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(nullptr));
    object.Reset();
    control.Reset();
}

TEST_F(ObjectTest, IsSitedAndConnectedInOneCall)
{
    QuickHost host;
    ComPtr<_YesNo> control = CreateYesNo();
    ComPtr<IQuickActivate> quick;
    ASSERT_HRESULT_SUCCEEDED(control.As(&quick));
    ASSERT_EQ(Hr(quick->QuickActivate(&host.Container, &host.Answer)), Hr(S_OK));
    EXPECT_EQ(host.Answer.dwMiscStatus, MiscStatus);
    EXPECT_NE(host.Answer.dwEventCookie, 0U);
    EXPECT_NE(host.Answer.dwPropNotifyCookie, 0U);
    ComPtr<IPersistStreamInit> persist;
    ASSERT_HRESULT_SUCCEEDED(control.As(&persist));
    EXPECT_HRESULT_SUCCEEDED(persist->InitNew());
    persist.Reset();

    EXPECT_HRESULT_SUCCEEDED(control->put_Value(Yes));
    EXPECT_EQ(host.Events->TakeEvents(), std::vector<DISPID>{2});
    EXPECT_EQ(host.Properties->TakeChanges(), (std::vector<DISPID>{0, 3}));
    SIZEL size = {3000, 700};
    SIZEL read = {};
    EXPECT_EQ(Hr(quick->SetContentExtent(&size)), Hr(S_OK));
    EXPECT_EQ(Hr(quick->GetContentExtent(&read)), Hr(S_OK));
    EXPECT_EQ(read.cx, size.cx);
    EXPECT_EQ(read.cy, size.cy);

    // The cookies are those of the connection points.
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    ASSERT_HRESULT_SUCCEEDED(control.As(&container));
    ASSERT_HRESULT_SUCCEEDED(container->FindConnectionPoint(DIID___YesNo, &point));
    EXPECT_EQ(Hr(point->Unadvise(host.Answer.dwEventCookie)), Hr(S_OK));
    ASSERT_HRESULT_SUCCEEDED(container->FindConnectionPoint(IID_IPropertyNotifySink, &point));
    EXPECT_EQ(Hr(point->Unadvise(host.Answer.dwPropNotifyCookie)), Hr(S_OK));
    container.Reset();
    point.Reset();
    quick.Reset();
    LetGo(control);
    EXPECT_EQ(References(host.Events.Get()), 1U);
    EXPECT_EQ(References(host.Properties.Get()), 1U);
    EXPECT_EQ(References(static_cast<IOleClientSite*>(host.Site.Get())), 1U);
}

TEST_F(ObjectTest, NeedsNoSinksForQuickActivation)
{
    QuickHost host;
    host.Container.pPropertyNotifySink = nullptr;
    host.Container.pUnkEventSink = nullptr;
    ComPtr<_YesNo> control = CreateYesNo();
    ComPtr<IQuickActivate> quick;
    ASSERT_HRESULT_SUCCEEDED(control.As(&quick));
    EXPECT_EQ(Hr(quick->QuickActivate(&host.Container, &host.Answer)), Hr(S_OK));
    EXPECT_HRESULT_SUCCEEDED(control->put_Value(Yes));
    quick.Reset();
    LetGo(control);
    EXPECT_EQ(References(static_cast<IOleClientSite*>(host.Site.Get())), 1U);
}

TEST_F(ObjectTest, RefusesQuickActivationWithoutItsStructures)
{
    QuickHost host;
    ComPtr<IQuickActivate> quick;
    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Create(CLSID_YesNo).As(&quick));
    EXPECT_EQ(Hr(quick->QuickActivate(nullptr, &host.Answer)), Hr(E_POINTER));
    EXPECT_EQ(Hr(quick->QuickActivate(&host.Container, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(References(static_cast<IOleClientSite*>(host.Site.Get())), 1U);
}

// --- Threads ---

// A whole life of a control in the calling thread's own apartment.
void LiveInThisThread()
{
    if (FAILED(OleInitialize(nullptr)))
    {
        ADD_FAILURE() << "no apartment";
        return;
    }
    for (int round = 0; round < 20; ++round)
    {
        const auto sink = MakeCom<EventRecorder>(DIID___YesNo);
        const SitedControl control;
        control.Site().Log().AllowAll();
        const Connection connection(control.Get(), DIID___YesNo, sink.Get());
        control.InitNew();
        EXPECT_EQ(Hr(control.Query<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &control.Site(),
                                                         0, control.Site().Window().Handle(),
                                                         &control.Site().Position())),
                  Hr(S_OK));
        EXPECT_EQ(Hr(control->put_Value(Yes)), Hr(S_OK));
        EXPECT_EQ(sink->TakeEvents(), std::vector<DISPID>{2});
        EXPECT_EQ(ControlWindows(), 1);
        DrainMessages();
    }
    EXPECT_EQ(ControlWindows(), 0);
    OleUninitialize();
}

TEST_F(ObjectTest, LivesInSeveralThreadsAtOnce)
{
    {
        const Thread one(LiveInThisThread);
        const Thread other(LiveInThisThread);
    }
    LiveInThisThread();
}

// The thread's own data goes with the thread, and the next one makes its own.
TEST_F(ObjectTest, LivesInOneThreadAfterTheOther)
{
    for (int i = 0; i < 5; ++i)
    {
        const Thread thread(LiveInThisThread);
    }
}

} // namespace

} // namespace kiv::test
