// The sample interview from end to end, as somebody hears it who goes through it with the Tab key.

#include "tests/gui/host/HostProcess.h"
#include "tests/support/Library.h"

namespace kiv::test
{

namespace
{

using SpokenInterview = HostProcess;

TEST_F(SpokenInterview, IsWhatAPersonWouldExpectToHear)
{
    const TemporaryFile spoken(L".txt");
    const ProcessOutcome outcome = Run(L"--script " + Example(L"reading.script") + L" --spoken " +
                                       Quoted(spoken.Path()) + L" " + Example(L"interview.form"));
    ASSERT_EQ(outcome.ExitCode, 0U) << outcome.Output;
    EXPECT_EQ(Lines(Read(spoken)),
              Lines(ReadOf(RequiredVariable(L"KIV_SOURCE") + L"\\tests\\gui\\access\\interview.spoken.txt")));
}

TEST_F(SpokenInterview, IsNotWrittenOverAnotherFile)
{
    WriteForm(OnePage);
    const ProcessOutcome outcome = Play(L"--spoken " + Quoted(FormFile()));
    EXPECT_EQ(outcome.ExitCode, 2U);
    EXPECT_NE(outcome.Output.find("--spoken would write over the form"), std::string::npos) << outcome.Output;
}

} // namespace

} // namespace kiv::test
