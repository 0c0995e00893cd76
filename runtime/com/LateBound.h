#pragma once

#include "runtime/com/Variant.h"

#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>

namespace kiv
{

// The identifier of an automation object's member; throws ComError when there is none.
DISPID MemberOf(IDispatch* object, const wchar_t* name);

// The result of a member, which may be a method or a property: late-bound code cannot tell, and objects offer
// either. Arguments in the order in which a caller writes them. Throws ComError with the error that the
// object raised.
Variant CallMember(IDispatch* object, DISPID member, std::initializer_list<Variant> arguments = {});

// The object that a value refers to; null when it refers to none that can be called.
Microsoft::WRL::ComPtr<IDispatch> ObjectOf(const Variant& value);

} // namespace kiv
