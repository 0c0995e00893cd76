#include "tests/support/TestPropertyBag.h"

#include <gtest/gtest.h>

namespace kiv::test
{

Variant TestPropertyBag::Find(const std::wstring& name) const
{
    const auto found = values_.find(name);
    return found == values_.end() ? Variant() : found->second;
}

std::vector<std::wstring> TestPropertyBag::NamesOf(const std::vector<Access>& accesses)
{
    std::vector<std::wstring> names;
    for (const Access& access : accesses)
        names.push_back(access.Name);
    return names;
}

HRESULT TestPropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept
{
    if (!name || !value)
        return E_POINTER;
    const VARTYPE wanted = V_VT(value);
    reads_.push_back({name, wanted});
    const auto found = values_.find(name);
    if (failReads_ || found == values_.end())
        return failReads_ ? E_FAIL : E_INVALIDARG;

    // The caller's variant only says what type it wants; a bag neither reads nor frees it.
    VARIANT answer = {};
    HRESULT result = VariantCopy(&answer, found->second.Borrow());
    const bool asIs = manner_ == Manner::AsStored || wanted == VT_EMPTY || wanted == V_VT(&answer);
    if (SUCCEEDED(result) && !asIs)
    {
        // An object is not asked for its default member.
        const bool fromObject = found->second.Object() && wanted != VT_UNKNOWN && wanted != VT_DISPATCH;
        result =
            fromObject ? DISP_E_TYPEMISMATCH : VariantChangeType(&answer, &answer, VARIANT_ALPHABOOL, wanted);
    }
    if (SUCCEEDED(result))
    {
        *value = answer;
        return S_OK;
    }
    VariantClear(&answer);
    if (log)
    {
        EXCEPINFO exception = {};
        exception.scode = result;
        log->AddError(name, &exception);
    }
    return result;
}

HRESULT TestPropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept
{
    if (!name || !value)
        return E_POINTER;
    if (writes_.size() >= firstFailingWrite_)
        return STG_E_MEDIUMFULL;
    EXPECT_EQ(values_.count(name), 0U) << "written twice";
    writes_.push_back({name, V_VT(value)});
    values_[name] = Variant(*value);
    return S_OK;
}

} // namespace kiv::test
