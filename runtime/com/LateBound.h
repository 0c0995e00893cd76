#pragma once

#include "runtime/com/Variant.h"

#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>

namespace kiv
{

// Errors of these calls are ComErrors, those of automation itself as the run-time errors that callers know
// them by (438 for a member that is not there), those that the object raised with what it said of them.

// The identifier of an automation object's member.
DISPID MemberOf(IDispatch* object, const wchar_t* name);

// The result of a member, which may be a method or a property: late-bound code cannot tell, and objects offer
// either. Arguments in the order in which a caller writes them.
Variant CallMember(IDispatch* object, DISPID member, std::initializer_list<Variant> arguments = {});
// The same with a single argument, which is not copied.
Variant CallMemberWith(IDispatch* object, DISPID member, const Variant& argument);

// What automation takes for a value: the value itself, or for an object what its default member is.
Variant PlainValue(const Variant& value);

// The object that a value refers to; null when it refers to none that can be called.
Microsoft::WRL::ComPtr<IDispatch> ObjectOf(const Variant& value);

} // namespace kiv
