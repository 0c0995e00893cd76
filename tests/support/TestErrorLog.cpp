#include "tests/support/TestErrorLog.h"

#include "runtime/com/Bstr.h"

#include <gtest/gtest.h>

namespace kiv::test
{

HRESULT TestErrorLog::AddError(LPCOLESTR property, EXCEPINFO* exception) noexcept
{
    EXPECT_NE(property, nullptr);
    EXPECT_NE(exception, nullptr);
    if (property && exception)
    {
        const HRESULT code = exception->scode != 0 ? exception->scode : exception->wCode;
        entries_.push_back({property, code, std::wstring(Bstr::ViewOf(exception->bstrSource))});
    }
    return S_OK;
}

} // namespace kiv::test
