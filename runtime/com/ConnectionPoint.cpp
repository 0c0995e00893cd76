#include "runtime/com/ConnectionPoint.h"

#include "runtime/com/Enumerator.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

struct PointReference
{
    ComPtr<IConnectionPoint> Point;

    void CopyTo(IConnectionPoint** copy) const { Point.CopyTo(copy); }
};

} // namespace

ConnectionPoint::ConnectionPoint(IUnknown* owner, IConnectionPointContainer* container, REFIID iid) noexcept :
    owner_(owner), container_(container), iid_(iid)
{
}

std::vector<ComPtr<IUnknown>> ConnectionPoint::Sinks() const
{
    std::vector<ComPtr<IUnknown>> sinks;
    sinks.reserve(sinks_.size());
    for (const Connection& connection : sinks_)
        sinks.push_back(connection.Sink);
    return sinks;
}

void ConnectionPoint::Clear() noexcept
{
    // Releasing a sink may call back; by then the list is already empty.
    const std::vector<Connection> released = std::move(sinks_);
    sinks_.clear();
}

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** object) noexcept
{
    if (!object)
        return E_POINTER;
    *object = iid == IID_IUnknown || iid == IID_IConnectionPoint ? this : nullptr;
    if (!*object)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) noexcept
{
    if (!iid)
        return E_POINTER;
    *iid = iid_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept
{
    if (!container)
        return E_POINTER;
    *container = container_;
    container_->AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept
{
    if (!sink || !cookie)
        return E_POINTER;
    *cookie = 0;
    const ComPtr<IUnknown> held(owner_); // the sink may release it when it is asked what it is
    return Boundary([&] {
        Connection connection{nullptr,
                              ++lastCookie_}; // it may also connect another, which gets another number
        // A late-bound client may answer plain IDispatch only, which is all that events need.
        if (FAILED(sink->QueryInterface(iid_, reinterpret_cast<void**>(connection.Sink.GetAddressOf()))) &&
            (iid_ == IID_IPropertyNotifySink ||
             FAILED(sink->QueryInterface(IID_IDispatch,
                                         reinterpret_cast<void**>(connection.Sink.GetAddressOf())))))
            throw ComError(CONNECT_E_CANNOTCONNECT);
        sinks_.push_back(connection);
        *cookie = connection.Cookie;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept
{
    const ComPtr<IUnknown> held(owner_);
    const auto found = std::ranges::find(sinks_, cookie, &Connection::Cookie);
    if (found == sinks_.end())
        return CONNECT_E_NOCONNECTION;
    const ComPtr<IUnknown> released = std::move(found->Sink);
    sinks_.erase(found);
    return S_OK;
}

void ConnectionPoint::Connection::CopyTo(CONNECTDATA* data) const
{
    Sink.CopyTo(&data->pUnk);
    data->dwCookie = Cookie;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept
{
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return Boundary([&] {
        *connections = MakeCom<Enumerator<IEnumConnections, CONNECTDATA, Connection>>(sinks_).Detach();
    });
}

HRESULT EnumerateConnectionPoints(std::vector<IConnectionPoint*> points,
                                  IEnumConnectionPoints** result) noexcept
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    return Boundary([&] {
        std::vector<PointReference> references;
        for (IConnectionPoint* point : points)
            references.push_back({point});
        *result = MakeCom<Enumerator<IEnumConnectionPoints, IConnectionPoint*, PointReference>>(
                      std::move(references))
                      .Detach();
    });
}

} // namespace kiv
