#pragma once

#include "runtime/core/Decimal.h"
#include "runtime/core/NumberLocale.h"

#include <array>
#include <string>
#include <string_view>

namespace kiv
{

// A number laid out by a pattern of
//
//   0   a digit, 0 where the number has none;
//   #   a digit, nothing where the number has none;
//   .   the decimal point, always shown, whether decimals follow or not ("##0.####" of 7 is "7.");
//   ,   between two digits before the point: groups of three, separated; right before the point or at the
//       end, behind a digit: a thousandth of the number, once for each comma.
//
// Any other character is copied to its place. A further point, and a comma anywhere else, says nothing. The
// number is rounded to the decimals of the pattern, halves away from zero, on its decimal digits; what is
// left of it before the pattern's first digit is shown in front of that digit. Negative numbers have "-" in
// front of the whole; one that rounds to zero shows none.
std::wstring Format(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale);

// The same without a string of one's own: the text lies in here, and takes no memory from elsewhere unless it
// is longer than any amount.
class FormattedNumber
{
public:
    FormattedNumber(const Decimal& number, std::wstring_view pattern, const NumberLocale& locale);
    FormattedNumber(const FormattedNumber&) = delete;
    FormattedNumber& operator=(const FormattedNumber&) = delete;

    std::wstring_view Text() const { return text_; }

private:
    // "-99,999,999,999,999.9999", with as much again for what a pattern may add.
    static constexpr std::size_t RoomForAmounts = 48;

    std::array<wchar_t, RoomForAmounts> inPlace_;
    std::wstring elsewhere_;
    std::wstring_view text_;
};

} // namespace kiv
