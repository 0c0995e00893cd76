// Texts that no control was made for: a million characters, by every property, to every window.

#include "tests/com/each/EachTest.h"
#include "tests/hostile/CrashReport.h"
#include "tests/hostile/Host.h"
#include "tests/hostile/HostObjects.h"
#include "tests/hostile/Members.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/Text.h"
#include "tests/support/WindowClass.h"

#include <optional>

namespace kiv::test
{

namespace
{

constexpr std::size_t Length = 1'000'000;

class LongText : public EachTest
{
protected:
    void SetUp() override
    {
        EachTest::SetUp();
        ReportCrashes();
        host_.emplace();
        host_->Begin(GetParam(), true);
    }
    void TearDown() override
    {
        EXPECT_EQ(host_->End(), "");
        host_.reset();
        EachTest::TearDown();
    }
    void Repaint()
    {
        RedrawWindow(host_->ControlWindow(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    // What is too long for a box of the system's is not in it.
    void ExpectShortBoxes()
    {
        for (const HWND window : WindowsOf(host_->ControlWindow()))
        {
            if (IsOfClass(window, "Edit"))
            {
                EXPECT_LE(GetWindowTextLengthW(window), 32767);
            }
        }
    }

    std::optional<Host> host_;
};

TEST_P(LongText, OfEveryProperty)
{
    const auto control = host_->Control<IDispatch>();
    for (const Member& member : MembersOf(control.Get()))
    {
        if (member.Kind == INVOKE_PROPERTYGET || member.Takes.empty())
            continue;
        for (const wchar_t character : {L'1', L'a'})
        {
            Doing(Narrow(GetParam().Name) + ", " + member.Name);
            std::vector<Variant> arguments;
            for (const VARTYPE type : member.Takes)
                arguments.push_back(type == VT_BSTR || type == VT_VARIANT
                                        ? Variant(std::wstring(Length, character))
                                        : ArgumentOf(type, 1, nullptr, nullptr));
            const CallOutcome outcome =
                Invoke(control.Get(), member.Id, static_cast<WORD>(member.Kind), arguments);
            Repaint();
            EXPECT_TRUE(outcome.Result == S_OK || outcome.Result == DISP_E_EXCEPTION ||
                        outcome.Result == DISP_E_TYPEMISMATCH)
                << member.Name << ' ' << Hr(outcome.Result);
            ExpectShortBoxes();
        }
    }
}

TEST_P(LongText, SentToEveryWindow)
{
    const std::string text(Length, '1');
    for (const HWND window : WindowsOf(host_->ControlWindow()))
    {
        for (const UINT message :
             {UINT{WM_SETTEXT}, UINT{EM_REPLACESEL}, UINT{CB_ADDSTRING}, UINT{LB_ADDSTRING}})
        {
            Doing(Narrow(GetParam().Name) + ", message " + std::to_string(message));
            SendMessageA(window, message, 0, reinterpret_cast<LPARAM>(text.c_str()));
            Repaint();
            ExpectShortBoxes();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Classes, LongText, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
