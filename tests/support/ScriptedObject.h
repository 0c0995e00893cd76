#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Variant.h"

#include <oaidl.h>

#include <functional>
#include <string>
#include <vector>

namespace kiv::test
{

// An automation object made of functions, as a script's class or a database's object would be to a caller
// that knows nothing but names.
class ScriptedObject final : public ComObject<IDispatch>
{
public:
    using Body = std::function<Variant(const std::vector<Variant>& arguments)>; // may throw ComError

    // kinds: DISPATCH_METHOD, DISPATCH_PROPERTYGET or both: how a caller has to ask. takes: how many
    // arguments.
    void Add(const wchar_t* name, WORD kinds, std::size_t takes, Body body);
    // The member that a call without a name reaches.
    void AddDefault(const wchar_t* name, WORD kinds, std::size_t takes, Body body);

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentInError) noexcept override;

private:
    struct Member
    {
        DISPID Id;
        std::wstring Name;
        WORD Kinds;
        std::size_t Takes;
        Body Run;
    };

    std::vector<Member> members_;
};

} // namespace kiv::test
