#include "runtime/core/Val.h"

#include "runtime/core/PlainText.h"
#include "tests/com/numbers/Differences.h"
#include "tests/com/numbers/RandomNumbers.h"

namespace kiv::test
{

namespace
{

constexpr int Cases = 100000;

// Val has no counterpart in the system. It reads the number at the front of any text; where the system takes
// the whole text for a number, the two are compared.
struct ValCase
{
    ValCase(const std::wstring& text, LCID english) :
        Text(text), English(english), Ours(Val(text)), Theirs(SystemDouble(text, english))
    {
    }

    bool Agrees() const { return !Theirs || *Theirs == Ours; }

    std::wstring Describe() const
    {
        return L"\"" + Text + L"\": " + PlainText(Ours, {}) + L", the system's " + PlainText(*Theirs, {});
    }

    std::wstring Text;
    LCID English;
    double Ours;
    std::optional<double> Theirs;
};

// Val ends at a group separator, a symbol, a parenthesis and a sign that does not lead; what is in front of
// it counts, if only as 0.
bool ValStopsWithinTheNumber(const ValCase& one)
{
    std::size_t end = one.Text.find_first_not_of(L" \t\r\n");
    if (end != std::wstring::npos && (one.Text[end] == L'-' || one.Text[end] == L'+'))
        ++end;
    end = one.Text.find_first_of(L",$()+-", end);
    // The sign of an exponent goes with it.
    const bool isSign = end != std::wstring::npos && (one.Text[end] == L'-' || one.Text[end] == L'+');
    if (isSign && end > 0 && (one.Text[end - 1] == L'e' || one.Text[end - 1] == L'E'))
        end = one.Text.find_first_of(L",$()+-", end + 1);
    if (end == std::wstring::npos)
        return false;
    std::wstring front = one.Text.substr(0, end);
    // An exponent that has lost its digits.
    front.resize(front.find_last_not_of(L"eE+-") + 1);
    return IsCloseTo(one.Ours, SystemDouble(front, one.English).value_or(0));
}

// Val gives hexadecimal and octal numbers the sign that their 16 or 32 bits have, and knows no longer ones.
bool ValSignsRadixNumbers(const ValCase& one)
{
    constexpr double words = 65536;
    constexpr double end = words * words;
    return one.Text.find(L'&') != std::wstring::npos &&
           (one.Ours == *one.Theirs - words || one.Ours == *one.Theirs - end ||
            (one.Ours == 0 && *one.Theirs >= end));
}

// The system's result for many digits is not the nearest binary number.
bool RoundsTwice(const ValCase& one)
{
    return IsCloseTo(one.Ours, *one.Theirs);
}

const std::vector<DifferenceClass<ValCase>> Classes = {
    {"ValStopsWithinTheNumber", ValStopsWithinTheNumber},
    {"ValSignsRadixNumbers", ValSignsRadixNumbers},
    {"RoundsTwice", RoundsTwice},
};

} // namespace

TEST(ValDifferenceTest, EveryDifferenceIsExplained)
{
    const LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    RandomNumbers random(1234);
    DifferenceReport<ValCase> report(Classes);
    for (int i = 0; i < Cases; ++i)
        report.Take(ValCase(random.NumberText(), english));
    report.Finish(Cases);
}

} // namespace kiv::test
