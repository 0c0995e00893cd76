#pragma once

#include "runtime/core/NumberLocale.h"

namespace kiv
{

// How the user writes numbers, as the system's settings say now: a change of them is followed.
NumberLocale SystemLocale();

} // namespace kiv
