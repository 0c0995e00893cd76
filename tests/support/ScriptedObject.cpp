#include "tests/support/ScriptedObject.h"

#include "runtime/com/Boundary.h"

#include <algorithm>

namespace kiv::test
{

void ScriptedObject::Add(const wchar_t* name, WORD kinds, std::size_t takes, Body body)
{
    members_.push_back({static_cast<DISPID>(members_.size() + 1), name, kinds, takes, std::move(body)});
}

void ScriptedObject::AddDefault(const wchar_t* name, WORD kinds, std::size_t takes, Body body)
{
    members_.push_back({DISPID_VALUE, name, kinds, takes, std::move(body)});
}

HRESULT ScriptedObject::GetTypeInfoCount(UINT* count) noexcept
{
    *count = 0;
    return S_OK;
}

HRESULT ScriptedObject::GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept
{
    return E_NOTIMPL;
}

HRESULT ScriptedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept
{
    if (count != 1)
        return E_INVALIDARG;
    const auto found = std::ranges::find_if(
        members_, [&](const Member& each) { return _wcsicmp(each.Name.c_str(), names[0]) == 0; });
    *ids = found == members_.end() ? DISPID_UNKNOWN : found->Id;
    return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

// A failure comes back as scripts and databases report theirs: in the exception's description.
HRESULT ScriptedObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                               EXCEPINFO* exception, UINT*) noexcept
{
    const Microsoft::WRL::ComPtr<ScriptedObject> held(this);
    const auto found = std::ranges::find(members_, id, &Member::Id);
    if (found == members_.end() || (found->Kinds & flags) == 0)
        return DISP_E_MEMBERNOTFOUND;
    if (arguments->cArgs != found->Takes)
        return DISP_E_BADPARAMCOUNT;
    const HRESULT outcome = Boundary([&] {
        std::vector<Variant> given;
        for (UINT i = arguments->cArgs; i-- > 0;)
            given.emplace_back(arguments->rgvarg[i]);
        Variant answer = found->Run(given);
        if (result)
            answer.DetachTo(result);
    });
    if (SUCCEEDED(outcome) || !exception)
        return outcome;
    *exception = {};
    exception->scode = outcome;
    exception->bstrSource = SysAllocString(L"ScriptedObject");
    exception->bstrDescription = SysAllocString(L"as the test wants it");
    return DISP_E_EXCEPTION;
}

} // namespace kiv::test
