#pragma once

#include "tests/support/Files.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace kiv::test
{

// One way in which the system's answers differ from the library's; docs/numbers.md explains it under its
// name.
template<class Case>
struct DifferenceClass
{
    const char* Name;
    // Whether it accounts for the difference.
    bool (*Explains)(const Case&);
};

// Whether a number is what arithmetic in binary makes of many digits where another one is the nearest: its
// neighbour, in the 64-bit system, which has no wider registers, a number close by.
inline bool IsCloseTo(double exact, double theirs)
{
    constexpr int steps = sizeof(void*) == 8 ? 16 : 1;
    double reached = theirs;
    for (int i = 0; i < steps && reached != exact; ++i)
        reached = std::nextafter(reached, exact);
    return reached == exact;
}

// Sorts the differences of many cases into classes. Every difference must belong to one, and docs/numbers.md
// must explain each class. The classes are those of Wine, where every one must occur: one that no longer does
// is to go.
template<class Case>
class DifferenceReport
{
public:
    explicit DifferenceReport(std::vector<DifferenceClass<Case>> classes) :
        classes_(std::move(classes)), counts_(classes_.size())
    {
    }

    void Take(const Case& one)
    {
        ++cases_;
        if (one.Agrees())
            return;
        ++differences_;
        for (std::size_t i = 0; i < classes_.size(); ++i)
        {
            if (!classes_[i].Explains(one))
                continue;
            ++counts_[i];
            return;
        }
        if (++unexplained_ <= PrintedAtMost)
            ADD_FAILURE() << "not explained: " << Narrow(one.Describe());
    }

    void Finish(int expectedCases) const
    {
        EXPECT_EQ(cases_, expectedCases);
        EXPECT_EQ(unexplained_, 0);
        const std::vector<std::uint8_t> bytes =
            ReadWholeFile(RequiredVariable(L"KIV_SOURCE") + L"\\docs\\numbers.md");
        const std::string page(bytes.begin(), bytes.end());
        for (std::size_t i = 0; i < classes_.size(); ++i)
        {
            if (RunsOnWine())
            {
                EXPECT_NE(counts_[i], 0)
                    << classes_[i].Name << " no longer occurs among " << cases_ << " cases, so it can go";
            }
            EXPECT_NE(page.find("**" + std::string(classes_[i].Name) + "**"), std::string::npos)
                << "docs/numbers.md does not explain " << classes_[i].Name;
            testing::Test::RecordProperty(classes_[i].Name, counts_[i]);
        }
    }

private:
    static constexpr int PrintedAtMost = 20;

    std::vector<DifferenceClass<Case>> classes_;
    std::vector<int> counts_;
    int cases_ = 0;
    int differences_ = 0;
    int unexplained_ = 0;
};

} // namespace kiv::test
