#pragma once

#include "runtime/com/Bstr.h"
#include "runtime/com/Errors.h"

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace kiv::test
{

// Attributes that have to be given back.
class TypeAttributes
{
public:
    explicit TypeAttributes(ITypeInfo* info) : info_(info) { Check(info->GetTypeAttr(&attributes_)); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    ~TypeAttributes() { info_->ReleaseTypeAttr(attributes_); }
    const TYPEATTR* operator->() const { return attributes_; }

private:
    ITypeInfo* info_;
    TYPEATTR* attributes_ = nullptr;
};

class FunctionDescription
{
public:
    FunctionDescription(ITypeInfo* info, UINT index) : info_(info)
    {
        Check(info->GetFuncDesc(index, &function_));
    }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;
    ~FunctionDescription() { info_->ReleaseFuncDesc(function_); }
    const FUNCDESC* operator->() const { return function_; }

private:
    ITypeInfo* info_;
    FUNCDESC* function_ = nullptr;
};

class VariableDescription
{
public:
    VariableDescription(ITypeInfo* info, UINT index) : info_(info)
    {
        Check(info->GetVarDesc(index, &variable_));
    }
    VariableDescription(const VariableDescription&) = delete;
    VariableDescription& operator=(const VariableDescription&) = delete;
    ~VariableDescription() { info_->ReleaseVarDesc(variable_); }
    const VARDESC* operator->() const { return variable_; }

private:
    ITypeInfo* info_;
    VARDESC* variable_ = nullptr;
};

struct Documentation
{
    std::wstring Name;
    std::wstring Help;
};

template<class Info>
Documentation DocumentationOf(Info* info, int member)
{
    Bstr name;
    Bstr help;
    Check(info->GetDocumentation(member, name.Receive(), help.Receive(), nullptr, nullptr));
    return {name.String(), help.String()};
}

// One member in one line: kind, identifier, name, parameters, result, flags. Hosts see a property's value as
// its result.
std::wstring MemberText(ITypeInfo* info, UINT index);

// The words of the flags that are set, a blank before each.
std::wstring WordsOf(UINT flags, std::initializer_list<std::pair<UINT, const wchar_t*>> words);

// The members of an interface without those of IDispatch, in order.
std::vector<std::wstring> OwnMembers(ITypeInfo* info);

// The vtable's side of a dual interface.
Microsoft::WRL::ComPtr<ITypeInfo> VtableSide(ITypeInfo* info);

} // namespace kiv::test
