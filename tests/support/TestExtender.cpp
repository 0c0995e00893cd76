#include "tests/support/TestExtender.h"

#include <iterator>

namespace kiv::test
{

HRESULT TestExtender::GetTypeInfoCount(UINT* count) noexcept
{
    *count = 0;
    return S_OK;
}

HRESULT TestExtender::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept
{
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT TestExtender::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept
{
    const auto found = values_.find(names[0]);
    if (count != 1 || found == values_.end())
        return DISP_E_UNKNOWNNAME;
    *ids = static_cast<DISPID>(std::distance(values_.begin(), found));
    return S_OK;
}

HRESULT TestExtender::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                             EXCEPINFO*, UINT*) noexcept
{
    if (member < 0 || member >= static_cast<DISPID>(values_.size()) || (flags & DISPATCH_PROPERTYGET) == 0)
        return DISP_E_MEMBERNOTFOUND;
    return VariantCopy(result, std::next(values_.begin(), member)->second.Borrow());
}

} // namespace kiv::test
