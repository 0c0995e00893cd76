// Events and property notifications: what a host hears, when, and when it must not.

#include "tests/com/SitedControl.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/TestFont.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>
#include <olectl.h>

#include <memory>
#include <utility>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr DISPID Click = 1;
constexpr DISPID Change = 2;
using Ids = std::vector<DISPID>;

class NotificationTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = std::make_unique<SitedControl>();
        control_->Site().Log().AllowAll();
    }
    void TearDown() override
    {
        DisconnectSinks();
        control_.reset();
        LibraryTest::TearDown();
    }
    void ConnectSinks()
    {
        eventConnection_ = std::make_unique<Connection>(control_->Get(), DIID___YesNo, events_.Get());
        propertyConnection_ =
            std::make_unique<Connection>(control_->Get(), IID_IPropertyNotifySink, properties_.Get());
    }
    void DisconnectSinks()
    {
        eventConnection_.reset();
        propertyConnection_.reset();
    }
    _YesNo* Control() const { return control_->Get(); }
    void Type(wchar_t character) const
    {
        long window = 0;
        Check(Control()->get_hwnd(&window));
        SendMessageW(reinterpret_cast<HWND>(static_cast<LONG_PTR>(window)), WM_CHAR, character, 1);
    }
    AnswerEnums Value() const
    {
        AnswerEnums value = Neither;
        Check(Control()->get_Value(&value));
        return value;
    }

    std::unique_ptr<SitedControl> control_;
    ComPtr<EventRecorder> events_ = MakeCom<EventRecorder>(DIID___YesNo);
    ComPtr<PropertyNotifyRecorder> properties_ = MakeCom<PropertyNotifyRecorder>();
    std::unique_ptr<Connection> eventConnection_;
    std::unique_ptr<Connection> propertyConnection_;
};

TEST_F(NotificationTest, TellsWhichPropertyHasChanged)
{
    control_->InitNew();
    ConnectSinks();
    Control()->put_BackColor(255);
    EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_BACKCOLOR});
    Control()->put_ForeColor(255);
    EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_FORECOLOR});
    Control()->put_Enabled(VARIANT_FALSE);
    EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_ENABLED});
    Control()->putref_Font(MakeFont().Get());
    EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_FONT});
    Control()->put_YesText(Bstr(L"Ja").Get());
    EXPECT_EQ(properties_->TakeChanges(), Ids{1});
    Control()->put_NoText(Bstr(L"Nein").Get());
    EXPECT_EQ(properties_->TakeChanges(), Ids{2});
    // The bound property follows the answer.
    Control()->put_Value(Yes);
    EXPECT_EQ(properties_->TakeChanges(), (Ids{0, 3}));
    Control()->put_Text(Variant(L"Nein").Get());
    EXPECT_EQ(properties_->TakeChanges(), (Ids{0, 3}));
    Control()->put_Enabled(VARIANT_TRUE);
    properties_->TakeChanges();
    Type('y');
    EXPECT_EQ(properties_->TakeChanges(), (Ids{0, 3}));
}

TEST_F(NotificationTest, TakesNoKeysWhileDisabled)
{
    control_->InitNew();
    ConnectSinks();
    Control()->put_Enabled(VARIANT_FALSE);
    properties_->TakeChanges();
    Type('y');
    EXPECT_EQ(events_->TakeEvents(), Ids());
    EXPECT_EQ(properties_->TakeChanges(), Ids());
    EXPECT_EQ(Value(), Neither);
}

// Every assignment of these is a change, also of the value that was there; only the answer is compared.
TEST_F(NotificationTest, TellsOfAssignmentsThatChangeNothingExceptToTheAnswer)
{
    control_->InitNew();
    ConnectSinks();
    Control()->put_BackColor(0x8000000F);
    Control()->put_Enabled(VARIANT_TRUE);
    Control()->put_YesText(Bstr(L"Y").Get());
    EXPECT_EQ(properties_->TakeChanges(), (Ids{DISPID_BACKCOLOR, DISPID_ENABLED, 1}));
    const auto persist = control_->Query<IPersistStreamInit>();
    EXPECT_EQ(Hr(persist->Save(MakeCom<TestStream>().Get(), TRUE)), Hr(S_OK));
    Control()->put_Value(Neither);
    Control()->put_Text(Variant::Null().Get());
    EXPECT_EQ(properties_->TakeChanges(), Ids());
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE));
    EXPECT_EQ(events_->TakeEvents(), Ids());
}

TEST_F(NotificationTest, TellsNothingWhileLoading)
{
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"BackColor", Variant(255L));
    bag->Put(L"Enabled", Variant(false));
    bag->Put(L"Value", Variant(1L));
    bag->Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont().Get())));
    const auto saved = MakeCom<TestStream>();
    control_->InitNew();
    Control()->put_Value(No);
    ASSERT_HRESULT_SUCCEEDED(control_->Query<IPersistStreamInit>()->Save(saved.Get(), FALSE));

    for (int way = 0; way < 3; ++way)
    {
        control_ = std::make_unique<SitedControl>();
        ConnectSinks();
        saved->Rewind();
        const HRESULT loaded = way == 0   ? control_->Query<IPersistStreamInit>()->InitNew()
                               : way == 1 ? control_->Query<IPersistPropertyBag>()->Load(bag.Get(), nullptr)
                                          : control_->Query<IPersistStreamInit>()->Load(saved.Get());
        EXPECT_EQ(Hr(loaded), Hr(S_OK)) << way;
        EXPECT_EQ(properties_->TakeChanges(), Ids()) << way;
        EXPECT_EQ(events_->TakeEvents(), Ids()) << way;
        Control()->put_BackColor(1);
        EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_BACKCOLOR}) << "and again afterwards";
        DisconnectSinks();
    }
}

TEST_F(NotificationTest, RaisesChangeForAnAssignmentAndClickBesideForTheUser)
{
    control_->InitNew();
    ConnectSinks();
    Control()->put_Value(Yes);
    EXPECT_EQ(events_->TakeEvents(), Ids{Change});
    Control()->put_Value(Yes);
    EXPECT_EQ(events_->TakeEvents(), Ids());
    Control()->put_Text(Variant(L"N").Get());
    EXPECT_EQ(events_->TakeEvents(), Ids{Change});
    Type('y');
    EXPECT_EQ(events_->TakeEvents(), (Ids{Click, Change}));
    Type('Y');
    EXPECT_EQ(events_->TakeEvents(), Ids()) << "typing the answer again is no click";
    Type(' ');
    EXPECT_EQ(events_->TakeEvents(), (Ids{Click, Change}));
    EXPECT_EQ(Value(), Neither);
}

TEST_F(NotificationTest, ShowsTheProposedAnswerInsideClickAndTheOldOneAfterAVeto)
{
    control_->InitNew();
    ConnectSinks();
    std::vector<AnswerEnums> seen;
    bool refuse = true;
    events_->OnEvent([&](DISPID event, DISPPARAMS& arguments) {
        seen.push_back(Value());
        if (event != Click)
            return;
        ASSERT_EQ(arguments.cArgs, 1U);
        ASSERT_EQ(V_VT(&arguments.rgvarg[0]), VT_BYREF | VT_BOOL);
        EXPECT_EQ(*V_BOOLREF(&arguments.rgvarg[0]), VARIANT_FALSE);
        if (refuse)
            *V_BOOLREF(&arguments.rgvarg[0]) = VARIANT_TRUE;
    });
    Type('y');
    EXPECT_EQ(seen, std::vector{Yes});
    EXPECT_EQ(events_->TakeEvents(), Ids{Click});
    EXPECT_EQ(properties_->TakeChanges(), Ids());
    EXPECT_EQ(Value(), Neither);
    seen.clear();
    refuse = false;
    Type('y');
    EXPECT_EQ(seen, (std::vector{Yes, Yes}));
    EXPECT_EQ(Value(), Yes);
}

// "True" in the hosts' languages is -1, but whatever is not 0 is true.
TEST_F(NotificationTest, TakesAnythingButFalseForAVeto)
{
    control_->InitNew();
    ConnectSinks();
    events_->OnEvent([&](DISPID event, DISPPARAMS& arguments) {
        if (event == Click)
            *V_BOOLREF(&arguments.rgvarg[0]) = 1;
    });
    Type('y');
    EXPECT_EQ(events_->TakeEvents(), Ids{Click});
    EXPECT_EQ(Value(), Neither);
}

TEST_F(NotificationTest, TakesAnotherAnswerSetInsideClick)
{
    control_->InitNew();
    ConnectSinks();
    bool once = true;
    events_->OnEvent([&](DISPID event, DISPPARAMS&) {
        if (event == Click && std::exchange(once, false))
            Control()->put_Value(No);
    });
    Type('y');
    EXPECT_EQ(Value(), Yes) << "the user's answer is committed after the handler";
}

TEST_F(NotificationTest, HoldsEventsBackWhileFrozen)
{
    control_->InitNew();
    ConnectSinks();
    const auto oleControl = control_->Query<IOleControl>();
    EXPECT_EQ(Hr(oleControl->FreezeEvents(TRUE)), Hr(S_OK));
    EXPECT_EQ(Hr(oleControl->FreezeEvents(TRUE)), Hr(S_OK));
    Control()->put_Value(Yes);
    EXPECT_EQ(events_->TakeEvents(), Ids());
    EXPECT_EQ(Value(), Yes);
    EXPECT_EQ(Hr(oleControl->FreezeEvents(FALSE)), Hr(S_OK));
    EXPECT_EQ(events_->TakeEvents(), Ids()) << "frozen twice";
    EXPECT_EQ(Hr(oleControl->FreezeEvents(FALSE)), Hr(S_OK));
    EXPECT_EQ(events_->TakeEvents(), Ids{Change}) << "held back, not lost";
    Control()->put_Value(No);
    EXPECT_EQ(events_->TakeEvents(), Ids{Change});
    EXPECT_EQ(Hr(oleControl->FreezeEvents(FALSE)), Hr(S_OK)) << "once too often";
    Control()->put_Value(Yes);
    EXPECT_EQ(events_->TakeEvents(), Ids{Change});
}

TEST_F(NotificationTest, TellsSeveralSinks)
{
    control_->InitNew();
    ConnectSinks();
    const auto second = MakeCom<EventRecorder>(DIID___YesNo);
    {
        const Connection connection(Control(), DIID___YesNo, second.Get());
        Control()->put_Value(Yes);
        EXPECT_EQ(events_->TakeEvents(), Ids{Change});
        EXPECT_EQ(second->TakeEvents(), Ids{Change});
    }
    Control()->put_Value(No);
    EXPECT_EQ(events_->TakeEvents(), Ids{Change});
    EXPECT_EQ(second->TakeEvents(), Ids());
}

TEST_F(NotificationTest, SurvivesASinkThatDisconnectsItselfAndOthers)
{
    control_->InitNew();
    ConnectSinks();
    const auto second = MakeCom<EventRecorder>(DIID___YesNo);
    Connection connection(Control(), DIID___YesNo, second.Get());
    events_->OnEvent([&](DISPID, DISPPARAMS&) {
        eventConnection_.reset();
        connection.Disconnect();
    });
    EXPECT_EQ(Hr(Control()->put_Value(Yes)), Hr(S_OK));
    EXPECT_EQ(events_->TakeEvents(), Ids{Change});
    Control()->put_Value(No);
    EXPECT_EQ(events_->TakeEvents(), Ids());
}

TEST_F(NotificationTest, SurvivesAnAssignmentInsideItsOwnEvent)
{
    control_->InitNew();
    ConnectSinks();
    int depth = 0;
    events_->OnEvent([&](DISPID event, DISPPARAMS&) {
        if (event == Change && ++depth < 5)
            Control()->put_Value(Value() == Yes ? No : Yes);
    });
    Control()->put_Value(Yes);
    EXPECT_EQ(events_->TakeEvents(), (Ids{Change, Change, Change, Change, Change}));
    EXPECT_EQ(Value(), Yes);
}

// --- Connection points ---

TEST_F(NotificationTest, ListsItsConnectionPoints)
{
    control_->InitNew();
    const auto container = control_->Query<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_HRESULT_SUCCEEDED(container->EnumConnectionPoints(&points));
    std::vector<std::wstring> interfaces;
    ComPtr<IConnectionPoint> point;
    while (points->Next(1, point.ReleaseAndGetAddressOf(), nullptr) == S_OK)
    {
        IID iid = {};
        EXPECT_HRESULT_SUCCEEDED(point->GetConnectionInterface(&iid));
        interfaces.push_back(GuidText(iid));
        ComPtr<IConnectionPoint> found;
        EXPECT_HRESULT_SUCCEEDED(container->FindConnectionPoint(iid, &found));
        EXPECT_EQ(found.Get(), point.Get());
    }
    EXPECT_EQ(interfaces, (std::vector{GuidText(DIID___YesNo), GuidText(IID_IPropertyNotifySink)}));

    ComPtr<IEnumConnectionPoints> clone;
    EXPECT_HRESULT_SUCCEEDED(points->Reset());
    EXPECT_HRESULT_SUCCEEDED(points->Skip(1));
    EXPECT_HRESULT_SUCCEEDED(points->Clone(&clone));
    IConnectionPoint* both[2] = {};
    ULONG fetched = 0;
    EXPECT_EQ(Hr(clone->Next(2, both, &fetched)), Hr(S_FALSE));
    ASSERT_EQ(fetched, 1U);
    both[0]->Release();
    EXPECT_EQ(Hr(points->Skip(2)), Hr(S_FALSE));
}

TEST_F(NotificationTest, ListsItsConnections)
{
    control_->InitNew();
    ConnectSinks();
    ComPtr<IConnectionPoint> point;
    ASSERT_HRESULT_SUCCEEDED(
        control_->Query<IConnectionPointContainer>()->FindConnectionPoint(DIID___YesNo, &point));
    ComPtr<IEnumConnections> connections;
    ASSERT_HRESULT_SUCCEEDED(point->EnumConnections(&connections));
    CONNECTDATA data = {};
    ULONG fetched = 0;
    ASSERT_EQ(Hr(connections->Next(1, &data, &fetched)), Hr(S_OK));
    EXPECT_EQ(fetched, 1U);
    ComPtr<IUnknown> sink;
    EXPECT_HRESULT_SUCCEEDED(events_.As(&sink));
    ComPtr<IUnknown> listed;
    EXPECT_HRESULT_SUCCEEDED(data.pUnk->QueryInterface(IID_PPV_ARGS(&listed)));
    EXPECT_EQ(listed.Get(), sink.Get());
    EXPECT_NE(data.dwCookie, 0U);
    data.pUnk->Release();
    EXPECT_EQ(Hr(connections->Next(1, &data, &fetched)), Hr(S_FALSE));
    EXPECT_EQ(fetched, 0U);
}

TEST_F(NotificationTest, RefusesConnectionsThatCannotBe)
{
    control_->InitNew();
    const auto container = control_->Query<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(Hr(container->FindConnectionPoint(IID_IOleObject, &point)), Hr(CONNECT_E_NOCONNECTION));
    EXPECT_EQ(point.Get(), nullptr);
    EXPECT_EQ(Hr(container->FindConnectionPoint(DIID___YesNo, nullptr)), Hr(E_POINTER));
    ASSERT_HRESULT_SUCCEEDED(container->FindConnectionPoint(IID_IPropertyNotifySink, &point));
    DWORD cookie = 7;
    EXPECT_EQ(Hr(point->Advise(events_.Get(), &cookie)), Hr(CONNECT_E_CANNOTCONNECT)) << "not that interface";
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(Hr(point->Advise(nullptr, &cookie)), Hr(E_POINTER));
    EXPECT_EQ(Hr(point->Advise(properties_.Get(), nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(point->Unadvise(0)), Hr(CONNECT_E_NOCONNECTION));
    EXPECT_EQ(Hr(point->Unadvise(4711)), Hr(CONNECT_E_NOCONNECTION));
    EXPECT_EQ(References(properties_.Get()), 1U);
}

} // namespace

} // namespace kiv::test
