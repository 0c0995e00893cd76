#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv::bench
{

// Prints the rows of CurrencyBox and PercentBox, made by these factories.
void RunAmountRows(IClassFactory* currency, IClassFactory* percent, HWND parent);

} // namespace kiv::bench
