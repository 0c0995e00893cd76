#include "runtime/core/Digits.h"
#include "runtime/core/NumericText.h"
#include "runtime/core/PlainText.h"
#include "tests/com/numbers/Differences.h"
#include "tests/com/numbers/RandomNumbers.h"
#include "tests/native/core/NumberLocales.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

constexpr int Cases = 200000;

struct ParseCase
{
    ParseCase(const std::wstring& text, const SystemLocale& locale) :
        Text(text),
        Numbers(locale.Numbers),
        Ours(ParseNumber(text, locale.Numbers)),
        Theirs(SystemDouble(text, locale.Identifier)),
        OurAmount(Ours ? Currency::From(*Ours) : std::nullopt),
        TheirAmount(SystemCurrency(text, locale.Identifier))
    {
    }

    bool SameNumber() const { return Ours ? Theirs && Ours->ToDouble() == *Theirs : !Theirs; }
    bool Agrees() const { return SameNumber() && OurAmount == TheirAmount; }
    // One takes it for a number that the other refuses.
    bool OnlyOurs() const { return Ours && !Theirs; }
    bool OnlyTheirs() const { return !Ours && Theirs; }

    std::wstring Describe() const
    {
        return L"\"" + Text + L"\": " + (Ours ? PlainText(Ours->ToDouble(), {}) : L"none") + L" and " +
               (OurAmount ? PlainText(*OurAmount, {}) : L"none") + L", the system's " +
               (Theirs ? PlainText(*Theirs, {}) : L"none") + L" and " +
               (TheirAmount ? PlainText(*TheirAmount, {}) : L"none");
    }

    auto Count(const std::wstring& characters) const
    {
        return std::ranges::count_if(
            Text, [&](wchar_t character) { return characters.find(character) != std::wstring::npos; });
    }

    std::size_t Find(const std::wstring& characters) const { return Text.find_first_of(characters); }
    bool HasRadix() const { return Text.find(L'&') != std::wstring::npos; }

    std::wstring Text;
    const NumberLocale& Numbers;
    std::optional<Decimal> Ours;
    std::optional<double> Theirs;
    std::optional<Currency> OurAmount;
    std::optional<Currency> TheirAmount;
};

// The system takes a second sign, a sign within parentheses or a second parenthesis.
bool TakesTwoSigns(const ParseCase& one)
{
    return one.OnlyTheirs() && (one.Count(L"+-(") > 1 || one.Count(L")") > 1);
}

bool TakesTwoSymbols(const ParseCase& one)
{
    return one.OnlyTheirs() && one.Count(one.Numbers.CurrencySymbol) > 1;
}

// It takes group separators anywhere: among the decimals, in the exponent, behind a sign.
bool TakesGroupsAnywhere(const ParseCase& one)
{
    return one.OnlyTheirs() && one.Text.find(one.Numbers.GroupSeparator) != std::wstring::npos;
}

// It takes, and ignores, a sign or a symbol behind a hexadecimal or octal number.
bool TakesMarksBehindARadixNumber(const ParseCase& one)
{
    return one.OnlyTheirs() && one.HasRadix() && one.Count(L"+-" + one.Numbers.CurrencySymbol) > 0;
}

// It refuses some hexadecimal and octal numbers of 32 bits, takes longer ones, and makes no amount of any.
bool CountsOtherRadixBits(const ParseCase& one)
{
    constexpr double full = 4294967296.0;
    constexpr double sign = full / 2;
    if (!one.HasRadix() || one.TheirAmount)
        return false;
    if (one.OnlyOurs())
        return one.Ours->ToDouble() >= sign;
    return one.OnlyTheirs() ? *one.Theirs >= full : one.SameNumber();
}

// It knows no exponent marked by d.
bool RefusesTheExponentD(const ParseCase& one)
{
    return one.OnlyOurs() && one.Find(L"dD") != std::wstring::npos;
}

// It refuses an exponent behind an amount with a symbol.
bool RefusesSymbolAndExponent(const ParseCase& one)
{
    return one.OnlyOurs() && one.Count(one.Numbers.CurrencySymbol) == 1 &&
           one.Find(L"eE") != std::wstring::npos;
}

// It loses count of an exponent of many digits.
bool LosesCountOfTheExponent(const ParseCase& one)
{
    constexpr std::ptrdiff_t many = 4;
    const std::size_t exponent = one.Find(L"eE");
    return one.OnlyTheirs() && exponent != std::wstring::npos &&
           std::count_if(one.Text.begin() + static_cast<std::ptrdiff_t>(exponent), one.Text.end(), IsDigit) >
               many;
}

// It reads an amount by way of a binary number, whose fifteen digits do not hold all amounts.
bool ReadsAmountsAsBinary(const ParseCase& one)
{
    return one.Ours && one.SameNumber() && one.TheirAmount == SystemCurrency(*one.Theirs);
}

// Its result for many digits is not the nearest binary number.
bool RoundsTwice(const ParseCase& one)
{
    return one.Ours && one.Theirs && !one.SameNumber() &&
           (one.OurAmount == one.TheirAmount || one.TheirAmount == SystemCurrency(*one.Theirs)) &&
           IsCloseTo(one.Ours->ToDouble(), *one.Theirs);
}

const std::vector<DifferenceClass<ParseCase>> Classes = {
    {"TakesTwoSigns", TakesTwoSigns},
    {"TakesTwoSymbols", TakesTwoSymbols},
    {"TakesGroupsAnywhere", TakesGroupsAnywhere},
    {"TakesMarksBehindARadixNumber", TakesMarksBehindARadixNumber},
    {"CountsOtherRadixBits", CountsOtherRadixBits},
    {"RefusesTheExponentD", RefusesTheExponentD},
    {"RefusesSymbolAndExponent", RefusesSymbolAndExponent},
    {"LosesCountOfTheExponent", LosesCountOfTheExponent},
    {"ReadsAmountsAsBinary", ReadsAmountsAsBinary},
    {"RoundsTwice", RoundsTwice},
};

} // namespace

TEST(ParseDifferenceTest, EveryDifferenceIsExplained)
{
    const SystemLocale english(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT));
    const SystemLocale german(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    RandomNumbers random(815);
    DifferenceReport<ParseCase> report(Classes);
    for (int i = 0; i < Cases; ++i)
    {
        const std::wstring text = random.NumberText();
        const SystemLocale& locale = random.OneIn(2) ? german : english;
        report.Take(ParseCase(Localized(text, locale.Numbers), locale));
    }
    report.Finish(Cases);
}

} // namespace kiv::test
