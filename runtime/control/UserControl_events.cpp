#include "runtime/control/UserControl.h"

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv
{

void UserControl::PropertyChanged(const wchar_t* name)
{
    if (loading_)
        return;
    dirty_ = true;
    const DISPID property = DispatchTable::Of(class_.Properties).IdOf(name);
    if (freezeCount_ > 0)
        held_.emplace_back([this, property] { NotifyChanged(property); });
    else
        NotifyChanged(property);
    if (std::wstring_view(name) == L"Enabled")
        Announce(EVENT_OBJECT_STATECHANGE);
}

void UserControl::NotifyChanged(DISPID property)
{
    for (const ComPtr<IUnknown>& sink : notifications_.Sinks())
        static_cast<IPropertyNotifySink*>(sink.Get())->OnChanged(property);
}

void UserControl::RaiseEvent(DISPID event, std::span<const Variant> arguments)
{
    if (!loading_)
        RaiseEventAtAnyTime(event, arguments);
}

void UserControl::RaiseEventAtAnyTime(DISPID event, std::span<const Variant> arguments)
{
    if (freezeCount_ == 0)
    {
        Deliver(event, arguments);
        return;
    }
    // A held notification comes later; a question cannot wait for its answer and is not asked at all.
    const bool asks = std::ranges::any_of(
        arguments, [](const Variant& argument) { return (argument.Type() & VT_BYREF) != 0; });
    if (!asks)
    {
        held_.emplace_back([this, event, kept = std::vector<Variant>(arguments.begin(), arguments.end())] {
            Deliver(event, kept);
        });
    }
}

void UserControl::RaiseKeyEvent(DISPID event, short& KeyCode, short Shift)
{
    const Variant arguments[] = {Variant::ByReference(VT_I2, &KeyCode), Variant::ByReference(VT_I2, &Shift)};
    RaiseEvent(event, arguments);
}

void UserControl::RaiseKeyEvent(DISPID event, short& KeyAscii)
{
    const Variant arguments[] = {Variant::ByReference(VT_I2, &KeyAscii)};
    RaiseEvent(event, arguments);
}

void UserControl::RefuseAtDesignTime() const
{
    if (!ambient_.UserMode())
        throw ComError(GetNotSupportedAtDesignTime);
}

void UserControl::Deliver(DISPID event, std::span<const Variant> arguments)
{
    const ComPtr<IUnknown> held(Outer());
    for (const ComPtr<IUnknown>& sink : events_.Sinks())
    {
        // Borrowed contents, last argument first; fresh for each sink, which owns none of them.
        std::vector<VARIANT> reversed;
        std::ranges::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed),
                               [](const Variant& argument) { return argument.Get(); });
        DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
        static_cast<IDispatch*>(sink.Get())
            ->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
    }
}

HRESULT UserControl::FreezeEvents(BOOL freeze) noexcept
{
    return Entry([&] {
        if (freeze)
            ++freezeCount_;
        else if (freezeCount_ > 0 && --freezeCount_ == 0)
            DeliverHeld();
    });
}

void UserControl::DeliverHeld()
{
    const ComPtr<IUnknown> held(Outer());
    const std::vector<std::function<void()>> deliveries = std::move(held_);
    held_.clear();
    for (const auto& deliver : deliveries)
        deliver();
}

} // namespace kiv
