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

    // The dispatch identifier of a member, DISPID_UNKNOWN when there is none.
    DISPID IdOf(const wchar_t* name) const;

    // IDispatch's questions for its description, of which there is one.
    static HRESULT GetTypeInfoCount(UINT* count) noexcept;
    static HRESULT GetTypeInfo(REFIID iid, UINT index, ITypeInfo** typeInfo) noexcept;

    HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept;
    // An object that is given where a value is expected stands for its default member; an error in asking it
    // is thrown, as ComError, before the member runs.
    HRESULT Invoke(IUnknown* instance, DISPID member, REFIID reserved, WORD flags, DISPPARAMS* arguments,
                   VARIANT* result, EXCEPINFO* exception, UINT* argumentInError) const;

private:
    // The type of a parameter that goes by value, or the one that a parameter refers to which the member may
    // write to, and what that is when left out.
    struct Parameter
    {
        VARTYPE Type = VT_EMPTY;         // VT_EMPTY: no value but an object
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
    static bool NeedsRepair(const Member& called, const DISPPARAMS& arguments);
    HRESULT InvokeAsItIs(IUnknown* instance, DISPID member, WORD flags, const DISPPARAMS& arguments,
                         VARIANT* result, EXCEPINFO* exception, UINT* argumentInError) const;
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
