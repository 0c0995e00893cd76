#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// Where a digit exactly in the middle goes.
enum class Halves
{
    AwayFromZero,
    ToEven
};

// A number as its decimal digits: exact, of any length. Zero has no sign.
class Decimal
{
public:
    Decimal() = default;
    // digits: '0' to '9'. The decimal point stands behind the first `point` of them; a negative point puts
    // zeros between the two, one past the end adds zeros.
    Decimal(bool negative, std::string_view digits, int point);

    // The shortest digits that read back as the same binary number; none for infinities and what is no
    // number.
    static std::optional<Decimal> FromDouble(double number);
    static std::optional<Decimal> FromSingle(float number);
    // The nearest number of so many significant digits, 1 or more; halves go away from zero, as in all that
    // Windows writes.
    static std::optional<Decimal> FromDouble(double number, int significant);

    bool IsZero() const { return digits_.empty(); }
    bool IsNegative() const { return negative_; }
    // Without zeros at either end; empty for zero.
    const std::string& Digits() const { return digits_; }
    int Point() const { return point_; }
    // How many digits are behind the point; none or fewer for a whole number.
    int Decimals() const { return static_cast<int>(digits_.size()) - point_; }
    // The digit of 10^power, '0' where none is written.
    char DigitOf(int power) const;

    // With at most so many digits behind the point (a negative number of them rounds before the point).
    Decimal Rounded(int decimals, Halves halves) const;
    // Times 10^places.
    Decimal Shifted(int places) const;
    Decimal Negated() const { return Decimal(!negative_, digits_, point_); }
    Decimal Absolute() const { return Decimal(false, digits_, point_); }

    // The nearest binary number, infinity beyond the range.
    double ToDouble() const;

    bool operator==(const Decimal&) const = default;
    std::strong_ordering operator<=>(const Decimal& other) const;

private:
    std::strong_ordering CompareMagnitude(const Decimal& other) const;

    bool negative_ = false;
    std::string digits_;
    int point_ = 0;
};

Decimal operator-(const Decimal& minuend, const Decimal& subtrahend);

} // namespace kiv
