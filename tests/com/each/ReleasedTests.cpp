// What was released stays: what hosts rely on is written down for each control, and each release keeps what
// it had.

#include "tests/com/each/StateText.h"
#include "tests/support/Files.h"
#include "tests/support/LineDifference.h"
#include "tests/support/Text.h"

#include <filesystem>
#include <set>

namespace kiv::test
{

namespace
{

std::wstring Tests()
{
    return RequiredVariable(L"KIV_SOURCE") + L"\\tests\\";
}

std::string TextOf(const std::wstring& path)
{
    const Bytes bytes = ReadWholeFile(path);
    return {bytes.begin(), bytes.end()};
}

// Their folders.
std::set<std::wstring> Releases()
{
    std::set<std::wstring> releases;
    for (const auto& entry : std::filesystem::directory_iterator(Tests() + L"released"))
        releases.insert(entry.path().wstring() + L"\\");
    return releases;
}

class EachReleased : public EachPersisted
{
protected:
    static std::wstring Name() { return GetParam().Name; }
    // Whether whoever runs the test wants the file to be written anew: see CONTRIBUTING.
    static bool IsToBeWritten() { return GetEnvironmentVariableW(L"KIV_WRITE_CONTRACT", nullptr, 0) != 0; }
    std::string Current() { return StateText(GetParam(), UnusualBag().Get()); }
};

TEST_P(EachReleased, IsAsItIsWrittenDown)
{
    const std::wstring file = Tests() + L"com\\state\\" + Name() + L".state";
    const std::string state = Current();
    if (IsToBeWritten())
        WriteWholeFile(file, {state.begin(), state.end()});
    EXPECT_EQ(LineDifference(TextOf(file), state), "");
}

TEST_P(EachReleased, KeepsWhatEveryReleaseHad)
{
    ASSERT_FALSE(Releases().empty());
    const std::string state = Current();
    for (const std::wstring& release : Releases())
        EXPECT_EQ(LinesLost(TextOf(release + Name() + L".state"), state), "") << Narrow(release);
}

// Saved by it with nothing as a new control has it.
TEST_P(EachReleased, LoadsTheStreamOfEveryRelease)
{
    for (const std::wstring& release : Releases())
    {
        const EasyControl control(ClassId());
        ASSERT_EQ(Hr(Load(control.Get(), ReadWholeFile(release + Name() + L".stream"))), Hr(S_OK));
        ControlState kept;
        for (const auto& [name, value] : KeptBy(control))
            kept[name] = value;
        const EasyControl expected(ClassId());
        MakeUnusual(expected);
        EXPECT_EQ(kept, KeptBy(expected)) << Narrow(release);
    }
}

// Until something is added that is kept.
TEST_P(EachReleased, WritesTheStreamThatIsWrittenDown)
{
    const std::wstring file = Tests() + L"com\\state\\" + Name() + L".stream";
    if (IsToBeWritten())
        WriteWholeFile(file, UnusualBytes());
    EXPECT_EQ(ReadWholeFile(file), UnusualBytes());
}

INSTANTIATE_TEST_SUITE_P(Controls, EachReleased, testing::ValuesIn(PublishedClasses()), ClassName());

TEST(LinesLostTest, AddingIsNoLoss)
{
    EXPECT_EQ(LinesLost("a\nb\n", "a\nx\nb\ny\n"), "");
    EXPECT_EQ(LinesLost("a\r\nb\r\n", "a\nb\n"), "");
    EXPECT_EQ(LinesLost("a\nb\n", "b\na\n"), "b\n");
    EXPECT_EQ(LinesLost("a\nb\nc\n", "a\nc\n"), "b\n");
    EXPECT_EQ(LinesLost("a = 1\n", "a = 2\n"), "a = 1\n");
    EXPECT_EQ(LinesLost("", "a\n"), "");
}

} // namespace

} // namespace kiv::test
