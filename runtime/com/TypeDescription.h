#pragma once

#include "runtime/com/Errors.h"

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

namespace kiv
{

// What type information lends out, given back at the end. Throws ComError where it lends nothing.

class TypeAttributes
{
public:
    explicit TypeAttributes(ITypeInfo* info) : info_(info) { Check(info->GetTypeAttr(&attributes_)); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    ~TypeAttributes() { info_->ReleaseTypeAttr(attributes_); }

    const TYPEATTR* operator->() const { return attributes_; }

private:
    Microsoft::WRL::ComPtr<ITypeInfo> info_;
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
    Microsoft::WRL::ComPtr<ITypeInfo> info_;
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
    Microsoft::WRL::ComPtr<ITypeInfo> info_;
    VARDESC* variable_ = nullptr;
};

} // namespace kiv
