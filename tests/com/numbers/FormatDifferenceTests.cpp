#include "runtime/core/NumberFormat.h"
#include "runtime/core/PlainText.h"
#include "tests/com/numbers/Differences.h"
#include "tests/com/numbers/RandomNumbers.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

constexpr int Cases = 100000;

// A pattern, taken apart for those who explain.
struct PatternParts
{
    explicit PatternParts(const std::wstring& pattern) :
        Whole(pattern.substr(0, pattern.find(L'.'))), Rest(pattern.substr(Whole.size()))
    {
    }

    static auto Places(const std::wstring& part)
    {
        return std::ranges::count_if(part, [](wchar_t place) { return place == L'0' || place == L'#'; });
    }

    std::wstring Whole;
    // From the point on.
    std::wstring Rest;
};

struct FormatCase
{
    FormatCase(const SystemNumber& number, const std::wstring& pattern, const SystemLocale& locale) :
        Number(number),
        Pattern(pattern),
        Parts(pattern),
        Locale(locale),
        Ours(Format(number.Exact, pattern, locale.Numbers)),
        Theirs(SystemFormat(number, pattern, locale.Identifier))
    {
    }

    bool Agrees() const { return Ours == Theirs; }

    std::wstring Describe() const
    {
        return PlainText(Number.Exact.ToDouble(), {}) + (Number.Units ? L" (amount)" : L"") + L" by \"" +
               Pattern + L"\": \"" + Ours + L"\", the system's \"" + Theirs + L"\"";
    }

    std::wstring TheirsBy(const std::wstring& pattern) const
    {
        return SystemFormat(Number, pattern, Locale.Identifier);
    }

    std::wstring OursBy(const std::wstring& pattern) const
    {
        return Format(Number.Exact, pattern, Locale.Numbers);
    }

    SystemNumber Number;
    std::wstring Pattern;
    PatternParts Parts;
    const SystemLocale& Locale;
    std::wstring Ours;
    std::wstring Theirs;
};

// The system keeps the sign of a number that it has rounded to zero.
bool KeepsTheSignOfZero(const FormatCase& one)
{
    return one.Number.Exact.IsNegative() && one.Theirs == L"-" + one.Ours;
}

// Without decimals in the pattern it cuts a number below 1 off, where it rounds all others.
bool CutsOffBelowOne(const FormatCase& one)
{
    const Decimal magnitude = one.Number.Exact.Absolute();
    const std::wstring sign = one.Number.Exact.IsNegative() ? L"-" : L"";
    return PatternParts::Places(one.Parts.Rest) == 0 && magnitude < Decimal(false, "1", 1) &&
           one.Theirs == sign + SystemFormat(SystemNumber::OfAmount(0), one.Pattern, one.Locale.Identifier);
}

// It groups by a comma at the end, instead of dividing by a thousand.
bool GroupsByATrailingComma(const FormatCase& one)
{
    const std::size_t last = one.Parts.Whole.find_last_not_of(L',');
    if (last == std::wstring::npos || !one.Parts.Whole.ends_with(L','))
        return false;
    const std::wstring grouped = L"#," + one.Parts.Whole.substr(0, last + 1) + one.Parts.Rest;
    return one.Theirs == one.TheirsBy(grouped) || one.Theirs == one.OursBy(grouped);
}

// It writes a comma in front of all places as it stands, before the sign.
bool CopiesALeadingComma(const FormatCase& one)
{
    return one.Parts.Whole.starts_with(L',') && one.Theirs == L"," + one.TheirsBy(one.Pattern.substr(1));
}

// Of a number that reads as 1 or more, it writes the first digits as decimals where the pattern has no place
// in front of the point.
bool LosesTheWholePart(const FormatCase& one)
{
    const wchar_t point = one.Locale.Numbers.DecimalPoint;
    const std::size_t front = one.Number.Exact.IsNegative() ? 1 : 0;
    return PatternParts::Places(one.Parts.Whole) == 0 && one.Ours.find(point) > front &&
           one.Theirs.find(point) == front;
}

// It loses the last zero in front of the point where a run of "#" follows other places.
bool LosesALastZero(const FormatCase& one)
{
    const std::wstring& whole = one.Parts.Whole;
    const wchar_t point = one.Locale.Numbers.DecimalPoint;
    const std::wstring ours = one.Ours.substr(0, one.Ours.find(point));
    return (whole.ends_with(L"0#") || whole.ends_with(L",#")) && ours.ends_with(L'0') &&
           one.Theirs.substr(0, one.Theirs.find(point)) == ours.substr(0, ours.size() - 1);
}

// It sees no more than fifteen digits of a binary number.
bool SeesFifteenDigits(const FormatCase& one)
{
    constexpr int seen = 15;
    return !one.Number.Units && one.Number.Exact.Digits().size() > seen &&
           one.Theirs ==
               Format(Decimal::FromDouble(one.Number.Binary, seen).value(), one.Pattern, one.Locale.Numbers);
}

// Where the decimals are behind a comma, it writes a binary number's own text with a point, which it then
// reads as a group separator.
bool MisreadsScientificText(const FormatCase& one)
{
    return !one.Number.Units && one.Locale.Numbers.DecimalPoint != L'.' &&
           PlainText(one.Number.Binary, {}).find(L'E') != std::wstring::npos;
}

const std::vector<DifferenceClass<FormatCase>> Classes = {
    {"KeepsTheSignOfZero", KeepsTheSignOfZero},         {"CutsOffBelowOne", CutsOffBelowOne},
    {"GroupsByATrailingComma", GroupsByATrailingComma}, {"CopiesALeadingComma", CopiesALeadingComma},
    {"LosesTheWholePart", LosesTheWholePart},           {"LosesALastZero", LosesALastZero},
    {"SeesFifteenDigits", SeesFifteenDigits},           {"MisreadsScientificText", MisreadsScientificText},
};

// Half of them are patterns that controls use.
std::wstring PatternOf(RandomNumbers& random)
{
    if (random.OneIn(2))
    {
        return random.OneOf({L"0", L"#,##0", L"#,###.0", L"#,###.00", L"#,###.000", L"#,###.0000", L"#.0",
                             L"#.00", L"#.0000", L"0.", L"##0.", L"##0.##", L"##0.####", L"#####0.######",
                             L"0.####", L"0.######", L"0.########"});
    }
    std::wstring pattern =
        random.OneOf({L"", L"00", L"#", L"##", L"#0", L"#,###", L"0,000", L"#,#", L"0,0", L"0#", L"#,#,#",
                      L"####", L",0", L",##0", L"0,", L"#,,", L"#,##0,", L"000,000", L"0#0"});
    if (!pattern.empty() && random.OneIn(3))
        return pattern;
    pattern.push_back(L'.');
    for (int decimals = random.Below(5); decimals > 0; --decimals)
        pattern.push_back(random.OneIn(2) ? L'0' : L'#');
    return pattern;
}

} // namespace

TEST(FormatDifferenceTest, EveryDifferenceIsExplained)
{
    const SystemLocale english(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT));
    const SystemLocale german(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    RandomNumbers random(4711);
    DifferenceReport<FormatCase> report(Classes);
    for (int i = 0; i < Cases; ++i)
    {
        const SystemNumber number = random.Number();
        const std::wstring pattern = PatternOf(random);
        report.Take(FormatCase(number, pattern, random.OneIn(2) ? german : english));
    }
    report.Finish(Cases);
}

} // namespace kiv::test
