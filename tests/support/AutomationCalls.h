#pragma once

#include "runtime/com/Variant.h"

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

namespace kiv::test
{

// What one IDispatch::Invoke left behind.
struct CallOutcome
{
    HRESULT Result = E_FAIL;
    Variant Value;
    UINT ArgumentInError = ~0U;
    // From EXCEPINFO; the rest is empty unless Result is DISP_E_EXCEPTION.
    HRESULT ErrorCode = S_OK;
    std::wstring ErrorSource;
    std::wstring ErrorDescription;
};

// Arguments in the order of the declaration.
CallOutcome Invoke(IDispatch* object, DISPID member, WORD flags, const std::vector<Variant>& arguments = {});

// By name; an unknown name gives its GetIDsOfNames result.
CallOutcome GetByName(IDispatch* object, const wchar_t* name);
CallOutcome PutByName(IDispatch* object, const wchar_t* name, const Variant& value);
CallOutcome PutRefByName(IDispatch* object, const wchar_t* name, const Variant& value);
CallOutcome CallByName(IDispatch* object, const wchar_t* name, const std::vector<Variant>& arguments = {});

DISPID IdOfName(IDispatch* object, const wchar_t* name);

// The missing-argument marker.
Variant Missing();

// A number as a value of another type.
Variant Of(VARTYPE type, double number);

// The call has raised a run-time error: with its number and the control's name, and no text, which is the
// host's.
void ExpectError(const CallOutcome& outcome, HRESULT code, const wchar_t* source);
// The same for a call through the vtable that has just failed.
void ExpectErrorInfo(const wchar_t* source);

// Type and value for people, as "VT 8 \"Y\"": compare these, so that a failed comparison can be read.
std::string Show(const Variant& value);

} // namespace kiv::test
