#include "runtime/core/NumberFormat.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <span>

namespace kiv
{

namespace
{

constexpr int GroupSize = 3;

constexpr bool IsDigitPlace(wchar_t character)
{
    return character == L'0' || character == L'#';
}

// What a pattern says before its point.
struct WholePattern
{
    std::wstring_view Text;
    int Places;
    int LeastDigits;
    bool Grouped;
    int Thousandths;
};

WholePattern ReadWhole(std::wstring_view text)
{
    int places = 0;
    int leastDigits = 0;       // the places from the first 0 on
    int placesBeforeComma = 0; // the first one behind a place
    for (const wchar_t character : text)
    {
        if (character == L',' && placesBeforeComma == 0)
            placesBeforeComma = places;
        if (!IsDigitPlace(character))
            continue;
        ++places;
        if (character == L'0' || leastDigits != 0)
            ++leastDigits;
    }
    const auto commasAtEnd = static_cast<int>(text.size() - (text.find_last_not_of(L',') + 1));
    return {.Text = text,
            .Places = places,
            .LeastDigits = leastDigits,
            .Grouped = placesBeforeComma != 0 && placesBeforeComma < places,
            .Thousandths = places != 0 ? commasAtEnd : 0};
}

// And behind it.
struct DecimalPattern
{
    std::wstring_view Text;
    int Places;
    int LeastDigits;
};

DecimalPattern ReadDecimals(std::wstring_view text)
{
    int places = 0;
    int leastDigits = 0;
    for (const wchar_t character : text)
    {
        if (!IsDigitPlace(character))
            continue;
        ++places;
        if (character == L'0')
            leastDigits = places;
    }
    return {text, places, leastDigits};
}

// The text of a number, written from its end to its beginning, as the digits fall into their places.
class Writer
{
public:
    // end: of room for it all.
    Writer(wchar_t* end, const Decimal& number) : at_(end), digits_(number.Digits()), point_(number.Point())
    {
    }

    void Decimals(const DecimalPattern& pattern)
    {
        const int written = static_cast<int>(digits_.size()) - point_;
        const int shown = std::max(written, pattern.LeastDigits);
        int place = pattern.Places;
        for (auto character = pattern.Text.rbegin(); character != pattern.Text.rend(); ++character)
        {
            if (!IsDigitPlace(*character))
            {
                if (*character != L',' && *character != L'.')
                    Write(*character);
                continue;
            }
            if (place <= shown)
                Write(DigitOf(-place));
            --place;
        }
    }
    // withDecimals: the pattern has places behind the point.
    void Whole(const WholePattern& pattern, bool withDecimals, wchar_t groupSeparator)
    {
        // One above the highest power shown.
        const int end = std::max(point_, pattern.LeastDigits);
        const wchar_t separator = pattern.Grouped ? groupSeparator : L'\0';
        int places = pattern.Places;
        if (places == 0 && withDecimals)
            DigitsUpTo(end, separator);
        for (auto character = pattern.Text.rbegin(); character != pattern.Text.rend(); ++character)
        {
            if (IsDigitPlace(*character))
                DigitsUpTo(--places == 0 ? end : std::min(power_ + 1, end), separator);
            else if (*character != L',')
                Write(*character);
        }
    }
    void Write(wchar_t character) { *--at_ = character; }
    const wchar_t* Start() const { return at_; }

private:
    wchar_t DigitOf(int power) const
    {
        const auto place = static_cast<std::size_t>(point_ - 1 - power);
        return place < digits_.size() ? static_cast<wchar_t>(digits_[place]) : L'0';
    }
    void DigitsUpTo(int end, wchar_t separator)
    {
        for (; power_ < end; ++power_)
        {
            if (inGroup_ == GroupSize)
            {
                inGroup_ = 0;
                if (separator != 0)
                    Write(separator);
            }
            ++inGroup_;
            Write(DigitOf(power_));
        }
    }

    wchar_t* at_;
    const std::string_view digits_;
    const int point_;
    int power_ = 0;   // of the next digit before the point
    int inGroup_ = 0; // digits of its group so far
};

// What a text of more than a few characters takes at most: the pattern, the number's digits before the point
// with separators, a sign.
std::size_t RoomFor(const Decimal& number, std::wstring_view pattern)
{
    const auto digits = static_cast<std::size_t>(std::max(number.Point(), 0));
    return 2 * (pattern.size() + digits);
}

} // namespace

FormattedNumber::FormattedNumber(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale)
{
    const WholePattern whole = ReadWhole(pattern.substr(0, pattern.find(L'.')));
    const bool hasPoint = whole.Text.size() != pattern.size();
    const DecimalPattern decimals =
        ReadDecimals(hasPoint ? pattern.substr(whole.Text.size() + 1) : std::wstring_view());
    std::optional<Decimal> rounded;
    if (whole.Thousandths != 0)
        rounded =
            number.Shifted(-GroupSize * whole.Thousandths).Rounded(decimals.Places, Halves::AwayFromZero);
    else if (number.Decimals() > decimals.Places)
        rounded = number.Rounded(decimals.Places, Halves::AwayFromZero);
    const Decimal& shown = rounded ? *rounded : number;

    std::span<wchar_t> room = inPlace_;
    if (const std::size_t needed = RoomFor(shown, pattern); needed > room.size())
    {
        elsewhere_.resize(needed);
        room = elsewhere_;
    }
    wchar_t* const end = std::to_address(room.end());
    Writer writer(end, shown);
    writer.Decimals(decimals);
    if (hasPoint)
        writer.Write(locale.DecimalPoint);
    writer.Whole(whole, decimals.Places != 0, locale.GroupSeparator);
    if (shown.IsNegative())
        writer.Write(L'-');
    text_ = {writer.Start(), static_cast<std::size_t>(end - writer.Start())};
}

std::wstring Format(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale)
{
    return std::wstring(FormattedNumber(number, pattern, locale).Text());
}

} // namespace kiv
