#pragma once

#include "runtime/core/NumberLocale.h"

namespace kiv::test
{

// How the user writes numbers, changed in the system's settings and put back at the end. Throws ComError.
class UserLocale
{
public:
    explicit UserLocale(const NumberLocale& numbers);
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;
    ~UserLocale();

private:
    NumberLocale former_;
};

} // namespace kiv::test
