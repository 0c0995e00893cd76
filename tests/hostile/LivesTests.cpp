// Many lives of controls, and of the library itself: nothing grows.

#include "tests/com/each/EachTest.h"
#include "tests/hostile/CrashReport.h"
#include "tests/hostile/Host.h"
#include "tests/hostile/ProcessResources.h"
#include "tests/support/Text.h"

#include <cstdlib>
#include <functional>
#include <optional>

namespace kiv::test
{

namespace
{

// How often: a few in passing, many when asked.
int Lives(int few)
{
    const char* const lives = std::getenv("KIV_LIVES");
    return lives ? std::max(few, std::atoi(lives)) : few;
}

// One in so many may leave something that the system keeps for itself; a life that leaves something leaves it
// each time.
void ExpectNoGrowth(int lives, const std::function<void()>& live)
{
    int number = 0;
    const auto liveOnce = [&] {
        if (number++ % 20 == 0)
            Doing("life " + std::to_string(number));
        live();
    };
    const int warming = std::max(20, lives / 10);
    for (int life = 0; life < warming; ++life)
        liveOnce();
    const ProcessResources before = ProcessResources::Now();
    for (int life = 0; life < lives; ++life)
        liveOnce();
    const ProcessResources after = ProcessResources::Now();
    const auto grown = [lives](std::size_t former, std::size_t now) {
        return now > former + static_cast<std::size_t>(lives) / 10;
    };
    // Less than any block that is left each time, and what a text or two more are in the last life than in
    // the first.
    EXPECT_LE(after.HeapBytes, before.HeapBytes + 4 * static_cast<std::size_t>(lives) + 512);
    EXPECT_FALSE(grown(before.Handles, after.Handles)) << before << ", then " << after;
    EXPECT_FALSE(grown(before.GdiObjects, after.GdiObjects)) << before << ", then " << after;
    EXPECT_FALSE(grown(before.Windows, after.Windows)) << before << ", then " << after;
}

class EachLife : public EachTest
{
};

TEST_P(EachLife, OfAControlOnAForm)
{
    ReportCrashes();
    Host host;
    int life = 0;
    ExpectNoGrowth(Lives(40), [&] {
        host.Begin(GetParam(), true);
        if (life++ % 10 == 0)
            host.SetEveryProperty();
        SendMessageW(host.FocusWindow(), WM_CHAR, '1', 1);
        EXPECT_EQ(host.End(), "");
    });
}

TEST_P(EachLife, OfAControlAlone)
{
    ReportCrashes();
    ExpectNoGrowth(Lives(300), [&] { TheLibrary().Create(ClassId()); });
}

INSTANTIATE_TEST_SUITE_P(Classes, EachLife, testing::ValuesIn(PublishedClasses()), ClassName());

// A copy of its own: the one under test stays.
class LibraryLife : public LibraryTest, public testing::WithParamInterface<PublishedClass>
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        wchar_t folder[MAX_PATH] = {};
        wchar_t file[MAX_PATH] = {};
        GetTempPathW(ARRAYSIZE(folder), folder);
        ASSERT_NE(GetTempFileNameW(folder, L"kiv", 0, file), 0U);
        copy_ = file;
        ASSERT_TRUE(CopyFileW(TheLibrary().Path().c_str(), copy_.c_str(), FALSE));
    }
    void TearDown() override
    {
        DeleteFileW(copy_.c_str());
        LibraryTest::TearDown();
    }

    std::wstring copy_;
};

TEST_P(LibraryLife, LoadedUsedAndUnloaded)
{
    ReportCrashes();
    const int share = Lives(20) / static_cast<int>(PublishedClasses().size());
    ExpectNoGrowth(std::max(20, share), [&] {
        {
            const Library library(copy_);
            library.Create(Id(GetParam().Class));
            EXPECT_EQ(Hr(library.CanUnloadNow()), Hr(S_OK));
        }
        // A window class, hook or timer that it left would be called now.
        HostWindow form;
        SetFocus(form.Handle());
        DrainMessages();
        EXPECT_EQ(GetModuleHandleW(copy_.c_str()), nullptr);
    });
}

INSTANTIATE_TEST_SUITE_P(Classes, LibraryLife, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
