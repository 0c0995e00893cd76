#include "runtime/com/DispatchTable.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/LateBound.h"
#include "runtime/com/Module.h"
#include "runtime/com/PerThread.h"
#include "runtime/com/TypeDescription.h"

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

VARTYPE PlainType(ITypeInfo* typeInfo, const TYPEDESC& type);

// The type behind a name: an enumeration is a Long, an alias is what it stands for.
VARTYPE NamedType(ITypeInfo* typeInfo, HREFTYPE reference)
{
    ComPtr<ITypeInfo> named;
    Check(typeInfo->GetRefTypeInfo(reference, &named));
    const TypeAttributes attributes(named.Get());
    if (attributes->typekind == TKIND_ENUM)
        return VT_I4;
    return attributes->typekind == TKIND_ALIAS ? PlainType(named.Get(), attributes->tdescAlias)
                                               : static_cast<VARTYPE>(VT_EMPTY);
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

const VARIANT& Behind(const VARIANT& argument)
{
    const bool isVariable = V_VT(&argument) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&argument);
    return isVariable ? *V_VARIANTREF(&argument) : argument;
}

// What a VARIANT parameter is given is the member's own to look at.
bool TakesValues(VARTYPE type)
{
    return type != VT_EMPTY && type != VT_VARIANT;
}

// Whether a value that a parameter of a type is given has to become another one first: an object that stands
// for its default member, and a Boolean, whose text is a word.
bool NeedsValue(const VARIANT& argument, VARTYPE type)
{
    const VARIANT& given = Behind(argument);
    switch (V_VT(&given))
    {
    case VT_BOOL:
    case VT_BYREF | VT_BOOL:
        return type == VT_BSTR;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return TakesValues(type) && V_UNKNOWN(&given);
    case VT_BYREF | VT_DISPATCH:
    case VT_BYREF | VT_UNKNOWN:
        return TakesValues(type) && V_UNKNOWNREF(&given) && *V_UNKNOWNREF(&given);
    default:
        return false;
    }
}

// Storage for one argument that is not passed as it was given, and the caller's own variant that one by
// reference is written back to.
struct HeldArgument
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
    const UINT count = TypeAttributes(typeInfo_.Get())->cFuncs;
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
            member.TakesReferences = member.TakesReferences || parameter.ReferredType != VT_EMPTY;
        }
        else
        {
            parameter.Type = PlainType(typeInfo_.Get(), element.tdesc);
            if (parameter.Type == VT_PTR || parameter.Type == VT_DISPATCH || parameter.Type == VT_UNKNOWN)
                parameter.Type = VT_EMPTY;
        }
        if ((description.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0)
            parameter.Default = Variant(description.pparamdescex->varDefaultValue);
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

HRESULT DispatchTable::GetTypeInfoCount(UINT* count) noexcept
{
    if (!count)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT DispatchTable::GetTypeInfo(REFIID iid, UINT index, ITypeInfo** typeInfo) noexcept
{
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    return Boundary([&] { Check(Of(iid).typeInfo_.CopyTo(typeInfo)); });
}

HRESULT DispatchTable::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept
{
    return DispGetIDsOfNames(typeInfo_.Get(), names, count, ids);
}

HRESULT DispatchTable::Invoke(IUnknown* instance, DISPID member, REFIID reserved, WORD flags,
                              DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                              UINT* argumentInError) const
{
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!arguments)
        return E_POINTER;
    const Member* const called = Find(member, flags);
    // Not every ITypeInfo::Invoke counts the arguments before it calls.
    if (called && (arguments->cArgs > called->Parameters.size() || arguments->cArgs < called->Required))
        return DISP_E_BADPARAMCOUNT;
    const bool inOrder = arguments->cNamedArgs == 0 || IsAssignment(*arguments);
    if (called && inOrder && NeedsRepair(*called, *arguments))
        return InvokeRepaired(instance, member, flags, *arguments, result, exception, argumentInError,
                              called->Parameters);
    return InvokeAsItIs(instance, member, flags, *arguments, result, exception, argumentInError);
}

bool DispatchTable::NeedsRepair(const Member& called, const DISPPARAMS& arguments)
{
    if (called.TakesReferences)
        return true;
    for (UINT i = 0; i < arguments.cArgs; ++i)
    {
        if (NeedsValue(arguments.rgvarg[arguments.cArgs - 1 - i], called.Parameters[i].Type))
            return true;
    }
    return false;
}

HRESULT DispatchTable::InvokeAsItIs(IUnknown* instance, DISPID member, WORD flags,
                                    const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception,
                                    UINT* argumentInError) const
{
    const HRESULT outcome = typeInfo_->Invoke(instance, member, flags, const_cast<DISPPARAMS*>(&arguments),
                                              result, exception, argumentInError);
    // Colours: late-bound hosts compare them with constants of their own, which are signed.
    if (SUCCEEDED(outcome) && result && V_VT(result) == VT_UI4)
        V_VT(result) = VT_I4;
    return outcome;
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
    std::vector<HeldArgument> held(count);
    std::vector<VARIANT> repaired(count); // borrowed contents, last argument first
    for (std::size_t i = 0; i < count; ++i)
    {
        const Parameter& parameter = parameters[i];
        VARIANT& slot = repaired[count - 1 - i];
        VARIANT* given = i < arguments.cArgs ? &arguments.rgvarg[arguments.cArgs - 1 - i] : nullptr;
        const bool leftOut = !given || LeftOut(*given);
        if (leftOut && !parameter.Optional)
            return DISP_E_PARAMNOTOPTIONAL;
        const bool byReference = parameter.ReferredType != VT_EMPTY;
        const bool asItIs = !leftOut && (byReference ? V_VT(given) == (VT_BYREF | parameter.ReferredType)
                                                     : !NeedsValue(*given, parameter.Type));
        if (asItIs)
        {
            slot = *given;
            continue;
        }
        const Variant content = leftOut ? parameter.Default : PlainValue(Variant(*given));
        const std::optional<Variant> typed =
            content.As(byReference ? parameter.ReferredType : parameter.Type);
        if (!typed)
        {
            if (argumentInError)
                *argumentInError = static_cast<UINT>(arguments.cArgs - 1 - i);
            return DISP_E_TYPEMISMATCH;
        }
        held[i].Content = *typed;
        if (!byReference)
        {
            slot = held[i].Content.Get();
            continue;
        }
        if (given && V_VT(given) == (VT_BYREF | VT_VARIANT))
            held[i].Target = V_VARIANTREF(given);
        V_VT(&slot) = static_cast<VARTYPE>(VT_BYREF | parameter.ReferredType);
        V_BYREF(&slot) = held[i].Storage();
    }

    DISPPARAMS repairedArguments = {repaired.data(), arguments.rgdispidNamedArgs, static_cast<UINT>(count),
                                    arguments.cNamedArgs};
    const HRESULT outcome =
        InvokeAsItIs(instance, member, flags, repairedArguments, result, exception, argumentInError);
    for (HeldArgument& argument : held)
    {
        if (argument.Target && SUCCEEDED(outcome))
            Check(VariantCopy(argument.Target, argument.Content.Borrow()));
    }
    return outcome;
}

} // namespace kiv
