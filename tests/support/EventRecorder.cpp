#include "tests/support/EventRecorder.h"

#include "runtime/com/Errors.h"

#include <gtest/gtest.h>

#include <utility>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

std::vector<DISPID> EventRecorder::TakeEvents()
{
    return std::exchange(events_, {});
}

HRESULT EventRecorder::QueryInterface(REFIID iid, void** object) noexcept
{
    return ComObject::QueryInterface(iid == interface_ ? IID_IDispatch : iid, object);
}

HRESULT EventRecorder::GetTypeInfoCount(UINT* count) noexcept
{
    *count = 0;
    return S_OK;
}

HRESULT EventRecorder::GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept
{
    return E_NOTIMPL;
}

HRESULT EventRecorder::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept
{
    return E_NOTIMPL;
}

HRESULT EventRecorder::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*,
                              EXCEPINFO*, UINT*) noexcept
{
    EXPECT_EQ(flags, DISPATCH_METHOD) << "event " << member;
    EXPECT_NE(arguments, nullptr) << "event " << member;
    events_.push_back(member);
    // A copy, which outlives a handler that sets another one or lets go of the sink.
    const Handler handler = handler_;
    const HRESULT answer = answer_;
    if (handler && arguments)
        handler(member, *arguments);
    return answer;
}

Connection::Connection(IUnknown* object, REFIID point, IUnknown* sink)
{
    ComPtr<IConnectionPointContainer> container;
    Check(object->QueryInterface(IID_PPV_ARGS(&container)));
    Check(container->FindConnectionPoint(point, &point_));
    Check(point_->Advise(sink, &cookie_));
}

Connection::~Connection()
{
    Disconnect();
}

void Connection::Disconnect()
{
    if (!point_)
        return;
    EXPECT_HRESULT_SUCCEEDED(point_->Unadvise(cookie_));
    point_.Reset();
}

} // namespace kiv::test
