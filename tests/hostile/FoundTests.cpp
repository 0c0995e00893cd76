// What hosts and other programs really did, one by one.

#include "tests/com/each/EachTest.h"
#include "tests/hostile/CrashReport.h"
#include "tests/hostile/GuardedHeap.h"
#include "tests/hostile/Host.h"
#include "tests/hostile/HostObjects.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/Text.h"

#include <optional>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// As wide as a pointer, in the type of the contract's header.
#ifdef _WIN64
using MessageResult = LONGLONG;
#else
using MessageResult = LONG;
#endif

class Found : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        GuardedHeap::PutUnder(TheLibrary().Module());
        ReportCrashes();
        Doing("what was found");
        host_.emplace();
    }
    void TearDown() override
    {
        EXPECT_EQ(host_->End(), "");
        host_.reset();
        LibraryTest::TearDown();
    }

    Variant Property(const wchar_t* name) { return GetByName(host_->Control<IDispatch>().Get(), name).Value; }

    std::optional<Host> host_;
};

// The container's window takes what it has around it, but nothing that is in the control.
TEST_F(Found, AChkComboKeepsItsItemsWhenItsFormGoes)
{
    host_->Begin(ClassNamed(L"ChkCombo"), true);
    const auto control = host_->Control<IDispatch>();
    PutByName(control.Get(), L"ListIndex", Variant(1L));
    host_->DestroyWindow();
    EXPECT_EQ(Show(Property(L"ListCount")), Show(Variant(short{3})));
    EXPECT_EQ(Show(Property(L"Text")), Show(Variant(L"Two")));
    EXPECT_EQ(Hr(CallByName(control.Get(), L"AddItem", {Variant(L"Four")}).Result), Hr(S_OK));
    EXPECT_EQ(Show(Property(L"ListCount")), Show(Variant(short{4})));
    HWND window = nullptr;
    EXPECT_TRUE(FAILED(host_->Control<IOleInPlaceObject>()->GetWindow(&window))) << "no longer active";
}

TEST_F(Found, ABoxKeepsItsEntryWhenItsFormGoes)
{
    host_->Begin(ClassNamed(L"CurrencyBox"), true);
    PutByName(host_->Control<IDispatch>().Get(), L"Value", Variant(L"12"));
    const std::string value = Show(Property(L"Value"));
    host_->DestroyWindow();
    EXPECT_EQ(Show(Property(L"Value")), value);
    PutByName(host_->Control<IDispatch>().Get(), L"Value", Variant(L"34"));
    EXPECT_NE(Show(Property(L"Value")), value);
}

// Its handle is published, so any program can send it messages.
TEST_F(Found, ItemsThatAnotherProgramAddsAreItems)
{
    host_->Begin(ClassNamed(L"ChkCombo"), true);
    const auto control = host_->Control<IDispatch>();
    const auto combo = static_cast<HWND>(LongToHandle(Property(L"hwnd").Long()));
    for (int item = 0; item < 100; ++item)
        SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("From outside"));
    EXPECT_EQ(Hr(CallByName(control.Get(), L"AddItem", {Variant(L"Own")}).Result), Hr(S_OK));
    EXPECT_EQ(Show(Property(L"ListCount")), Show(Variant(short{104})));
    EXPECT_EQ(Show(Property(L"NewIndex")), Show(Variant(short{103})));
    EXPECT_EQ(
        Show(Invoke(control.Get(), IdOfName(control.Get(), L"List"), DISPATCH_PROPERTYGET, {Variant(50L)})
                 .Value),
        Show(Variant(L"From outside")));
    SendMessageA(combo, CB_RESETCONTENT, 0, 0);
    EXPECT_EQ(CallByName(control.Get(), L"RemoveItem", {Variant(50L)}).Result, DISP_E_EXCEPTION);
    EXPECT_EQ(Hr(CallByName(control.Get(), L"AddItem", {Variant(L"Own")}).Result), Hr(S_OK));
    EXPECT_EQ(Show(Property(L"ListCount")), Show(Variant(short{1})));
}

// The service answers anybody, for any window.
TEST_F(Found, MessagesOfTheHostsOwnWindowsAreNotTheControls)
{
    for (const PublishedClass& each : PublishedClasses())
    {
        if (!each.HandlesMessages)
            continue;
        host_->Begin(each, true);
        ComPtr<ISubClass> service;
        ASSERT_EQ(Hr(host_->Control<IUnknown>().As(&service)), Hr(S_OK)) << Narrow(each.Name);
        // One that keeps something of its own where the library's windows keep the way to their control.
        const HWND own = CreateWindowExW(0, L"COMBOBOX", L"", WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, 0, 120,
                                         60, 60, host_->Window(), nullptr, nullptr, nullptr);
        MessageResult result = 0;
        for (const UINT message :
             {WM_NULL, WM_PAINT, WM_SIZE, WM_CHAR, WM_SETFOCUS, WM_COMMAND, WM_DRAWITEM, WM_PASTE})
        {
            EXPECT_EQ(Hr(service->WndProc(HandleToLong(own), static_cast<LONG>(message), 0, 0, &result)),
                      Hr(S_OK));
        }
        EXPECT_EQ(Hr(service->WndProc(HandleToLong(own), WM_NCHITTEST, 0, 0, &result)), Hr(S_OK));
        EXPECT_EQ(result, DefWindowProcA(own, WM_NCHITTEST, 0, 0)) << "as the system answers for any window";
        ::DestroyWindow(own);
        service.Reset();
        EXPECT_EQ(host_->End(), "") << Narrow(each.Name);
    }
}

// One that connects another while it is asked what it is.
class Recruiter final : public ComObject<IDispatch>
{
public:
    Recruiter(IConnectionPoint* point, IUnknown* recruit) : point_(point), recruit_(recruit) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        if (const ComPtr<IUnknown> recruit = std::exchange(recruit_, nullptr))
        {
            EXPECT_EQ(Hr(point_->Advise(recruit.Get(), &Cookie)), Hr(S_OK));
        }
        return ComObject::QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override
    {
        return S_OK;
    }

    DWORD Cookie = 0;

private:
    IConnectionPoint* const point_;
    ComPtr<IUnknown> recruit_;
};

TEST_F(Found, SinksThatConnectEachOtherHaveTheirOwnNumbers)
{
    host_->Begin(ClassNamed(L"YesNo"), false);
    host_->Disconnect();
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(Hr(host_->Control<IConnectionPointContainer>()->FindConnectionPoint(IID_IDispatch, &point)),
              Hr(S_OK));
    const auto recruiter = MakeCom<Recruiter>(point.Get(), host_->Objects().Events.Get());
    DWORD cookie = 0;
    ASSERT_EQ(Hr(point->Advise(recruiter.Get(), &cookie)), Hr(S_OK));
    EXPECT_NE(cookie, recruiter->Cookie);
    EXPECT_EQ(Hr(point->Unadvise(cookie)), Hr(S_OK));
    EXPECT_EQ(Hr(point->Unadvise(recruiter->Cookie)), Hr(S_OK));
    EXPECT_EQ(References(recruiter.Get()), 1U);
    EXPECT_EQ(References(host_->Objects().Events.Get()), 1U);
}

// The library stays while somebody lists its connections.
TEST_F(Found, AListOfConnectionsKeepsTheLibrary)
{
    host_->Begin(ClassNamed(L"YesNo"), false);
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(Hr(host_->Control<IConnectionPointContainer>()->FindConnectionPoint(IID_IDispatch, &point)),
              Hr(S_OK));
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(Hr(point->EnumConnections(&connections)), Hr(S_OK));
    point.Reset();
    host_->Disconnect();
    host_->Control<IOleObject>()->Close(OLECLOSE_NOSAVE);
    host_->Control<IOleObject>()->SetClientSite(nullptr);
    host_->LoseControl();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_FALSE));
    CONNECTDATA connection = {};
    EXPECT_EQ(Hr(connections->Next(1, &connection, nullptr)), Hr(S_OK));
    connection.pUnk->Release();
    connections.Reset();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK));
}

// Nothing is repainted but what is the control's own, which after its windows have gone is nothing.
TEST_F(Found, AControlWithoutWindowsRepaintsNoOthers)
{
    for (const PublishedClass& each : PublishedClasses())
    {
        host_->Begin(each, true);
        const HWND inner = host_->ControlWindow();
        auto control = host_->Control<IDispatch>();
        const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 400, 400, 40, 40,
                                           nullptr, nullptr, nullptr, nullptr);
        ::DestroyWindow(inner); // what no container may do, and not the way it goes with its form
        EXPECT_FALSE(IsWindow(inner));
        UpdateWindow(other);
        ValidateRect(other, nullptr);
        host_->SetEveryProperty();
        CallByName(control.Get(), L"Refresh");
        EXPECT_FALSE(GetUpdateRect(other, nullptr, FALSE)) << Narrow(each.Name);
        ::DestroyWindow(other);
        host_->Control<IOleObject>()->Close(OLECLOSE_NOSAVE);
        host_->Control<IOleObject>()->SetClientSite(nullptr);
        control.Reset();
        host_->Disconnect();
        host_->LoseControl();
        EXPECT_EQ(host_->End(), "") << Narrow(each.Name);
    }
}

} // namespace

} // namespace kiv::test
