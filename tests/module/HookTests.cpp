// The subclassing service: how a window's messages find its owner.

#include "framework/subclass/MessageLong.h"
#include "framework/subclass/SubClass.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct Message
{
    HWND Window;
    UINT Number;
    WPARAM WParam;
    LPARAM LParam;

    bool operator==(const Message&) const = default;
};

// A control as the service sees it: keeps the messages of the tests and forwards what it is told to.
class Owner final : public ComObject<Chain<ISubClass, IDispatch>>
{
public:
    void Forward(const WindowHook& previous) { previous_ = &previous; }
    void Answer(LRESULT result) { result_ = result; }
    void Fail() { outcome_ = E_FAIL; }
    const std::vector<Message>& Messages() const { return messages_; }
    ULONG ReferencesInside() const { return referencesInside_; }

    HRESULT STDMETHODCALLTYPE WndProc(LONG hwnd, LONG msg, MessageLong wParam, MessageLong lParam,
                                      MessageLong* result) noexcept override
    {
        const auto window = static_cast<HWND>(LongToHandle(hwnd));
        const Message message = {window, static_cast<UINT>(msg), static_cast<WPARAM>(wParam),
                                 static_cast<LPARAM>(lParam)};
        if (message.Number >= WM_APP)
            messages_.push_back(message);
        referencesInside_ = References(static_cast<ISubClass*>(this));
        *result = static_cast<MessageLong>(
            previous_ ? CallPrevious(*previous_, window, message.Number, message.WParam, message.LParam)
                      : result_);
        return outcome_;
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
        ADD_FAILURE() << "the service calls early-bound only";
        return E_NOTIMPL;
    }

private:
    const WindowHook* previous_ = nullptr;
    LRESULT result_ = 0;
    HRESULT outcome_ = S_OK;
    std::vector<Message> messages_;
    ULONG referencesInside_ = 0;
};

// A window whose own procedure counts the tests' messages and answers each with its number.
class Window
{
public:
    Window() :
        hooked_(CreateWindowExA(0, ClassName(), "", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr))
    {
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() { DestroyWindow(Handle()); }

    HWND Handle() const { return hooked_.hWnd(); }
    const kiv::Window& AsHooked() const { return hooked_; }
    LONG_PTR Procedure() const { return GetWindowLongPtrA(Handle(), GWLP_WNDPROC); }
    LONG_PTR UserData() const { return GetWindowLongPtrA(Handle(), GWLP_USERDATA); }
    LRESULT Send(UINT number, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageA(Handle(), number, wParam, lParam);
    }
    int Arrived() const { return static_cast<int>(GetWindowLongPtrA(Handle(), 0)); }

    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
    {
        if (message < WM_APP)
            return DefWindowProcA(window, message, wParam, lParam);
        SetWindowLongPtrA(window, 0, GetWindowLongPtrA(window, 0) + 1);
        return static_cast<LRESULT>(message);
    }

private:
    static const char* ClassName()
    {
        static const ATOM registered = [] {
            WNDCLASSA windowClass = {};
            windowClass.lpfnWndProc = &Receive;
            windowClass.cbWndExtra = sizeof(LONG_PTR);
            windowClass.hInstance = GetModuleHandleW(nullptr);
            windowClass.lpszClassName = "KivTests.Hooked";
            return RegisterClassA(&windowClass);
        }();
        return reinterpret_cast<const char*>(static_cast<ULONG_PTR>(registered));
    }

    const kiv::Window hooked_;
};

const auto TheServicesProcedure = reinterpret_cast<LONG_PTR>(&SubClassWndProc);

class HookTest : public testing::Test
{
protected:
    void Hook()
    {
        RegisterOwner(window_.Handle(), owner_.Get());
        PrevWndProc.HookWindow(window_.AsHooked());
    }

    const ComPtr<Owner> owner_ = MakeCom<Owner>();
    const Window window_;
    WindowHook PrevWndProc;
};

TEST_F(HookTest, PutsTheServiceInFrontOfTheWindow)
{
    const LONG_PTR before = window_.Procedure();
    Hook();
    EXPECT_EQ(window_.Procedure(), TheServicesProcedure);
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(PrevWndProc.Previous()), before);
    EXPECT_EQ(window_.UserData(), reinterpret_cast<LONG_PTR>(static_cast<ISubClass*>(owner_.Get())));
    PrevWndProc.UnhookWindow();
    EXPECT_EQ(window_.Procedure(), before);
    EXPECT_EQ(PrevWndProc.Previous(), nullptr);
    EXPECT_EQ(window_.UserData(), reinterpret_cast<LONG_PTR>(static_cast<ISubClass*>(owner_.Get())))
        << "the owner's pointer is left as it is";
}

TEST_F(HookTest, HandsEveryArgumentOnAndTheResultBack)
{
    Hook();
    struct
    {
        WPARAM WParam;
        LPARAM LParam;
        LRESULT Result;
    } const rows[] = {{0, 0, 0},
                      {1, -1, 77},
                      {~WPARAM{0}, (std::numeric_limits<LPARAM>::min)(), -5},
                      {0x80000000U, 0x7FFFFFFF, (std::numeric_limits<LRESULT>::max)()}};
    for (const auto& row : rows)
    {
        owner_->Answer(row.Result);
        EXPECT_EQ(window_.Send(WM_APP + 7, row.WParam, row.LParam), row.Result);
        EXPECT_TRUE(owner_->Messages().back() ==
                    (Message{window_.Handle(), WM_APP + 7, row.WParam, row.LParam}));
    }
    EXPECT_EQ(window_.Arrived(), 0) << "the service forwards nothing of its own accord";
}

TEST_F(HookTest, LeavesForwardingToTheOwner)
{
    Hook();
    owner_->Forward(PrevWndProc);
    EXPECT_EQ(window_.Send(WM_APP + 3), WM_APP + 3);
    EXPECT_EQ(window_.Arrived(), 1);
    EXPECT_EQ(owner_->Messages().size(), 1U);
}

TEST_F(HookTest, HooksOnceThroughOneField)
{
    const LONG_PTR before = window_.Procedure();
    Hook();
    PrevWndProc.HookWindow(window_.AsHooked());
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(PrevWndProc.Previous()), before)
        << "the field keeps the first previous procedure";
    owner_->Forward(PrevWndProc);
    EXPECT_EQ(window_.Send(WM_APP), WM_APP);
    EXPECT_EQ(owner_->Messages().size(), 1U);
    EXPECT_EQ(window_.Arrived(), 1);
    PrevWndProc.UnhookWindow();
    EXPECT_EQ(window_.Procedure(), before);
}

TEST_F(HookTest, UnhooksOnceThroughOneField)
{
    Hook();
    PrevWndProc.UnhookWindow();
    const auto somebodyElses = reinterpret_cast<LONG_PTR>(&DefWindowProcA);
    SetWindowLongPtrA(window_.Handle(), GWLP_WNDPROC, somebodyElses);
    const LONG_PTR now = window_.Procedure();
    PrevWndProc.UnhookWindow();
    EXPECT_EQ(window_.Procedure(), now);
    EXPECT_EQ(PrevWndProc.Previous(), nullptr);
}

TEST_F(HookTest, DoesNotUnhookWhatWasNotHooked)
{
    const LONG_PTR before = window_.Procedure();
    PrevWndProc.UnhookWindow();
    EXPECT_EQ(window_.Procedure(), before);
    EXPECT_EQ(PrevWndProc.Previous(), nullptr);
}

TEST_F(HookTest, UnhooksWhenItGoes)
{
    const LONG_PTR before = window_.Procedure();
    RegisterOwner(window_.Handle(), owner_.Get());
    {
        WindowHook hook;
        hook.HookWindow(window_.AsHooked());
        EXPECT_EQ(window_.Procedure(), TheServicesProcedure);
    }
    EXPECT_EQ(window_.Procedure(), before);
}

TEST_F(HookTest, HoldsNoReferenceToTheOwner)
{
    const ULONG before = References(static_cast<ISubClass*>(owner_.Get()));
    Hook();
    window_.Send(WM_APP);
    EXPECT_EQ(owner_->ReferencesInside(), before);
    EXPECT_EQ(References(static_cast<ISubClass*>(owner_.Get())), before);
    PrevWndProc.UnhookWindow();
    EXPECT_EQ(References(static_cast<ISubClass*>(owner_.Get())), before);
}

TEST_F(HookTest, EndsTheMessageOfAnOwnerThatFails)
{
    Hook();
    owner_->Fail();
    window_.Send(WM_APP);
    EXPECT_EQ(owner_->Messages().size(), 1U);
    EXPECT_EQ(window_.Arrived(), 0);
}

LRESULT CALLBACK Combine(HWND, UINT, WPARAM wParam, LPARAM lParam)
{
    return static_cast<LRESULT>(wParam) * 10 + lParam;
}

// A window without an owner: the message goes to whatever procedure the window has at that moment.
TEST_F(HookTest, HandsTheMessageOfAnUnownedWindowToItsProcedure)
{
    EXPECT_EQ(SubClassWndProc(window_.Handle(), WM_APP + 9, 1, 2), WM_APP + 9);
    EXPECT_EQ(window_.Arrived(), 1);
    const LONG_PTR before =
        SetWindowLongPtrA(window_.Handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Combine));
    EXPECT_EQ(SubClassWndProc(window_.Handle(), WM_APP + 9, 4, 2), 42);
    SetWindowLongPtrA(window_.Handle(), GWLP_WNDPROC, before);
    EXPECT_EQ(window_.Arrived(), 1);
}

TEST_F(HookTest, KeepsTheMessagesOfTwoOwnersApart)
{
    Hook();
    const ComPtr<Owner> other = MakeCom<Owner>();
    const Window otherWindow;
    WindowHook otherPrevWndProc;
    RegisterOwner(otherWindow.Handle(), other.Get());
    otherPrevWndProc.HookWindow(otherWindow.AsHooked());
    window_.Send(WM_APP + 1);
    otherWindow.Send(WM_APP + 2);
    window_.Send(WM_APP + 3);
    EXPECT_TRUE(owner_->Messages() == (std::vector<Message>{{window_.Handle(), WM_APP + 1, 0, 0},
                                                            {window_.Handle(), WM_APP + 3, 0, 0}}));
    EXPECT_TRUE(other->Messages() == (std::vector<Message>{{otherWindow.Handle(), WM_APP + 2, 0, 0}}));
    otherPrevWndProc.UnhookWindow();
    otherWindow.Send(WM_APP + 4);
    window_.Send(WM_APP + 5);
    EXPECT_EQ(other->Messages().size(), 1U);
    EXPECT_EQ(owner_->Messages().size(), 3U);
}

TEST_F(HookTest, GivesOneOwnerTheMessagesOfAllItsWindows)
{
    Hook();
    const Window second;
    WindowHook secondPrevWndProc;
    RegisterOwner(second.Handle(), owner_.Get());
    secondPrevWndProc.HookWindow(second.AsHooked());
    second.Send(WM_APP + 1);
    window_.Send(WM_APP + 2);
    EXPECT_TRUE(owner_->Messages() == (std::vector<Message>{{second.Handle(), WM_APP + 1, 0, 0},
                                                            {window_.Handle(), WM_APP + 2, 0, 0}}));
    secondPrevWndProc.UnhookWindow();
}

// A text box that was made anew.
TEST_F(HookTest, MovesToAnotherWindowThroughTheSameField)
{
    const LONG_PTR before = window_.Procedure();
    Hook();
    const Window renewed;
    PrevWndProc.UnhookWindow();
    RegisterOwner(renewed.Handle(), owner_.Get());
    PrevWndProc.HookWindow(renewed.AsHooked());
    EXPECT_EQ(window_.Procedure(), before);
    EXPECT_EQ(renewed.Procedure(), TheServicesProcedure);
    window_.Send(WM_APP + 1);
    renewed.Send(WM_APP + 2);
    EXPECT_TRUE(owner_->Messages() == (std::vector<Message>{{renewed.Handle(), WM_APP + 2, 0, 0}}));
    PrevWndProc.UnhookWindow();
}

TEST_F(HookTest, NeverVetoesHooking)
{
    EXPECT_FALSE(ErrorPending());
}

} // namespace

} // namespace kiv::test
