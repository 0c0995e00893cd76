#pragma once

#include "runtime/com/Variant.h"
#include "runtime/core/Currency.h"
#include "runtime/core/NumberLocale.h"

namespace kiv
{

// The number that an automation value stands for, exactly; none when it stands for none: Null, Empty, dates,
// objects, errors, and texts that are not numeric in the locale. True is -1.
std::optional<Decimal> NumberIn(const Variant& value, const NumberLocale& locale);

} // namespace kiv
