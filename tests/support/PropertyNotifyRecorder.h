#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"

#include <ocidl.h>

#include <functional>
#include <vector>

namespace kiv::test
{

// Keeps the dispatch identifiers that a control reports as changed. Being asked for permission fails the
// test: the controls never ask.
class PropertyNotifyRecorder final : public ComObject<IPropertyNotifySink>
{
public:
    std::vector<DISPID> TakeChanges();
    void OnChange(std::function<void(DISPID)> handler) { handler_ = std::move(handler); }

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID property) noexcept override;
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID property) noexcept override;

private:
    std::vector<DISPID> changes_;
    std::function<void(DISPID)> handler_;
};

} // namespace kiv::test
