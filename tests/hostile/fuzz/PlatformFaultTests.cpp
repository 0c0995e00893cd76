// What the fuzzers leave out because plain windows of the system's do not survive it either: held to be so,
// each in a process that it ends.

#include "tests/hostile/fuzz/PlainWindow.h"
#include "tests/hostile/fuzz/PlatformFaults.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/Process.h"

#include <string>

namespace kiv::test
{

namespace
{

constexpr wchar_t NumberVariable[] = L"KIV_PLATFORM_FAULT";
constexpr UINT EndedByIt = 77;

LONG CALLBACK EndQuietly(EXCEPTION_POINTERS*)
{
    TerminateProcess(GetCurrentProcess(), EndedByIt);
    return EXCEPTION_CONTINUE_SEARCH;
}

WNDPROC& Former()
{
    static WNDPROC former = nullptr;
    return former;
}

// What a program of the old kind puts in front of a window's own procedure: the system turns wide messages
// into plain ones for it.
LRESULT CALLBACK Forward(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcA(Former(), window, message, wParam, lParam);
}

// Run by the next one, in a process that may end.
TEST(PlatformFaults, DISABLED_TakeOne)
{
    wchar_t number[16] = {};
    ASSERT_NE(GetEnvironmentVariableW(NumberVariable, number, ARRAYSIZE(number)), 0U);
    const PlatformFault& fault = PlatformFaults()[std::stoul(number)];
    const HWND parent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr,
                                        nullptr, nullptr, nullptr);
    const HWND window = MakePlainWindow(fault.Class ? fault.Class : "Button", parent);
    ASSERT_NE(window, nullptr);
    SetUnhandledExceptionFilter(EndQuietly);
    char text[] = "Text";
    OddMessage message = fault.Example;
    if (message.Second != 0)
        message.Second = reinterpret_cast<LPARAM>(text);
    SendMessageA(window, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    SendMessageA(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    if (message.Wide && !fault.Class)
        Former() = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Forward)));
    // What lies at a place that is no item's may happen to be memory: farther and farther off, not all of it
    // is.
    constexpr WPARAM Times = 100;
    for (WPARAM time = 1; time <= (message.First == 0 ? 1 : Times); ++time)
    {
        message.SendTo(window);
        message.First = fault.Example.First * time;
    }
    DestroyWindow(parent);
}

class PlatformFaultTest : public testing::TestWithParam<std::size_t>
{
};

TEST_P(PlatformFaultTest, IsAPlainWindowsToo)
{
    wchar_t program[MAX_PATH] = {};
    ASSERT_NE(GetModuleFileNameW(nullptr, program, ARRAYSIZE(program)), 0U);
    SetEnvironmentVariableW(NumberVariable, std::to_wstring(GetParam()).c_str());
    const ProcessOutcome outcome = RunProcess(
        Quoted(program) + L" --gtest_filter=PlatformFaults.DISABLED_TakeOne --gtest_also_run_disabled_tests");
    SetEnvironmentVariableW(NumberVariable, nullptr);
    KnownPlatformGap(PlatformFaults()[GetParam()].Name, [&] { return outcome.ExitCode == 0; });
    EXPECT_TRUE(outcome.ExitCode == 0 || outcome.ExitCode == EndedByIt) << outcome.Output;
}

INSTANTIATE_TEST_SUITE_P(Known, PlatformFaultTest, testing::Range<std::size_t>(0, PlatformFaults().size()),
                         [](const testing::TestParamInfo<std::size_t>& each) {
                             return std::string(PlatformFaults()[each.param].Name);
                         });

} // namespace

} // namespace kiv::test
