#pragma once

#include <windows.h>

#include <oaidl.h>

namespace kiv
{

// Leaves an IErrorInfo for the failed call: which interface, which class as the source, no text.
// Returns the result unchanged.
HRESULT ReportError(HRESULT result, REFIID iid, const wchar_t* source) noexcept;

// The same for the exception being handled. An error that an object of the host's raised arrives as it was
// raised, with that object's own source and text.
HRESULT ReportCurrentException(REFIID iid, const wchar_t* source) noexcept;

// For IDispatch::Invoke: describes the exception being handled, if it is a run-time error, as the caller is
// to see it (exception may be null). Returns what Invoke is to return.
HRESULT RaiseCurrentException(EXCEPINFO* exception, const wchar_t* source) noexcept;

} // namespace kiv
