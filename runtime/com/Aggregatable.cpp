#include "runtime/com/Aggregatable.h"

namespace kiv
{

Aggregatable::Aggregatable(IUnknown* outer) noexcept : inner_(*this), outer_(outer ? outer : &inner_) {}

HRESULT Aggregatable::InnerUnknown::QueryInterface(REFIID iid, void** object) noexcept
{
    if (!object)
        return E_POINTER;
    if (iid == IID_IUnknown)
    {
        *object = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    *object = object_.FindInterface(iid);
    if (!*object)
        return E_NOINTERFACE;
    // References to the other interfaces count on the outer identity.
    object_.Outer()->AddRef();
    return S_OK;
}

ULONG Aggregatable::InnerUnknown::AddRef() noexcept
{
    return ++references_;
}

ULONG Aggregatable::InnerUnknown::Release() noexcept
{
    const ULONG left = --references_;
    if (left == 0 && !object_.GoesElsewhere())
    {
        // Held again while it is taken down: what that calls may count references up and down.
        references_ = 1;
        // An aggregating object is on its way out itself and must not be called any more.
        object_.outer_ = this;
        object_.FinalRelease();
        delete &object_;
    }
    return left;
}

} // namespace kiv
