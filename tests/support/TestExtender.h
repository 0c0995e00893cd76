#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Variant.h"

#include <map>
#include <string>

namespace kiv::test
{

// What a container adds to a control: properties to be read, late-bound, by their exact names.
class TestExtender final : public ComObject<IDispatch>
{
public:
    void Put(const std::wstring& name, Variant value) { values_[name] = std::move(value); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentInError) noexcept override;

private:
    std::map<std::wstring, Variant> values_; // identified by their places
};

} // namespace kiv::test
