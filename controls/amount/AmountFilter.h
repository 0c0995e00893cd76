#pragma once

#include "controls/amount/AmountRules.h"
#include "controls/amount/CurrencyLimits.h"
#include "controls/amount/PercentLimits.h"

namespace kiv
{

// The filters of CurrencyRules and PercentRules.
FilteredKey FilterCurrencyKey(BoxState box, short keyAscii, const CurrencyLimits& limits,
                              const NumberLocale& locale);
FilteredKey FilterPercentKey(BoxState box, short keyAscii, const PercentLimits& limits,
                             const NumberLocale& locale);

} // namespace kiv
