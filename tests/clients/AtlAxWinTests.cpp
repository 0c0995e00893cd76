// AtlAxWin, the plain container window of the system's own atl.dll: it gives a control a window, and that is
// nearly all.

#include "tests/support/Accessible.h"
#include "tests/support/EnumDatabase.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/HostWindow.h"
#include "tests/support/Input.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Picker.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/com/Variant.h"

#include <olectl.h>

#include <functional>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// The functions of atl.dll that make the window class and reach into it. Loaded once and kept: the class's
// window procedure is in it.
class Atl
{
public:
    static const Atl& Loaded()
    {
        static const Atl& atl = *new Atl();
        return atl;
    }

    HRESULT AxGetControl(HWND window, IUnknown** control) const
    {
        return Function<HRESULT WINAPI(HWND, IUnknown**)>("AtlAxGetControl")(window, control);
    }

private:
    Atl() : module_(LoadLibraryW(L"atl.dll"))
    {
        if (!module_)
            ThrowLastError();
        if (!Function<BOOL WINAPI()>("AtlAxWinInit")())
            throw ComError(E_FAIL);
    }

    template<class Type>
    Type* Function(const char* name) const
    {
        const FARPROC found = GetProcAddress(module_, name);
        if (!found)
            ThrowLastError();
        return reinterpret_cast<Type*>(reinterpret_cast<void*>(found));
    }

    HMODULE module_;
};

// Handles messages until the condition holds; false when it does not within the limit.
bool PumpUntil(const std::function<bool()>& condition, ULONGLONG limitMilliseconds)
{
    const ULONGLONG end = GetTickCount64() + limitMilliseconds;
    while (!condition() && GetTickCount64() < end)
    {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
        DrainMessages();
    }
    return condition();
}

// Until all input sent so far has been handled.
void HandleInput()
{
    const InputMark mark;
    EXPECT_TRUE(PumpUntil([&mark] { return mark.Arrived(); }, 10000));
}

void Pick(const std::function<void()>& open, const std::function<void(Picker&)>& user)
{
    test::Pick(PumpUntil, open, user);
    HandleInput();
}

class AtlAxWinTest : public LibraryTest
{
protected:
    HWND CreateContainer(const wchar_t* name) const
    {
        return CreateWindowExW(0, L"AtlAxWin", name, WS_CHILD | WS_VISIBLE, 10, 10, 150, 24, host_.Handle(),
                               nullptr, GetModuleHandleW(nullptr), nullptr);
    }
    template<class Control = _YesNo>
    ComPtr<Control> ControlIn(HWND container) const
    {
        ComPtr<IUnknown> unknown;
        Check(atl_.AxGetControl(container, &unknown));
        ComPtr<Control> control;
        Check(unknown.As(&control));
        return control;
    }
    template<class Control>
    static HWND WindowOf(Control* control)
    {
        long window = 0;
        Check(control->get_hwnd(&window));
        return reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
    }
    static AnswerEnums ValueOf(_YesNo* control)
    {
        AnswerEnums value = Neither;
        Check(control->get_Value(&value));
        return value;
    }

    const Atl& atl_ = Atl::Loaded();
    HostWindow host_;
};

TEST_F(AtlAxWinTest, ShowsTheControlInsideItself)
{
    const HWND container = CreateContainer(L"KivControls.YesNo");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_YesNo> control = ControlIn(container);
        const HWND window = WindowOf(control.Get());
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_TRUE(IsChild(container, window));
        RECT outer = {};
        RECT inner = {};
        GetClientRect(container, &outer);
        GetClientRect(window, &inner);
        EXPECT_TRUE(EqualRect(&outer, &inner)) << inner.right << " x " << inner.bottom;
        EXPECT_EQ(Hr(control->put_Value(Yes)), Hr(S_OK));
        UpdateWindow(window);
    }
    DestroyWindow(container);
}

TEST_F(AtlAxWinTest, LetsTheUserAnswer)
{
    const HWND container = CreateContainer(L"KivControls.YesNo.1");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_YesNo> control = ControlIn(container);
        const HWND window = WindowOf(control.Get());
        SetForegroundWindow(host_.Handle());
        SetFocus(window);
        EXPECT_EQ(GetFocus(), window);
        TapKey('Y');
        HandleInput();
        EXPECT_EQ(ValueOf(control.Get()), Yes);
        TapKey(VK_SPACE);
        HandleInput();
        EXPECT_EQ(ValueOf(control.Get()), Neither) << "the space bar takes the answer back";
        TapKey('N');
        HandleInput();
        EXPECT_EQ(ValueOf(control.Get()), No);
    }
    DestroyWindow(container);
}

// In a mirrored dialog, whose children are mirrored without being told.
TEST_F(AtlAxWinTest, MirrorsTheControlInAMirroredWindow)
{
    const auto isMirrored = [](HWND window) {
        return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
    };
    for (const LONG_PTR direction : {LONG_PTR{WS_EX_LAYOUTRTL}, LONG_PTR{0}})
    {
        const LONG_PTR style = GetWindowLongPtrW(host_.Handle(), GWL_EXSTYLE);
        SetWindowLongPtrW(host_.Handle(), GWL_EXSTYLE, (style & ~WS_EX_LAYOUTRTL) | direction);
        const HWND container = CreateContainer(L"KivControls.YesNo");
        ASSERT_NE(container, nullptr);
        {
            const ComPtr<_YesNo> control = ControlIn(container);
            const HWND window = WindowOf(control.Get());
            EXPECT_EQ(isMirrored(window), direction != 0);
            RECT place = {};
            GetWindowRect(window, &place);
            SetForegroundWindow(host_.Handle());
            PointAt({place.left + 5, (place.top + place.bottom) / 2});
            PressButton(MouseButton::Left);
            ReleaseButton(MouseButton::Left);
            HandleInput();
            EXPECT_EQ(ValueOf(control.Get()), direction != 0 ? No : Yes);
        }
        DestroyWindow(container);
    }
}

// The text box is somewhere inside the control, parked until the focus comes.
HWND BoxIn(HWND window)
{
    const HWND child = GetWindow(window, GW_CHILD);
    if (!child)
        return nullptr;
    const HWND box = FindWindowExW(window, nullptr, L"Edit", nullptr);
    return box ? box : BoxIn(child);
}

// A label in front of the container window, as a dialog lays them out, is the name that assistive tools are
// told.
TEST_F(AtlAxWinTest, NamesTheControlByTheLabelBeforeIt)
{
    const std::tuple<const wchar_t*, DWORD, const wchar_t*, const wchar_t*> rows[] = {
        {L"STATIC", WS_VISIBLE, L"&Wages:", L"text \"Wages:\" = \"\" [focusable]"},
        {L"STATIC", WS_VISIBLE | SS_RIGHT, L"Fish && chips", L"text \"Fish & chips\" = \"\" [focusable]"},
        {L"STATIC", WS_VISIBLE | SS_NOPREFIX, L"R&D:", L"text \"R&D:\" = \"\" [focusable]"},
        {L"STATIC", WS_VISIBLE | SS_ETCHEDHORZ, L"no text", L"text = \"\" [focusable]"},
        {L"STATIC", 0, L"not shown", L"text = \"\" [focusable]"},
        {L"BUTTON", WS_VISIBLE, L"something else", L"text = \"\" [focusable]"},
    };
    for (const auto& [kind, style, text, reading] : rows)
    {
        const HWND label = CreateWindowW(kind, text, WS_CHILD | style, 0, 0, 60, 20, host_.Handle(), nullptr,
                                         nullptr, nullptr);
        const HWND container = CreateContainer(L"KivControls.CurrencyBox");
        ASSERT_NE(container, nullptr);
        {
            const ComPtr<_CurrencyBox> control = ControlIn<_CurrencyBox>(container);
            SetWindowPos(container, label, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
            EXPECT_EQ(ReadingsOf(WindowOf(control.Get())), std::vector<std::wstring>{reading}) << text;
            EXPECT_EQ(ReadingsOf(BoxIn(container)), std::vector<std::wstring>{reading}) << text;
        }
        DestroyWindow(container);
        DestroyWindow(label);
    }
}

TEST_F(AtlAxWinTest, MayBeDestroyedWhileTheControlIsHeld)
{
    const HWND container = CreateContainer(L"{3E649237-873E-11D3-BB17-00105A16D8EF}");
    ASSERT_NE(container, nullptr);
    ComPtr<_YesNo> control = ControlIn(container);
    EXPECT_EQ(Hr(control->put_Value(No)), Hr(S_OK));
    DestroyWindow(container);
    EXPECT_EQ(ValueOf(control.Get()), No);
    EXPECT_EQ(Hr(control->put_Value(Yes)), Hr(S_OK));
    control.Reset();
}

// The text box inside the control, which is what a masked control's own window is for.
TEST_F(AtlAxWinTest, LetsTheUserTypeANumber)
{
    const HWND container = CreateContainer(L"KivControls.NumberBox");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_NumberBox> control = ControlIn<_NumberBox>(container);
        EXPECT_EQ(Hr(control->put_Style(SSN)), Hr(S_OK));
        const HWND box = WindowOf(control.Get());
        EXPECT_TRUE(IsWindowVisible(box));
        EXPECT_TRUE(IsChild(container, box));
        SetForegroundWindow(host_.Handle());
        SetFocus(box);
        ASSERT_EQ(GetFocus(), box);
        for (const char digit : std::string_view("123456789"))
            TapKey(static_cast<WORD>(digit));
        HandleInput();
        Variant value;
        EXPECT_EQ(Hr(control->get_Value(value.Receive())), Hr(S_OK));
        EXPECT_EQ(value.Text(), L"123-45-6789");
        TapKey(VK_BACK);
        HandleInput();
        EXPECT_EQ(Hr(control->get_Value(value.Receive())), Hr(S_OK));
        EXPECT_TRUE(value.IsNull());
    }
    DestroyWindow(container);
}

TEST_F(AtlAxWinTest, LetsTheUserTypeADate)
{
    const HWND container = CreateContainer(L"KivControls.DateBox");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_DateBox> control = ControlIn<_DateBox>(container);
        const HWND box = WindowOf(control.Get());
        EXPECT_TRUE(IsChild(container, box));
        SetForegroundWindow(host_.Handle());
        SetFocus(box);
        ASSERT_EQ(GetFocus(), box);
        for (const WORD key : {WORD{'1'}, WORD{VK_OEM_2}, WORD{'5'}, WORD{VK_OEM_2}, WORD{'1'}})
            TapKey(key);
        HandleInput();
        Bstr shown;
        EXPECT_EQ(Hr(control->get_Text(shown.Receive())), Hr(S_OK));
        EXPECT_EQ(shown.View(), L"1_/5_/1_");
        Variant value;
        EXPECT_EQ(Hr(control->get_Value(value.Receive())), Hr(S_OK));
        EXPECT_EQ(value.Text(), L"01/05/01");
        SetFocus(host_.Handle());
        EXPECT_EQ(Hr(control->get_Text(shown.Receive())), Hr(S_OK));
        EXPECT_EQ(shown.View(), L"01/05/01") << "completed on leaving";
    }
    DestroyWindow(container);
}

TEST_F(AtlAxWinTest, LetsTheUserTypeAnAmount)
{
    const HWND container = CreateContainer(L"KivControls.CurrencyBox");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_CurrencyBox> control = ControlIn<_CurrencyBox>(container);
        EXPECT_TRUE(IsChild(container, WindowOf(control.Get())));
        const HWND box = BoxIn(container);
        SetForegroundWindow(host_.Handle());
        SetFocus(box);
        ASSERT_EQ(GetFocus(), box);
        for (const WORD key : {WORD{'1'}, WORD{'2'}, WORD{'3'}, WORD{'4'}, WORD{VK_OEM_PERIOD}, WORD{'5'}})
            TapKey(key);
        HandleInput();
        Variant value;
        EXPECT_EQ(Hr(control->get_Value(value.Receive())), Hr(S_OK));
        EXPECT_EQ(value.Get().vt, VT_CY);
        EXPECT_EQ(value.Get().cyVal.int64, 12345000);
        SetFocus(host_.Handle());
        EXPECT_EQ(Hr(control->get_Value(value.Receive())), Hr(S_OK));
        EXPECT_EQ(value.Get().cyVal.int64, 12350000) << "rounded on leaving";
        Bstr shown;
        EXPECT_EQ(Hr(control->get_Text(shown.Receive())), Hr(S_OK));
        EXPECT_EQ(shown.View(), L"1,235");
        EXPECT_EQ(control->put_NumDecDigits(5), RunTimeError(380));
    }
    DestroyWindow(container);
}

TEST_F(AtlAxWinTest, LetsTheUserTypeARate)
{
    const HWND container = CreateContainer(L"KivControls.PercentBox");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_PercentBox> control = ControlIn<_PercentBox>(container);
        const HWND box = BoxIn(container);
        SetForegroundWindow(host_.Handle());
        SetFocus(box);
        ASSERT_EQ(GetFocus(), box);
        TapKey(VK_OEM_PERIOD);
        HandleInput();
        Variant value;
        EXPECT_EQ(Hr(control->get_Value(value.Receive())), Hr(RunTimeError(13))) << "a lone point";
        TapKey(VK_BACK);
        for (const WORD key : {WORD{'7'}, WORD{VK_OEM_PERIOD}, WORD{'5'}})
            TapKey(key);
        HandleInput();
        EXPECT_EQ(Hr(control->get_Value(value.Receive())), Hr(S_OK));
        EXPECT_EQ(value.Text(), L"0.075");
        SetFocus(host_.Handle());
        Bstr shown;
        EXPECT_EQ(Hr(control->get_Text(shown.Receive())), Hr(S_OK));
        EXPECT_EQ(shown.View(), L"7.5");
    }
    DestroyWindow(container);
}

// A dialog of its own: the focus goes to the combo box's control, and the keys step through the items.
TEST_F(AtlAxWinTest, LetsTheUserPickAnItem)
{
    const HWND container = CreateContainer(L"KivControls.ChkCombo");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_ChkCombo> control = ControlIn<_ChkCombo>(container);
        const HWND box = WindowOf(control.Get());
        EXPECT_TRUE(IsWindowVisible(box));
        EXPECT_TRUE(IsChild(container, box));
        for (const wchar_t* text : {L"W-2", L"1099", L"1040"})
            EXPECT_EQ(Hr(control->AddItem(Bstr(text).Get(), -1)), Hr(S_OK));
        EXPECT_EQ(Hr(control->put_ListCompletionStatus(1, Complete)), Hr(S_OK));
        SetForegroundWindow(host_.Handle());
        SetFocus(box);
        EXPECT_TRUE(IsChild(GetParent(box), GetFocus()));
        TapKey(VK_DOWN);
        TapKey(VK_DOWN);
        HandleInput();
        Bstr text;
        EXPECT_EQ(Hr(control->get_Text(text.Receive())), Hr(S_OK));
        EXPECT_EQ(text.View(), L"1099");
        TapKey(VK_F4);
        HandleInput();
        EXPECT_NE(SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0), 0);
        TapKey(VK_DOWN);
        TapKey(VK_ESCAPE);
        HandleInput();
        EXPECT_EQ(SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0), 0);
        EXPECT_EQ(Hr(control->get_Text(text.Receive())), Hr(S_OK));
        EXPECT_EQ(text.View(), L"1040");
    }
    DestroyWindow(container);
}

// A click of the real button inside, and what a plain container makes of Enter.
TEST_F(AtlAxWinTest, LetsTheUserPressAButton)
{
    const HWND container = CreateContainer(L"KivControls.PicCommand");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_PicCommand> control = ControlIn<_PicCommand>(container);
        const HWND button = GetWindow(WindowOf(control.Get()), GW_CHILD);
        EXPECT_TRUE(IsWindowVisible(button));
        const auto clicks = MakeCom<EventRecorder>(DIID___PicCommand);
        const Connection connection(control.Get(), DIID___PicCommand, clicks.Get());
        SetForegroundWindow(host_.Handle());
        SetFocus(button);
        ASSERT_EQ(GetFocus(), button);
        TapKey(VK_SPACE);
        HandleInput();
        EXPECT_EQ(clicks->TakeEvents().size(), 1U);
        TapKey(VK_RETURN);
        HandleInput();
        EXPECT_EQ(clicks->TakeEvents().size(), 1U);
        POINT middle = {60, 10};
        ClientToScreen(button, &middle);
        PointAt(middle);
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
        HandleInput();
        EXPECT_EQ(clicks->TakeEvents().size(), 1U);
    }
    DestroyWindow(container);
}

// The picker is modal to a container that knows nothing of it: by key and by mouse, given up and taken.
TEST_F(AtlAxWinTest, LetsTheUserPickACode)
{
    const EnumDatabase database(SampleEnumRows());
    const HWND container = CreateContainer(L"KivControls.EnumList");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_EnumList> control = ControlIn<_EnumList>(container);
        EXPECT_EQ(Hr(control->putref_Database(database.Get())), Hr(S_OK));
        EXPECT_EQ(Hr(control->put_StateCode(Bstr(L"MA").Get())), Hr(S_OK));
        EXPECT_EQ(Hr(control->put_TableName(Bstr(L"Single").Get())), Hr(S_OK));
        EXPECT_EQ(Hr(control->put_EnumListTitle(Bstr(L"Fruit").Get())), Hr(S_OK));
        EXPECT_EQ(Hr(control->put_DisplayStyle(Description)), Hr(S_OK));
        EXPECT_EQ(Hr(control->put_EnumCode(Bstr(L"7").Get())), Hr(S_OK));
        Bstr text;
        EXPECT_EQ(Hr(control->get_EnumText(text.Receive())), Hr(S_OK));
        EXPECT_EQ(text.View(), L"Pears");

        const auto choices = MakeCom<EventRecorder>(DIID___EnumList);
        const Connection connection(control.Get(), DIID___EnumList, choices.Get());
        const HWND button = FindWindowExW(GetWindow(container, GW_CHILD), nullptr, L"Button", nullptr);
        EXPECT_TRUE(IsWindowVisible(button));
        SetForegroundWindow(host_.Handle());
        SetFocus(button);
        ASSERT_EQ(GetFocus(), button);
        const auto giveUp = [this](Picker& picker) {
            EXPECT_EQ(WindowText(picker.Window()), L"Fruit");
            EXPECT_FALSE(IsWindowEnabled(host_.Handle()));
            picker.Key(VK_UP);
            TapKey(VK_ESCAPE);
            picker.WaitUntilGone();
        };
        const auto click = [button] {
            POINT place = {5, 5};
            ClientToScreen(button, &place);
            PointAt(place);
            PressButton(MouseButton::Left);
            ReleaseButton(MouseButton::Left);
        };
        for (const std::function<void()>& open :
             {std::function<void()>([] { TapKey(VK_SPACE); }), std::function<void()>(click)})
        {
            Pick(open, giveUp);
            EXPECT_TRUE(IsWindowEnabled(host_.Handle()));
            EXPECT_EQ(GetFocus(), button) << "the focus comes back";
            EXPECT_EQ(Hr(control->get_EnumCode(text.Receive())), Hr(S_OK));
            EXPECT_EQ(text.View(), L"7");
            EXPECT_EQ(choices->TakeEvents().size(), 0U);
        }
        Pick([] { TapKey(VK_F4); },
             [](Picker& picker) {
                 picker.Key(VK_UP);
                 TapKey(VK_RETURN);
                 picker.WaitUntilGone();
             });
        EXPECT_EQ(Hr(control->get_EnumText(text.Receive())), Hr(S_OK));
        EXPECT_EQ(text.View(), L"Melons");
        EXPECT_EQ(choices->TakeEvents().size(), 1U);
    }
    DestroyWindow(container);
    EXPECT_EQ(database.StillOpen(), 0);
}

TEST_F(AtlAxWinTest, ShowsARecolouredPicture)
{
    const HWND container = CreateContainer(L"KivControls.PicLite");
    ASSERT_NE(container, nullptr);
    {
        const ComPtr<_PicLite> control = ControlIn<_PicLite>(container);
        PICTDESC description = {};
        description.cbSizeofstruct = sizeof description;
        description.picType = PICTYPE_BITMAP;
        const HDC screen = GetDC(nullptr);
        description.bmp.hbitmap = CreateCompatibleBitmap(screen, 8, 8);
        ReleaseDC(nullptr, screen);
        ComPtr<IPictureDisp> picture;
        Check(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                       reinterpret_cast<void**>(picture.GetAddressOf())));
        OLE_COLOR red = RGB(255, 0, 0);
        EXPECT_EQ(Hr(control->put_ReplaceColor(&red)), Hr(S_OK));
        EXPECT_EQ(Hr(control->putref_Picture(picture.Get())), Hr(S_OK));
        const HWND window = GetWindow(container, GW_CHILD);
        ASSERT_NE(window, nullptr);
        const HDC dc = GetDC(window);
        EXPECT_EQ(GetPixel(dc, 4, 4), red) << "a new bitmap is black, and so is the mask";
        ReleaseDC(window, dc);
    }
    DestroyWindow(container);
}

TEST_F(AtlAxWinTest, GoesWithTheWholeForm)
{
    for (int i = 0; i < 10; ++i)
        ASSERT_NE(CreateContainer(L"KivControls.YesNo"), nullptr);
    ASSERT_NE(CreateContainer(L"KivControls.NumberBox"), nullptr);
    ASSERT_NE(CreateContainer(L"KivControls.DateBox"), nullptr);
    ASSERT_NE(CreateContainer(L"KivControls.CurrencyBox"), nullptr);
    ASSERT_NE(CreateContainer(L"KivControls.PercentBox"), nullptr);
    ASSERT_NE(CreateContainer(L"KivControls.ChkCombo"), nullptr);
    ASSERT_NE(CreateContainer(L"KivControls.EnumList"), nullptr);
    EXPECT_EQ(ControlWindows(), 16);
    host_.Destroy();
    EXPECT_EQ(ControlWindows(), 0);
}

} // namespace

} // namespace kiv::test
