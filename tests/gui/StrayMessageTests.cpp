// Messages that nobody should send: whatever another program does, the controls go on.

#include "tests/gui/HostedTest.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Picker.h"
#include "tests/support/Process.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/Thread.h"

#include <KivControls.h>

#include <algorithm>
#include <functional>
#include <string_view>

namespace kiv::test
{

namespace
{

using Keys = std::function<void(std::initializer_list<WORD>)>;

// A control, and what a user gets out of it who answers it with the keyboard.
struct StrayRow : NamedRow
{
    const CLSID* Class;
    std::wstring (*Answer)(host::ControlSite& site, const Keys& type);
    const wchar_t* Expected;
};

std::wstring TextOf(const host::ControlSite& site, const wchar_t* property)
{
    return site.Get(property).As(VT_BSTR).value_or(Variant(L"none")).Text();
}

const StrayRow Rows[] = {
    {{"YesNo"},
     &CLSID_YesNo,
     [](host::ControlSite& site, const Keys& type) {
         site.Put(L"Value", Variant(0L));
         type({'Y'});
         return TextOf(site, L"Text");
     },
     L"Y"},
    {{"PicCommand"},
     &CLSID_PicCommand,
     [](host::ControlSite& site, const Keys& type) {
         RecordOf(site).ClearEvents();
         type({VK_SPACE});
         return RecordOf(site).Events().empty() ? L"" : RecordOf(site).Events()[0].Name;
     },
     L"Click"},
    {{"PicLite"},
     &CLSID_PicLite,
     [](host::ControlSite& site, const Keys&) {
         site.Put(L"MaskColor", Variant(5L));
         return TextOf(site, L"MaskColor");
     },
     L"5"},
    {{"NumberBox"},
     &CLSID_NumberBox,
     [](host::ControlSite& site, const Keys& type) {
         site.Put(L"Style", Variant(0L));
         type({VK_HOME, '1', '2', '3', '4', '5', '6', '7', '8', '9'});
         return TextOf(site, L"Value");
     },
     L"123-45-6789"},
    {{"DateBox"},
     &CLSID_DateBox,
     [](host::ControlSite& site, const Keys& type) {
         site.Put(L"Style", Variant(2L));
         site.Put(L"Value", Variant(L"02/03/2000"));
         type({VK_HOME, '0', '1'});
         return TextOf(site, L"Value");
     },
     L"01/03/2000"},
    {{"CurrencyBox"},
     &CLSID_CurrencyBox,
     [](host::ControlSite& site, const Keys& type) {
         site.Put(L"Value", Variant::Null());
         type({'7'});
         return TextOf(site, L"Value");
     },
     L"7"},
    {{"PercentBox"},
     &CLSID_PercentBox,
     [](host::ControlSite& site, const Keys& type) {
         site.Put(L"Value", Variant::Null());
         type({'5', '0'});
         return TextOf(site, L"Value");
     },
     L"0.5"},
    {{"ChkCombo"},
     &CLSID_ChkCombo,
     [](host::ControlSite& site, const Keys& type) {
         site.Call(L"Clear");
         for (const wchar_t* const item : {L"one", L"two", L"three"})
             site.Call(L"AddItem", {Variant(item)});
         site.Put(L"ListIndex", Variant(short{0}));
         type({VK_F4, VK_DOWN, VK_ESCAPE});
         return TextOf(site, L"Text");
     },
     L"two"},
    {{"EnumList"},
     &CLSID_EnumList,
     [](host::ControlSite& site, const Keys& type) {
         site.Put(L"EnumCode", Variant(L"7"));
         // Without a database: the picker comes empty.
         const Thread user([picking = GetCurrentThreadId()] {
             Picker picker(picking);
             if (picker.WaitUntilShown())
                 picker.CloseIfShown();
         });
         type({VK_SPACE});
         return TextOf(site, L"EnumText");
     },
     L"7"},
};

using StrayNotification = HostedTest;

class StrayMessages : public HostedTest, public testing::WithParamInterface<StrayRow>
{
};

// Ends what a menu would wait for.
void CALLBACK LeaveMenus(HWND, UINT, UINT_PTR, DWORD)
{
    EndMenu();
}

TEST_P(StrayMessages, AreSurvived)
{
    host::ControlSite& site = TheForm().Add(Library::UnderTest().Create(*GetParam().Class).Get(),
                                            Recorded(Placed({20, 20, 180, 50})));
    AddElsewhere();
    if (site.HasMember(L"AddItem"))
        site.Call(L"AddItem", {Variant(L"item")});
    ShowForm();
    const MessageBoxWatcher boxes;
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LeaveMenus);
    for (const HWND window : WindowsOf(site.Window()))
    {
        SendStrayMessages(window);
        PumpPending(TheForm());
        EXPECT_TRUE(IsWindow(window));
    }
    KillTimer(nullptr, timer);
    ReleaseCapture();
    RedrawWindow(site.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    ShowForm();
    site.Focus();
    Settle();
    const auto type = [this](std::initializer_list<WORD> keys) {
        for (const WORD key : keys)
            Key(key);
    };
    EXPECT_EQ(GetParam().Answer(site, type), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(Controls, StrayMessages, testing::ValuesIn(Rows), RowName());

// What a window is told of another window is nothing to it unless that lies in it.
TEST_F(StrayNotification, ConcernsNoOtherControl)
{
    host::ControlSite& button = TheForm().Add(Library::UnderTest().Create(CLSID_PicCommand).Get(),
                                              Recorded(Placed({20, 20, 80, 50})));
    host::ControlSite& other =
        TheForm().Add(Library::UnderTest().Create(CLSID_NumberBox).Get(), Placed({100, 20, 180, 50}));
    host::ControlSite& combo =
        TheForm().Add(Library::UnderTest().Create(CLSID_ChkCombo).Get(), Recorded(Placed({20, 60, 180, 85})));
    combo.Call(L"AddItem", {Variant(L"one")});
    ShowForm();
    const auto child = [](const host::ControlSite& site, const wchar_t* name) {
        return reinterpret_cast<LPARAM>(FindWindowExW(site.Window(), nullptr, name, nullptr));
    };
    const LPARAM push = child(button, L"Button");
    const LPARAM bar = child(combo, L"ScrollBar");
    RecordOf(button).ClearEvents();
    RecordOf(combo).ClearEvents();
    for (const LPARAM strange :
         {LPARAM{1}, LPARAM{-1}, reinterpret_cast<LPARAM>(TheForm().Window()), push, bar})
    {
        for (const UINT message : {WM_COMMAND, WM_HSCROLL, WM_VSCROLL, WM_CTLCOLOREDIT, WM_CTLCOLORSTATIC,
                                   WM_CTLCOLORBTN, WM_PARENTNOTIFY, WM_SETFOCUS, WM_KILLFOCUS})
        {
            for (const WPARAM code : {WPARAM{BN_CLICKED}, WPARAM{SB_LINERIGHT}, WPARAM{0xFFFFFFFF}})
                SendMessageA(other.Window(), message, code, strange);
        }
    }
    EXPECT_TRUE(RecordOf(button).Events().empty());
    EXPECT_TRUE(RecordOf(combo).Events().empty());
    // To the windows that they lie in they are what they say.
    SendMessageA(button.Window(), WM_COMMAND, BN_CLICKED, push);
    SendMessageA(combo.Window(), WM_HSCROLL, SB_LINERIGHT, bar);
    EXPECT_EQ(RecordOf(button).Events().size(), 1U);
    EXPECT_EQ(RecordOf(combo).Events().size(), 1U);
}

// The one that makes a window brings its object along; a second one brings whatever it likes.
TEST_F(StrayNotification, OfASecondCreationChangesNothing)
{
    host::ControlSite& site = TheForm().Add(Library::UnderTest().Create(CLSID_YesNo).Get(), Placed());
    ShowForm();
    const CREATESTRUCTA nothing = {};
    DWORD content[64] = {};
    CREATESTRUCTA something = {};
    something.lpCreateParams = content;
    for (const CREATESTRUCTA* const creation :
         std::initializer_list<const CREATESTRUCTA*>{&nothing, &something})
    {
        for (const UINT message : {WM_NCCREATE, WM_CREATE})
            SendMessageA(site.Window(), message, 0, reinterpret_cast<LPARAM>(creation));
    }
    EXPECT_TRUE(std::ranges::all_of(content, [](DWORD each) { return each == 0; }));
    site.Focus();
    Key('Y');
    EXPECT_EQ(TextOf(site, L"Text"), L"Y");
}

// A message that is sent to a window, and left out when its kind is tried, because it is the window's end:
// told to the process that looks after it, by its number in the list.
constexpr wchar_t DeadlyVariable[] = L"KIV_DEADLY_MESSAGE";
constexpr UINT EndedByIt = 77;

LONG CALLBACK EndQuietly(EXCEPTION_POINTERS*)
{
    TerminateProcess(GetCurrentProcess(), EndedByIt);
    return EXCEPTION_CONTINUE_SEARCH;
}

HWND PlainWindow(const char* className, HWND parent)
{
    const bool isList = std::string_view(className) == "ComboLBox";
    const HWND window =
        CreateWindowExA(0, isList ? "ComboBox" : className, "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, 10,
                        10, 100, 100, parent, nullptr, nullptr, nullptr);
    COMBOBOXINFO information = {};
    information.cbSize = sizeof information;
    return isList && GetComboBoxInfo(window, &information) ? information.hwndList : window;
}

// Run by the next one, in a process that may end.
TEST(PlainWindows, DISABLED_TakeADeadlyMessage)
{
    wchar_t number[16] = {};
    ASSERT_NE(GetEnvironmentVariableW(DeadlyVariable, number, ARRAYSIZE(number)), 0U);
    const DeadlyMessage& message = DeadlyMessages().at(std::stoul(number));
    const HWND parent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr,
                                        nullptr, nullptr, nullptr);
    const HWND window = PlainWindow(message.Class, parent);
    ASSERT_NE(window, nullptr);
    SetUnhandledExceptionFilter(EndQuietly);
    SendMessageA(window, message.Message, 0, 0);
    DestroyWindow(parent);
}

TEST(PlainWindows, DoNotSurviveWhatIsLeftOut)
{
    wchar_t program[MAX_PATH] = {};
    ASSERT_NE(GetModuleFileNameW(nullptr, program, ARRAYSIZE(program)), 0U);
    for (std::size_t number = 0; number < DeadlyMessages().size(); ++number)
    {
        SetEnvironmentVariableW(DeadlyVariable, std::to_wstring(number).c_str());
        const ProcessOutcome outcome =
            RunProcess(Quoted(program) + L" --gtest_filter=PlainWindows.DISABLED_TakeADeadlyMessage"
                                         L" --gtest_also_run_disabled_tests");
        SetEnvironmentVariableW(DeadlyVariable, nullptr);
        const DeadlyMessage& message = DeadlyMessages()[number];
        EXPECT_EQ(outcome.ExitCode, EndedByIt)
            << message.Class << " has learnt to take message " << message.Message << "\n"
            << outcome.Output;
    }
}

} // namespace

} // namespace kiv::test
