#include "tests/support/PropertyNotifyRecorder.h"

#include <gtest/gtest.h>

#include <utility>

namespace kiv::test
{

std::vector<DISPID> PropertyNotifyRecorder::TakeChanges()
{
    return std::exchange(changes_, {});
}

HRESULT PropertyNotifyRecorder::OnChanged(DISPID property) noexcept
{
    changes_.push_back(property);
    const auto handler = handler_;
    if (handler)
        handler(property);
    return S_OK;
}

HRESULT PropertyNotifyRecorder::OnRequestEdit(DISPID property) noexcept
{
    ADD_FAILURE() << "asked whether property " << property << " may change";
    return S_OK;
}

} // namespace kiv::test
