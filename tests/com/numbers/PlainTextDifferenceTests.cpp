#include "runtime/core/PlainText.h"
#include "tests/com/numbers/Differences.h"
#include "tests/com/numbers/RandomNumbers.h"

#include <cmath>

namespace kiv::test
{

namespace
{

constexpr int Cases = 60000;

struct PlainTextCase
{
    bool Agrees() const { return Ours == Theirs; }
    std::wstring Describe() const { return L"\"" + Ours + L"\", the system's \"" + Theirs + L"\""; }

    std::wstring Ours;
    std::wstring Theirs;
};

// The system's scientific text has its point in every locale.
bool HasAPointInScientificText(const PlainTextCase& one)
{
    std::wstring pointed = one.Ours;
    const std::size_t comma = pointed.find(L',');
    if (comma == std::wstring::npos || pointed.find(L'E') == std::wstring::npos)
        return false;
    pointed[comma] = L'.';
    return one.Theirs == pointed;
}

const std::vector<DifferenceClass<PlainTextCase>> Classes = {
    {"HasAPointInScientificText", HasAPointInScientificText},
};

float SingleOf(double number)
{
    constexpr float largest = 3e38F;
    return std::abs(number) < static_cast<double>(largest) ? static_cast<float>(number) : largest;
}

} // namespace

TEST(PlainTextDifferenceTest, EveryDifferenceIsExplained)
{
    const SystemLocale english(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT));
    const SystemLocale german(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    RandomNumbers random(42);
    DifferenceReport<PlainTextCase> report(Classes);
    for (int i = 0; i < Cases; i += 3)
    {
        const SystemLocale& locale = random.OneIn(2) ? german : english;
        const double number = random.Double();
        const float single = SingleOf(number);
        const auto amount = Currency::FromUnits(static_cast<std::int64_t>(random.Bits()) >> random.Below(63));
        report.Take({PlainText(number, locale.Numbers), SystemText(number, locale.Identifier)});
        report.Take({PlainText(single, locale.Numbers), SystemText(single, locale.Identifier)});
        report.Take({PlainText(amount, locale.Numbers), SystemText(amount, locale.Identifier)});
    }
    report.Finish(Cases);
}

} // namespace kiv::test
