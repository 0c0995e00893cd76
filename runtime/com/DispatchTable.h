#pragma once

#include "runtime/com/Variant.h"

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <map>
#include <vector>

namespace kiv
{

// Late binding for one dual interface, by its description in the module's type library: there is no other
// list of members. Kept once per thread.
class DispatchTable
{
public:
    // The table of an interface, loaded when it is first asked for; throws ComError when the module's library
    // does not have it.
    static DispatchTable& Of(REFIID iid);

    ITypeInfo* TypeInfo() const { return typeInfo_.Get(); }

    // The dispatch identifier of a member, DISPID_UNKNOWN when there is none.
    DISPID IdOf(const wchar_t* name) const;

    HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept;
    HRESULT Invoke(IUnknown* instance, DISPID member, REFIID reserved, WORD flags, DISPPARAMS* arguments,
                   VARIANT* result, EXCEPINFO* exception, UINT* argumentInError) const noexcept;

private:
    // A parameter that the member may write to: the type that it refers to and what it is when left out.
    struct Parameter
    {
        VARTYPE ReferredType = VT_EMPTY; // VT_EMPTY: an ordinary parameter by value
        bool Optional = false;
        Variant Default;
    };
    // A method, or one side of a property.
    struct Member
    {
        std::vector<Parameter> Parameters;
        std::size_t Required = 0; // how many arguments a call must give
        bool TakesReferences = false;
    };

    explicit DispatchTable(Microsoft::WRL::ComPtr<ITypeInfo> typeInfo);
    void ReadMember(UINT index);
    const Member* Find(DISPID id, WORD flags) const;
    HRESULT InvokeRepaired(IUnknown* instance, DISPID member, WORD flags, const DISPPARAMS& arguments,
                           VARIANT* result, EXCEPINFO* exception, UINT* argumentInError,
                           const std::vector<Parameter>& parameters) const;

    Microsoft::WRL::ComPtr<ITypeInfo> typeInfo_;
    std::map<std::pair<DISPID, INVOKEKIND>, Member> members_;
};

// The type description of a class or interface in the module's own type library.
Microsoft::WRL::ComPtr<ITypeInfo> LoadTypeInfo(REFGUID guid);

// The path of the module's file, which holds the type library.
std::wstring ModulePath();

} // namespace kiv
