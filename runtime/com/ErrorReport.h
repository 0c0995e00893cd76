#pragma once

#include <windows.h>

namespace kiv
{

// Leaves an IErrorInfo for the failed call: which interface, which class as the source, no text.
// Returns the result unchanged.
HRESULT ReportError(HRESULT result, REFIID iid, const wchar_t* source) noexcept;

} // namespace kiv
