#pragma once

#include "runtime/com/Bstr.h"
#include "runtime/com/LateBound.h"
#include "runtime/com/Variant.h"
#include "runtime/core/Currency.h"

#include <windows.h>

#include <wrl/client.h>

#include <string_view>
#include <type_traits>

namespace kiv
{

// How the members of a dual interface hand values in and out, and what those are to the library: texts for
// BSTR, bool for VARIANT_BOOL, Currency for CY, owners for references, numbers for enumerations.

inline VARIANT_BOOL ToAutomation(bool value, const VARIANT_BOOL*)
{
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline BSTR ToAutomation(std::wstring_view text, const BSTR*)
{
    return Bstr(text).Detach();
}
// A value that is kept as it was stored, and handed out as text.
inline BSTR ToAutomation(const Variant& value, const BSTR*)
{
    return Bstr(value.Text()).Detach();
}
inline VARIANT ToAutomation(Variant value, const VARIANT*)
{
    VARIANT result = {};
    value.DetachTo(&result);
    return result;
}
inline CY ToAutomation(Currency amount, const CY*)
{
    CY result = {};
    result.int64 = amount.Units();
    return result;
}
inline LONG ToAutomation(HWND window, const LONG*)
{
    return HandleToLong(window);
}
template<class Interface>
Interface* ToAutomation(const Microsoft::WRL::ComPtr<Interface>& object, Interface* const*)
{
    return Microsoft::WRL::ComPtr<Interface>(object).Detach();
}
template<class Number, class Value>
requires std::is_arithmetic_v<Number> || std::is_enum_v<Number> Number ToAutomation(Value value,
                                                                                    const Number*)
{
    return static_cast<Number>(value);
}

inline bool FromAutomation(VARIANT_BOOL value, const bool*)
{
    return value != VARIANT_FALSE;
}
inline std::wstring_view FromAutomation(BSTR text, const std::wstring*)
{
    return Bstr::ViewOf(text);
}
inline Variant FromAutomation(BSTR text, const Variant*)
{
    return Variant(Bstr::ViewOf(text));
}
// What an object among the arguments has as its value.
inline Variant FromAutomation(const VARIANT& value, const Variant*)
{
    return PlainValue(Variant(value));
}
inline Currency FromAutomation(CY amount, const Currency*)
{
    return Currency::FromUnits(amount.int64);
}
template<class Interface>
Microsoft::WRL::ComPtr<Interface> FromAutomation(Interface* object, const Microsoft::WRL::ComPtr<Interface>*)
{
    return object;
}
template<class Value, class Number>
requires(std::is_arithmetic_v<Number> || std::is_enum_v<Number>) Value
    FromAutomation(Number value, const Value*)
{
    return static_cast<Value>(value);
}

} // namespace kiv
