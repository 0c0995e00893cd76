#include "runtime/core/NumberFormat.h"

#include <algorithm>

namespace kiv
{

namespace
{

constexpr int GroupSize = 3;

constexpr bool IsDigitPlace(wchar_t character)
{
    return character == L'0' || character == L'#';
}

int CountDigitPlaces(std::wstring_view text)
{
    return static_cast<int>(std::ranges::count_if(text, IsDigitPlace));
}

// A pattern taken apart.
struct Pattern
{
    explicit Pattern(std::wstring_view pattern)
    {
        const std::size_t point = pattern.find(L'.');
        HasPoint = point != std::wstring_view::npos;
        Whole = pattern.substr(0, point);
        if (HasPoint)
            Decimals = pattern.substr(point + 1);

        const bool any = CountDigitPlaces(Whole) != 0;
        for (; any && Whole.ends_with(L','); Whole.remove_suffix(1))
            ++Thousandths;
        const std::size_t first = Whole.find_first_of(L"0#");
        const std::size_t last = Whole.find_last_of(L"0#");
        const std::size_t comma = Whole.find(L',', std::min(first, Whole.size()));
        Grouped = comma != std::wstring_view::npos && comma < last;

        const std::size_t firstZero = Whole.find(L'0');
        if (firstZero != std::wstring_view::npos)
            LeastWholeDigits = CountDigitPlaces(Whole.substr(firstZero));
        const std::size_t lastZero = Decimals.rfind(L'0');
        if (lastZero != std::wstring_view::npos)
            LeastDecimals = CountDigitPlaces(Decimals.substr(0, lastZero + 1));
    }

    std::wstring_view Whole;
    std::wstring_view Decimals;
    bool HasPoint = false;
    bool Grouped = false;
    int Thousandths = 0;
    int LeastWholeDigits = 0;
    int LeastDecimals = 0;
};

// Writes the part before the point from right to left, as the digits fall into their places.
class WholePart
{
public:
    WholePart(const Decimal& number, const Pattern& pattern, wchar_t separator) :
        number_(number),
        separator_(pattern.Grouped ? separator : L'\0'),
        end_(std::max(number.Point(), pattern.LeastWholeDigits))
    {
        int places = CountDigitPlaces(pattern.Whole);
        if (places == 0 && CountDigitPlaces(pattern.Decimals) != 0)
            DigitsUpTo(end_);
        for (auto character = pattern.Whole.rbegin(); character != pattern.Whole.rend(); ++character)
        {
            if (IsDigitPlace(*character))
                DigitsUpTo(--places == 0 ? end_ : std::min(power_ + 1, end_));
            else if (*character != L',')
                reversed_.push_back(*character);
        }
    }

    std::wstring Text() const { return {reversed_.rbegin(), reversed_.rend()}; }

private:
    void DigitsUpTo(int end)
    {
        for (; power_ < end; ++power_)
        {
            if (separator_ != 0 && power_ > 0 && power_ % GroupSize == 0)
                reversed_.push_back(separator_);
            reversed_.push_back(static_cast<wchar_t>(number_.DigitOf(power_)));
        }
    }

    const Decimal& number_;
    wchar_t separator_;
    // One above the highest power shown.
    int end_;
    int power_ = 0;
    std::wstring reversed_;
};

std::wstring DecimalPart(const Decimal& number, const Pattern& pattern)
{
    const int written = static_cast<int>(number.Digits().size()) - number.Point();
    const int shown = std::max(written, pattern.LeastDecimals);
    std::wstring text;
    int place = 0;
    for (const wchar_t character : pattern.Decimals)
    {
        if (!IsDigitPlace(character))
        {
            if (character != L',' && character != L'.')
                text.push_back(character);
        }
        else if (++place <= shown)
            text.push_back(static_cast<wchar_t>(number.DigitOf(-place)));
    }
    return text;
}

} // namespace

std::wstring Format(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale)
{
    const Pattern parts(pattern);
    const Decimal rounded = number.Shifted(-GroupSize * parts.Thousandths)
                                .Rounded(CountDigitPlaces(parts.Decimals), Halves::AwayFromZero);
    std::wstring text = rounded.IsNegative() ? L"-" : L"";
    text += WholePart(rounded, parts, locale.GroupSeparator).Text();
    if (parts.HasPoint)
        text += locale.DecimalPoint;
    text += DecimalPart(rounded, parts);
    return text;
}

} // namespace kiv
