#include "runtime/core/Decimal.h"

#include "runtime/core/ParsedNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kiv
{

namespace
{

// "-1.25e+02", as std::to_chars writes a binary number in scientific notation.
Decimal FromScientific(std::string_view text)
{
    const bool negative = text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    const std::size_t e = text.find('e');
    std::string digits(text.substr(0, e));
    std::erase(digits, '.');
    // std::from_chars knows no plus sign.
    std::string_view exponentText = text.substr(e + 1);
    if (exponentText.front() == '+')
        exponentText.remove_prefix(1);
    return Decimal(negative, digits, *ParsedNumber<int>(exponentText) + 1);
}

// precision: none for the shortest digits, or the count of decimals behind the first digit.
template<class Binary, class... Precision>
std::optional<Decimal> FromBinary(Binary number, Precision... precision)
{
    if (!std::isfinite(number))
        return std::nullopt;
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific, precision...)
                         .ptr;
    return FromScientific({text.data(), end});
}

int Length(const Decimal& number)
{
    return static_cast<int>(number.Digits().size());
}

// Both from here on: magnitudes, digit by digit from the lowest power that either has to the highest.
struct Powers
{
    Powers(const Decimal& one, const Decimal& other) :
        Lowest(std::min(one.Point() - Length(one), other.Point() - Length(other))),
        End(std::max(one.Point(), other.Point()))
    {
    }

    int Lowest;
    int End;
};

Decimal Sum(const Decimal& one, const Decimal& other)
{
    const Powers powers(one, other);
    std::string digits;
    int carry = 0;
    for (int power = powers.Lowest; power < powers.End; ++power)
    {
        const int sum = one.DigitOf(power) - '0' + other.DigitOf(power) - '0' + carry;
        digits.push_back(static_cast<char>('0' + sum % 10));
        carry = sum / 10;
    }
    digits.push_back(static_cast<char>('0' + carry));
    std::ranges::reverse(digits);
    return Decimal(false, digits, powers.End + 1);
}

// The larger magnitude first.
Decimal Difference(const Decimal& larger, const Decimal& smaller)
{
    const Powers powers(larger, smaller);
    std::string digits;
    int borrowed = 0;
    for (int power = powers.Lowest; power < powers.End; ++power)
    {
        const int difference = larger.DigitOf(power) - smaller.DigitOf(power) - borrowed;
        borrowed = difference < 0 ? 1 : 0;
        digits.push_back(static_cast<char>('0' + difference + 10 * borrowed));
    }
    std::ranges::reverse(digits);
    return Decimal(false, digits, powers.End);
}

} // namespace

Decimal::Decimal(bool negative, std::string_view digits, int point)
{
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string_view::npos)
        return;
    negative_ = negative;
    digits_ = digits.substr(first, digits.find_last_not_of('0') - first + 1);
    point_ = point - static_cast<int>(first);
}

std::optional<Decimal> Decimal::FromDouble(double number)
{
    return FromBinary(number);
}

std::optional<Decimal> Decimal::FromSingle(float number)
{
    return FromBinary(number);
}

std::optional<Decimal> Decimal::FromDouble(double number, int significant)
{
    // Enough digits to tell a half from what is next to one.
    constexpr int ExactEnough = 40;
    const auto exact = FromBinary(number, ExactEnough);
    if (!exact)
        return std::nullopt;
    return exact->Rounded(significant - exact->Point(), Halves::AwayFromZero);
}

char Decimal::DigitOf(int power) const
{
    const int place = point_ - 1 - power;
    return place >= 0 && place < Length(*this) ? digits_[static_cast<std::size_t>(place)] : '0';
}

Decimal Decimal::Rounded(int decimals, Halves halves) const
{
    const int kept = point_ + decimals;
    if (kept >= Length(*this))
        return *this;
    if (kept < 0)
        return {};
    std::string digits = digits_.substr(0, static_cast<std::size_t>(kept));
    const std::string_view dropped = std::string_view(digits_).substr(static_cast<std::size_t>(kept));
    // A digit's character is odd where the digit is.
    const bool odd = kept > 0 && digits.back() % 2 != 0;
    const bool up = halves == Halves::ToEven && dropped == "5" ? odd : dropped.front() >= '5';
    if (!up)
        return Decimal(negative_, digits, point_);
    // One more at the last digit kept; the leading zero takes the last carry.
    digits.insert(0, 1, '0');
    auto digit = digits.rbegin();
    for (; *digit == '9'; ++digit)
        *digit = '0';
    ++*digit;
    return Decimal(negative_, digits, point_ + 1);
}

Decimal Decimal::Shifted(int places) const
{
    return Decimal(negative_, digits_, point_ + places);
}

double Decimal::ToDouble() const
{
    const std::string text = (negative_ ? "-0." : "0.") + digits_ + "e" + std::to_string(point_);
    if (const auto number = ParsedNumber<double>(text))
        return *number;
    // Too large or too small for the binary form.
    const double magnitude = point_ > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return negative_ ? -magnitude : magnitude;
}

std::strong_ordering Decimal::CompareMagnitude(const Decimal& other) const
{
    if (IsZero() || other.IsZero())
        return other.IsZero() <=> IsZero();
    if (point_ != other.point_)
        return point_ <=> other.point_;
    return digits_.compare(other.digits_) <=> 0;
}

std::strong_ordering Decimal::operator<=>(const Decimal& other) const
{
    if (negative_ != other.negative_)
        return negative_ ? std::strong_ordering::less : std::strong_ordering::greater;
    return negative_ ? other.CompareMagnitude(*this) : CompareMagnitude(other);
}

Decimal operator-(const Decimal& minuend, const Decimal& subtrahend)
{
    if (minuend.IsNegative())
        return (minuend.Negated() - subtrahend.Negated()).Negated();
    if (subtrahend.IsNegative())
        return Sum(minuend, subtrahend.Absolute());
    return minuend < subtrahend ? Difference(subtrahend, minuend).Negated() : Difference(minuend, subtrahend);
}

} // namespace kiv
