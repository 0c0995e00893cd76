#pragma once

#include "runtime/com/Errors.h"
#include "runtime/com/Variant.h"

#include <string>
#include <string_view>
#include <vector>

namespace kiv::host
{

// What an object raised: the code in its EXCEPINFO, so a run-time error 380 arrives as RunTimeError(380), and
// the description there.
class RaisedError final : public ComError
{
public:
    RaisedError(HRESULT result, std::wstring description) :
        ComError(result), description_(std::move(description))
    {
    }
    const std::wstring& Description() const { return description_; }

private:
    std::wstring description_;
};

// Late-bound calls. Each throws ComError with the error of the call, RaisedError where the object filled an
// EXCEPINFO.
Variant GetProperty(IDispatch* object, DISPID member);
Variant GetProperty(IDispatch* object, std::wstring_view name);
// An object is put by reference first, then by value.
// index: in the order in which a caller writes it, of a property that has one for each item.
void PutProperty(IDispatch* object, DISPID member, const Variant& value,
                 const std::vector<Variant>& index = {});
void PutProperty(IDispatch* object, std::wstring_view name, const Variant& value,
                 const std::vector<Variant>& index = {});
// Arguments in the order in which a caller writes them.
Variant CallMethod(IDispatch* object, std::wstring_view name, const std::vector<Variant>& arguments);

// The member's identifier; throws DISP_E_UNKNOWNNAME.
DISPID MemberId(IDispatch* object, std::wstring_view name);
bool HasMember(IDispatch* object, std::wstring_view name);

// Case ignored, as automation names are compared.
bool SameName(std::wstring_view one, std::wstring_view other);

} // namespace kiv::host
