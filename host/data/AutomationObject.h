#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/Variant.h"

#include <span>
#include <vector>

namespace kiv::host
{

struct AutomationMember
{
    const wchar_t* Name;
    DISPID Id;
    std::size_t FewestArguments;
    std::size_t MostArguments;
};

// Base of objects that are only called by name, and whose members are methods and properties to read. What a
// member throws as DataError reaches the caller with its number, its description and the object's name.
class AutomationObject : public ComObject<IDispatch>
{
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* members) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argument) noexcept override;

protected:
    // Both are to outlive the object.
    AutomationObject(const wchar_t* name, std::span<const AutomationMember> members) :
        name_(name), members_(members)
    {
    }

    // Arguments in the order in which a caller writes them; one that is left out is empty.
    virtual Variant Call(DISPID member, const std::vector<Variant>& arguments) = 0;

private:
    const AutomationMember& MemberOf(DISPID id) const;

    const wchar_t* name_;
    std::span<const AutomationMember> members_;
};

} // namespace kiv::host
