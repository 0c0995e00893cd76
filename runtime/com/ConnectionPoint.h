#pragma once

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

#include <vector>

namespace kiv
{

// One connection point of an object, a part of it: references count on the owner.
class ConnectionPoint final : public IConnectionPoint
{
public:
    // owner: the object, not counted; container: its IConnectionPointContainer; iid: what sinks must answer.
    ConnectionPoint(IUnknown* owner, IConnectionPointContainer* container, REFIID iid) noexcept;
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    REFIID Interface() const noexcept { return iid_; }
    // A copy: sinks may come and go while one of them is called.
    std::vector<Microsoft::WRL::ComPtr<IUnknown>> Sinks() const;
    void Clear() noexcept;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return owner_->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return owner_->Release(); }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) noexcept override;
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

private:
    // A sink under the interface of the point, and the number under which the client knows it.
    struct Connection
    {
        Microsoft::WRL::ComPtr<IUnknown> Sink;
        DWORD Cookie;

        void CopyTo(CONNECTDATA* data) const;
    };

    IUnknown* owner_;
    IConnectionPointContainer* container_;
    const IID iid_;
    std::vector<Connection> sinks_;
    DWORD lastCookie_ = 0;
};

// The points of an object, for IConnectionPointContainer::EnumConnectionPoints.
HRESULT EnumerateConnectionPoints(std::vector<IConnectionPoint*> points,
                                  IEnumConnectionPoints** result) noexcept;

} // namespace kiv
