#include "runtime/core/NumberFormat.h"

#include <algorithm>

namespace kiv
{

namespace
{

constexpr int GroupSize = 3;
// "-99,999,999,999,999.9999" and a little.
constexpr std::size_t LongestAmount = 32;

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

// Appends the part before the point to a text: from right to left, as the digits fall into their places, and
// then turned round.
class WholePart
{
public:
    WholePart(std::wstring& text, const Decimal& number, const Pattern& pattern, wchar_t separator) :
        text_(text),
        number_(number),
        separator_(pattern.Grouped ? separator : L'\0'),
        end_(std::max(number.Point(), pattern.LeastWholeDigits))
    {
        const std::size_t start = text_.size();
        int places = CountDigitPlaces(pattern.Whole);
        if (places == 0 && CountDigitPlaces(pattern.Decimals) != 0)
            DigitsUpTo(end_);
        for (auto character = pattern.Whole.rbegin(); character != pattern.Whole.rend(); ++character)
        {
            if (IsDigitPlace(*character))
                DigitsUpTo(--places == 0 ? end_ : std::min(power_ + 1, end_));
            else if (*character != L',')
                text_.push_back(*character);
        }
        std::reverse(text_.begin() + static_cast<std::ptrdiff_t>(start), text_.end());
    }

private:
    void DigitsUpTo(int end)
    {
        for (; power_ < end; ++power_)
        {
            if (separator_ != 0 && power_ > 0 && power_ % GroupSize == 0)
                text_.push_back(separator_);
            text_.push_back(static_cast<wchar_t>(number_.DigitOf(power_)));
        }
    }

    std::wstring& text_;
    const Decimal& number_;
    wchar_t separator_;
    // One above the highest power shown.
    int end_;
    int power_ = 0;
};

void AppendDecimals(std::wstring& text, const Decimal& number, const Pattern& pattern)
{
    const int written = static_cast<int>(number.Digits().size()) - number.Point();
    const int shown = std::max(written, pattern.LeastDecimals);
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
}

} // namespace

std::wstring Format(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale)
{
    const Pattern parts(pattern);
    const int decimals = CountDigitPlaces(parts.Decimals);
    const Decimal rounded =
        parts.Thousandths == 0
            ? number.Rounded(decimals, Halves::AwayFromZero)
            : number.Shifted(-GroupSize * parts.Thousandths).Rounded(decimals, Halves::AwayFromZero);
    std::wstring text;
    // What an amount takes at most, so that it is allocated once.
    text.reserve(LongestAmount);
    if (rounded.IsNegative())
        text.push_back(L'-');
    WholePart(text, rounded, parts, locale.GroupSeparator);
    if (parts.HasPoint)
        text.push_back(locale.DecimalPoint);
    AppendDecimals(text, rounded, parts);
    return text;
}

} // namespace kiv
