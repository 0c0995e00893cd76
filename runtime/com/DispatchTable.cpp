#include "runtime/com/DispatchTable.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/Module.h"
#include "runtime/com/PerThread.h"

#include <memory>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

struct LoadedLibrary
{
    ComPtr<ITypeLib> Library;
    std::map<std::wstring, std::unique_ptr<DispatchTable>> Tables;
};

std::wstring KeyOf(REFIID iid)
{
    wchar_t text[40] = {};
    StringFromGUID2(iid, text, ARRAYSIZE(text));
    return text;
}

class FunctionDescription
{
public:
    FunctionDescription(ITypeInfo* typeInfo, UINT index) : typeInfo_(typeInfo)
    {
        Check(typeInfo->GetFuncDesc(index, &description_));
    }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;
    ~FunctionDescription() { typeInfo_->ReleaseFuncDesc(description_); }

    const FUNCDESC* operator->() const { return description_; }

private:
    ITypeInfo* typeInfo_;
    FUNCDESC* description_ = nullptr;
};

VARTYPE PlainType(ITypeInfo* typeInfo, const TYPEDESC& type);

// The type behind a name: an enumeration is a Long, an alias is what it stands for.
VARTYPE NamedType(ITypeInfo* typeInfo, HREFTYPE reference)
{
    ComPtr<ITypeInfo> named;
    Check(typeInfo->GetRefTypeInfo(reference, &named));
    TYPEATTR* attributes = nullptr;
    Check(named->GetTypeAttr(&attributes));
    VARTYPE type = VT_EMPTY;
    if (attributes->typekind == TKIND_ENUM)
        type = VT_I4;
    else if (attributes->typekind == TKIND_ALIAS)
        type = PlainType(named.Get(), attributes->tdescAlias);
    named->ReleaseTypeAttr(attributes);
    return type;
}

VARTYPE PlainType(ITypeInfo* typeInfo, const TYPEDESC& type)
{
    return type.vt == VT_USERDEFINED ? NamedType(typeInfo, type.hreftype) : type.vt;
}

// A property's new value is named, whatever it is to be called, and stands last.
bool IsAssignment(const DISPPARAMS& arguments)
{
    return arguments.cNamedArgs == 1 && arguments.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
}

bool LeftOut(const VARIANT& argument)
{
    return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

// Storage for one argument that goes by reference, and the caller's own variant that it is written back to.
struct ReferredArgument
{
    Variant Content;
    VARIANT* Target = nullptr;

    void* Storage() { return &V_NONE(Content.Borrow()); }
};

} // namespace

std::wstring ModulePath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;)
    {
        const DWORD length =
            GetModuleFileNameW(ModuleInstance(), path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
            ThrowLastError();
        if (length < path.size())
        {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

ComPtr<ITypeInfo> LoadTypeInfo(REFGUID guid)
{
    ComPtr<ITypeLib>& library = PerThread<LoadedLibrary>().Library;
    if (!library)
        Check(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library));
    ComPtr<ITypeInfo> typeInfo;
    Check(library->GetTypeInfoOfGuid(guid, &typeInfo));
    return typeInfo;
}

DispatchTable& DispatchTable::Of(REFIID iid)
{
    auto& table = PerThread<LoadedLibrary>().Tables[KeyOf(iid)];
    if (!table)
        table.reset(new DispatchTable(LoadTypeInfo(iid)));
    return *table;
}

DispatchTable::DispatchTable(ComPtr<ITypeInfo> typeInfo) : typeInfo_(std::move(typeInfo))
{
    TYPEATTR* attributes = nullptr;
    Check(typeInfo_->GetTypeAttr(&attributes));
    const UINT count = attributes->cFuncs;
    typeInfo_->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count; ++i)
        ReadMember(i);
}

void DispatchTable::ReadMember(UINT index)
{
    const FunctionDescription function(typeInfo_.Get(), index);
    Member member;
    for (SHORT i = 0; i < function->cParams; ++i)
    {
        const ELEMDESC& element = function->lprgelemdescParam[i];
        const PARAMDESC& description = element.paramdesc;
        if ((description.wParamFlags & PARAMFLAG_FRETVAL) != 0)
            continue;
        Parameter parameter;
        parameter.Optional = (description.wParamFlags & PARAMFLAG_FOPT) != 0;
        if (!parameter.Optional)
            ++member.Required;
        if (element.tdesc.vt == VT_PTR && (description.wParamFlags & PARAMFLAG_FOUT) != 0)
        {
            parameter.ReferredType = PlainType(typeInfo_.Get(), *element.tdesc.lptdesc);
            if ((description.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0)
                parameter.Default = Variant(description.pparamdescex->varDefaultValue);
            member.TakesReferences = member.TakesReferences || parameter.ReferredType != VT_EMPTY;
        }
        member.Parameters.push_back(std::move(parameter));
    }
    members_[{function->memid, function->invkind}] = std::move(member);
}

// What a call with these flags means; a caller that cannot tell a property from a method sets both flags.
const DispatchTable::Member* DispatchTable::Find(DISPID id, WORD flags) const
{
    for (const INVOKEKIND kind : {INVOKE_FUNC, INVOKE_PROPERTYGET, INVOKE_PROPERTYPUT, INVOKE_PROPERTYPUTREF})
    {
        const auto found = members_.find({id, kind});
        if ((flags & kind) != 0 && found != members_.end())
            return &found->second;
    }
    return nullptr;
}

DISPID DispatchTable::IdOf(const wchar_t* name) const
{
    LPOLESTR names[] = {const_cast<wchar_t*>(name)};
    DISPID id = DISPID_UNKNOWN;
    return SUCCEEDED(typeInfo_->GetIDsOfNames(names, 1, &id)) ? id : DISPID_UNKNOWN;
}

HRESULT DispatchTable::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept
{
    return DispGetIDsOfNames(typeInfo_.Get(), names, count, ids);
}

HRESULT DispatchTable::Invoke(IUnknown* instance, DISPID member, REFIID reserved, WORD flags,
                              DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                              UINT* argumentInError) const noexcept
{
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!arguments)
        return E_POINTER;
    const Member* const called = Find(member, flags);
    // Not every ITypeInfo::Invoke counts the arguments before it calls.
    if (called && (arguments->cArgs > called->Parameters.size() || arguments->cArgs < called->Required))
        return DISP_E_BADPARAMCOUNT;
    if (called && called->TakesReferences && (arguments->cNamedArgs == 0 || IsAssignment(*arguments)))
    {
        return Boundary([&] {
            return InvokeRepaired(instance, member, flags, *arguments, result, exception, argumentInError,
                                  called->Parameters);
        });
    }
    return typeInfo_->Invoke(instance, member, flags, arguments, result, exception, argumentInError);
}

// ITypeInfo::Invoke hands a left-out by-reference argument to the method as null, fails a call with an
// explicit missing marker after the method has run, and refuses a script's variable for a typed reference. So
// each such argument is given storage of its own here, and what the method leaves in it goes back to the
// caller's variable.
HRESULT DispatchTable::InvokeRepaired(IUnknown* instance, DISPID member, WORD flags,
                                      const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception,
                                      UINT* argumentInError, const std::vector<Parameter>& parameters) const
{
    const std::size_t count = parameters.size();
    std::vector<ReferredArgument> referred(count);
    std::vector<VARIANT> repaired(count); // borrowed contents, last argument first
    for (std::size_t i = 0; i < count; ++i)
    {
        const Parameter& parameter = parameters[i];
        VARIANT& slot = repaired[count - 1 - i];
        VARIANT* given = i < arguments.cArgs ? &arguments.rgvarg[arguments.cArgs - 1 - i] : nullptr;
        const bool leftOut = !given || LeftOut(*given);
        if (leftOut && !parameter.Optional)
            return DISP_E_PARAMNOTOPTIONAL;
        const bool asItIs = !leftOut && (parameter.ReferredType == VT_EMPTY ||
                                         V_VT(given) == (VT_BYREF | parameter.ReferredType));
        if (asItIs)
        {
            slot = *given;
            continue;
        }
        const Variant content = leftOut ? parameter.Default : Variant(*given);
        const std::optional<Variant> typed = content.As(parameter.ReferredType);
        if (!typed)
        {
            if (argumentInError)
                *argumentInError = static_cast<UINT>(arguments.cArgs - 1 - i);
            return DISP_E_TYPEMISMATCH;
        }
        referred[i].Content = *typed;
        if (given && V_VT(given) == (VT_BYREF | VT_VARIANT))
            referred[i].Target = V_VARIANTREF(given);
        V_VT(&slot) = static_cast<VARTYPE>(VT_BYREF | parameter.ReferredType);
        V_BYREF(&slot) = referred[i].Storage();
    }

    DISPPARAMS repairedArguments = {repaired.data(), arguments.rgdispidNamedArgs, static_cast<UINT>(count),
                                    arguments.cNamedArgs};
    const HRESULT outcome =
        typeInfo_->Invoke(instance, member, flags, &repairedArguments, result, exception, argumentInError);
    for (ReferredArgument& argument : referred)
    {
        if (argument.Target && SUCCEEDED(outcome))
            Check(VariantCopy(argument.Target, argument.Content.Borrow()));
    }
    return outcome;
}

} // namespace kiv
