#include "runtime/core/NumberFormat.h"

#include <algorithm>
#include <optional>

namespace kiv
{

namespace
{

constexpr int GroupSize = 3;

constexpr bool IsDigitPlace(wchar_t character)
{
    return character == L'0' || character == L'#';
}

// A pattern taken apart.
struct Pattern
{
    explicit Pattern(std::wstring_view pattern)
    {
        const std::size_t point = TakeWhole(pattern);
        Whole = pattern.substr(0, point);
        HasPoint = point < pattern.size();
        if (!HasPoint)
            return;
        Decimals = pattern.substr(point + 1);
        for (const wchar_t character : Decimals)
        {
            if (!IsDigitPlace(character))
                continue;
            ++DecimalPlaces;
            if (character == L'0')
                LeastDecimals = DecimalPlaces;
        }
    }

    std::wstring_view Whole;
    std::wstring_view Decimals;
    bool HasPoint = false;
    bool Grouped = false;
    int Thousandths = 0;
    int WholePlaces = 0;
    int DecimalPlaces = 0;
    int LeastWholeDigits = 0;
    int LeastDecimals = 0;

private:
    // Where the point is, or the end.
    std::size_t TakeWhole(std::wstring_view pattern)
    {
        int places = 0;
        int placesBeforeZero = -1; // none
        int placesBeforeComma = 0; // the first one behind a place
        int commas = 0;            // at the end so far
        std::size_t at = 0;
        for (; at < pattern.size() && pattern[at] != L'.'; ++at)
        {
            const wchar_t character = pattern[at];
            if (character == L',')
            {
                ++commas;
                placesBeforeComma = placesBeforeComma == 0 ? places : placesBeforeComma;
                continue;
            }
            commas = 0;
            if (character == L'0' && placesBeforeZero < 0)
                placesBeforeZero = places;
            places += IsDigitPlace(character) ? 1 : 0;
        }
        WholePlaces = places;
        Grouped = placesBeforeComma != 0 && placesBeforeComma < places;
        Thousandths = places != 0 ? commas : 0;
        LeastWholeDigits = placesBeforeZero < 0 ? 0 : places - placesBeforeZero;
        return at;
    }
};

// The text of a number, written from its end to its beginning, as the digits fall into their places.
class Writer
{
public:
    // end: of room for it all.
    Writer(wchar_t* end, const Decimal& number) : at_(end), digits_(number.Digits()), point_(number.Point())
    {
    }

    void Decimals(const Pattern& pattern)
    {
        const int written = static_cast<int>(digits_.size()) - point_;
        const int shown = std::max(written, pattern.LeastDecimals);
        int place = pattern.DecimalPlaces;
        for (auto character = pattern.Decimals.rbegin(); character != pattern.Decimals.rend(); ++character)
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
    void Whole(const Pattern& pattern, wchar_t groupSeparator)
    {
        // One above the highest power shown.
        const int end = std::max(point_, pattern.LeastWholeDigits);
        const wchar_t separator = pattern.Grouped ? groupSeparator : L'\0';
        int places = pattern.WholePlaces;
        if (places == 0 && pattern.DecimalPlaces != 0)
            DigitsUpTo(end, separator);
        for (auto character = pattern.Whole.rbegin(); character != pattern.Whole.rend(); ++character)
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

// What a text takes at most: the pattern, the number's digits before the point with separators, a sign.
std::size_t RoomFor(const Decimal& number, std::wstring_view pattern)
{
    const auto digits = static_cast<std::size_t>(std::max(number.Point(), 0));
    return 2 * (pattern.size() + digits) + 1;
}

} // namespace

FormattedNumber::FormattedNumber(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale)
{
    const Pattern parts(pattern);
    std::optional<Decimal> rounded;
    if (parts.Thousandths != 0)
        rounded =
            number.Shifted(-GroupSize * parts.Thousandths).Rounded(parts.DecimalPlaces, Halves::AwayFromZero);
    else if (number.Decimals() > parts.DecimalPlaces)
        rounded = number.Rounded(parts.DecimalPlaces, Halves::AwayFromZero);
    const Decimal& shown = rounded ? *rounded : number;

    wchar_t* end = inPlace_.data() + inPlace_.size();
    if (const std::size_t room = RoomFor(shown, pattern); room > inPlace_.size())
    {
        elsewhere_.resize(room);
        end = elsewhere_.data() + room;
    }
    Writer writer(end, shown);
    writer.Decimals(parts);
    if (parts.HasPoint)
        writer.Write(locale.DecimalPoint);
    writer.Whole(parts, locale.GroupSeparator);
    if (shown.IsNegative())
        writer.Write(L'-');
    text_ = {writer.Start(), static_cast<std::size_t>(end - writer.Start())};
}

std::wstring Format(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale)
{
    return std::wstring(FormattedNumber(number, pattern, locale).Text());
}

} // namespace kiv
