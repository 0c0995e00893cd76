#pragma once

namespace kiv
{

// The year that two digits stand for wherever a text is converted to a date: 00 to 29 are 2000 to 2029, 30 to
// 99 are 1930 to 1999. One fixed window, so that a form reads the same on every machine, whatever its
// settings.
//
// Entries of a date box whose layout shows two digits of the year follow a rule of their own (DateEntry),
// which fits the period that such a box starts with.
constexpr int LastTwoDigitYear = 2029;

// yearOfCentury: 0 to 99.
constexpr int FullYear(int yearOfCentury)
{
    const int year = LastTwoDigitYear - LastTwoDigitYear % 100 + yearOfCentury;
    return year > LastTwoDigitYear ? year - 100 : year;
}

} // namespace kiv
