#pragma once

#include "host/formfile/FormValue.h"
#include "runtime/com/Variant.h"

#include <optional>

namespace kiv::host
{

// Whole numbers of 32 bits become Long, larger ones Double.
Variant ToVariant(const FormValue& value);

// Nothing for Null, Empty and what is no plain value.
std::optional<FormValue> ToFormValue(const Variant& value);

// As a person compares: 1 equals 1.0 and True equals True, but "1" does not equal 1.
bool Matches(const Variant& actual, const std::optional<FormValue>& expected);

// For messages: as a script would write it.
std::string Describe(const Variant& value);

} // namespace kiv::host
