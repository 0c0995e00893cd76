// Controls in several threads of a host, which end as they like, and calls from threads that are not a
// control's.

#include "tests/com/each/EachTest.h"
#include "tests/hostile/CrashReport.h"
#include "tests/hostile/Host.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"
#include "tests/support/Thread.h"

#include <ole2.h>

#include <algorithm>
#include <atomic>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr DWORD LongestWait = 20000; // milliseconds

// Messages are handed out meanwhile.
template<class Condition>
bool WaitFor(Condition condition)
{
    for (const DWORD start = GetTickCount(); GetTickCount() - start < LongestWait; Sleep(1))
    {
        DrainMessages();
        if (condition())
            return true;
    }
    return false;
}

// A single-threaded apartment for as long as this lives.
class Apartment
{
public:
    Apartment() { Check(OleInitialize(nullptr)); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { OleUninitialize(); }
};

class Apartments : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        ReportCrashes();
        Doing("several apartments");
    }
};

TEST_F(Apartments, EndInAnyOrder)
{
    constexpr std::size_t Threads = 4;
    const std::size_t classes = PublishedClasses().size();
    std::atomic<std::size_t> ready = 0;
    {
        std::vector<std::unique_ptr<Thread>> threads;
        for (std::size_t number = 0; number < Threads; ++number)
        {
            threads.push_back(std::make_unique<Thread>([&, number] {
                const Apartment apartment;
                std::vector<ComPtr<IUnknown>> controls;
                for (std::size_t each = 0; each < classes; ++each)
                    controls.push_back(
                        TheLibrary().Create(Id(PublishedClasses()[(each + number) % classes].Class)));
                ++ready;
                WaitFor([&] { return ready == Threads; });
                // Each in another order, some of them without a message in between.
                for (std::size_t each = 0; each < classes; ++each)
                {
                    controls[(each * (2 * number + 1) + number) % classes].Reset();
                    if (number % 2 == 0)
                        DrainMessages();
                }
                controls.clear();
                EXPECT_EQ(ControlWindows(), 0);
            }));
        }
    }
    EXPECT_EQ(ready, Threads);
}

TEST_F(Apartments, EndWhileAPickerIsOpenInOneOfThem)
{
    std::atomic<HWND> picker = nullptr;
    std::atomic<bool> others = false;
    {
        const Thread choosing([&] {
            const Apartment apartment;
            Host::ShowDialogsTo(&picker);
            {
                Host host;
                host.Begin(ClassNamed(L"EnumList"), true);
                SendMessageW(host.FocusWindow(), WM_KEYDOWN, VK_F4, 1);
                EXPECT_TRUE(others) << "closed too early";
                EXPECT_EQ(host.End(), "");
            }
            Host::ShowDialogsTo(nullptr);
            EXPECT_EQ(ControlWindows(), 0);
        });
        EXPECT_TRUE(WaitFor([&] { return picker != nullptr; }));
        for (const PublishedClass& each : PublishedClasses())
        {
            const Thread other([&] {
                const Apartment apartment;
                Host host;
                host.Begin(each, true);
                host.SetEveryProperty();
                EXPECT_EQ(host.End(false), "") << Narrow(each.Name);
            });
        }
        EXPECT_TRUE(IsWindow(picker));
        others = true;
        PostMessageW(picker, WM_CLOSE, 0, 0);
    }
    EXPECT_FALSE(IsWindow(picker));
}

class EachApart : public EachTest
{
protected:
    void SetUp() override
    {
        EachTest::SetUp();
        ReportCrashes();
        Doing(Narrow(GetParam().Name) + " apart");
    }
};

// Automation calls from another apartment come by a proxy, for as long as there is a control to answer.
TEST_P(EachApart, IsCalledThroughAProxy)
{
    ComPtr<IDispatch> control;
    Check(TheLibrary().Create(ClassId()).As(&control));
    IStream* marshalled = nullptr;
    Check(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, control.Get(), &marshalled));
    std::atomic<int> stage = 0;
    const auto reaches = [&](int wanted) { return WaitFor([&] { return stage == wanted; }); };
    {
        const Thread client([&] {
            const Apartment apartment;
            {
                ComPtr<IDispatch> proxy;
                EXPECT_EQ(Hr(CoGetInterfaceAndReleaseStream(marshalled, IID_PPV_ARGS(&proxy))), Hr(S_OK));
                if (proxy)
                {
                    EXPECT_NE(proxy.Get(), control.Get());
                    DISPID id = DISPID_UNKNOWN;
                    LPOLESTR name = const_cast<LPOLESTR>(L"NoSuchMember");
                    EXPECT_EQ(Hr(proxy->GetIDsOfNames(IID_NULL, &name, 1, 0, &id)), Hr(DISP_E_UNKNOWNNAME));
                    UINT count = 0;
                    EXPECT_EQ(Hr(proxy->GetTypeInfoCount(&count)), Hr(S_OK));
                    EXPECT_EQ(count, 1U);
                }
                stage = 1;
                EXPECT_TRUE(reaches(2));
                // The control is gone, and no call reaches what it was.
                UINT count = 0;
                EXPECT_TRUE(!proxy || FAILED(proxy->GetTypeInfoCount(&count)));
            }
            stage = 3;
        });
        EXPECT_TRUE(reaches(1));
        CoDisconnectObject(control.Get(), 0);
        control.Reset();
        EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK));
        stage = 2;
        EXPECT_TRUE(reaches(3));
    }
}

TEST_P(EachApart, IsLetGoOfOnAnotherThread)
{
    IUnknown* const control = TheLibrary().Create(ClassId()).Detach();
    ASSERT_EQ(ControlWindows(), 1);
    {
        const Thread other([control] { control->Release(); });
    }
    DrainMessages();
    EXPECT_EQ(ControlWindows(), 0);
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK));
}

TEST_P(EachApart, IsLetGoOfOnAnotherThreadWhileItIsActive)
{
    HWND window = nullptr;
    {
        Host host;
        host.Begin(GetParam(), true);
        window = host.ControlWindow();
        IUnknown* const control = host.Control<IUnknown>().Detach();
        host.Disconnect();
        host.LoseControl();
        {
            const Thread other([control] { control->Release(); });
        }
        DrainMessages();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(host.End(), "");
    }
}

// The thread has ended and has taken the windows with it; the host finds out later that it still holds the
// control.
TEST_P(EachApart, OutlivesItsThread)
{
    IUnknown* control = nullptr;
    {
        const Thread other([&] {
            const Apartment apartment;
            control = TheLibrary().Create(ClassId()).Detach();
        });
    }
    ComPtr<IDispatch> properties;
    ASSERT_EQ(Hr(control->QueryInterface(IID_PPV_ARGS(&properties))), Hr(S_OK));
    UINT count = 0;
    EXPECT_EQ(Hr(properties->GetTypeInfoCount(&count)), Hr(S_OK));
    properties.Reset();
    control->Release();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK));
}

INSTANTIATE_TEST_SUITE_P(Classes, EachApart, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
