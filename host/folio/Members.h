#pragma once

#include "host/container/ControlSite.h"
#include "runtime/com/Errors.h"

#include <optional>
#include <string>

namespace kiv::host
{

// Nothing when the control has no such property or does not tell.
std::optional<Variant> TryGet(const ControlSite& site, std::wstring_view property);

// In words, what a property takes, from the type library: "True or False", "a whole number", "one of 0
// (Left), 1 (Right)". Empty when the object does not say.
std::string WhatPropertyTakes(IDispatch* object, const std::wstring& property);

// In words, why an object refused what it was asked; for a property, with what it takes.
std::string WhyRefused(IDispatch* object, const std::wstring& member, const ComError& error);

} // namespace kiv::host
