#pragma once

#include "host/container/FormItem.h"
#include "host/container/PropertyBag.h"
#include "host/container/SiteCalls.h"
#include "host/container/SiteObserver.h"
#include "host/container/SiteOptions.h"

#include <oleidl.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::host
{

class ClientSite;
class EventSink;
class Extender;

// How far a control has come on its site.
enum class SiteState
{
    Closed,
    Loaded,
    InPlaceActive,
    UIActive,
};

// One hosted control: creates nothing itself, but sites, loads, activates and tears down what Form::Add was
// given. All of a control's calls arrive at the ClientSite behind it, so a control that keeps its site too
// long, or calls it after Close, only gets errors.
class ControlSite final : public FormItem, private SiteCalls
{
public:
    // With the control sited and loaded, up to its first activation; throws what the control fails with.
    static std::unique_ptr<ControlSite> Make(ItemOwner& form, IUnknown* control, SiteOptions options);
    ~ControlSite() override;

    // The control's default interface and identity; null once closed. The callers of the typed Query get null
    // when the control has no such interface.
    IDispatch* Control() const { return dispatch_.Get(); }
    template<class Interface>
    Microsoft::WRL::ComPtr<Interface> Query() const
    {
        Microsoft::WRL::ComPtr<Interface> found;
        if (control_)
            static_cast<void>(control_.As(&found));
        return found;
    }

    // The control's members by name. Get and Put throw ComError with what the control returned.
    Variant Get(std::wstring_view property) const;
    void Put(std::wstring_view property, const Variant& value, const std::vector<Variant>& index = {});
    Variant Call(std::wstring_view method, const std::vector<Variant>& arguments = {});
    bool HasMember(std::wstring_view name) const;

    // The control's window while it is in-place active, else null.
    HWND Window() const;
    SiteState State() const { return state_; }
    const SiteOptions& Options() const { return options_; }
    // OLEMISC_… flags of the control.
    DWORD MiscStatus() const { return miscStatus_; }

    // Life. Each answers with the control's result; a call that finds nothing to do answers S_FALSE.
    HRESULT Activate();     // in place, without focus
    HRESULT UIActivate();   // with focus
    HRESULT UIDeactivate(); // focus given up, window stays
    HRESULT Deactivate();   // window gone, control still loaded
    HRESULT Close();        // InPlaceDeactivate, Close, sinks off, SetClientSite(null), release
    HRESULT Save(PropertyBag& bag, bool clearDirty = true);
    HRESULT Save(IStream* stream, bool clearDirty = true);

    // Changes the ambient mode of a living control and tells it so.
    void SetUserMode(bool userMode);
    void AmbientChanged(DISPID ambient);

    // Whom the control's calls and events are told from now on, in place of the former one; null: nobody.
    void Observe(std::shared_ptr<SiteObserver> observer) { options_.observer = std::move(observer); }

    // The object that a form's code sees: Name, Left, Top, …, and the control's own members through Object.
    IDispatch* ExtendedControl() const;
    // Draws the control through IViewObject, active or not; bounds in the device context's logical units.
    HRESULT Draw(HDC context, const RECT& bounds) const;

    // FormItem
    HWND OwnWindow() const override { return Window(); }
    void Move(const RECT& bounds) override;
    void SetVisible(bool visible) override;
    bool Enabled() const override;
    void SetEnabled(bool enabled) override;
    bool TakesFocus() const override;
    bool HasFocus() const override;
    void Focus() override;
    bool HasMnemonic(const MSG& message) const override;
    void OnMnemonic(MSG& message) override;
    bool EatsReturn() const;
    bool EatsEscape() const;

private:
    ControlSite(ItemOwner& form, IUnknown* control, SiteOptions options);

    // Life, in order; Attach is all of it up to the first activation.
    void Attach();
    HRESULT QuickActivate();
    void SetClientSite(IOleClientSite* site);
    HRESULT Load();
    HRESULT InitNew();
    void Connect();
    void ConnectNotifications();
    Microsoft::WRL::ComPtr<IConnectionPoint> NotificationPoint() const;
    void AgreeOnSize();

    // SiteCalls
    bool Has(REFIID iid) const override;
    std::optional<HRESULT> Asked(std::string_view call) override;
    void Activated() override;
    void Deactivated() override;
    void UIActivated() override;
    void UIDeactivated() override;
    void GotFocus() override;
    void WantsBounds(const RECT& bounds) override;
    void ControlInfoChanged() override;
    void ViewChanged() override;
    void PropertyChanged(DISPID member) override;
    void Logged(const LoggedError& error) override;
    bool PassedKey(MSG& message) override;
    SitePlace Place() const override;
    IDispatch* Extended() const override;
    std::optional<Variant> Ambient(DISPID ambient) const override;

    void OnContainerChanged() override;
    void TakeInputAsContainer();
    void Heard(const EventRecord& event, DISPPARAMS& raised);
    HRESULT DoVerb(LONG verb);
    void ReadControlInfo();
    std::wstring NameOfMember(DISPID member) const;

    SiteOptions options_;
    Microsoft::WRL::ComPtr<IUnknown> control_;
    Microsoft::WRL::ComPtr<IDispatch> dispatch_;
    Microsoft::WRL::ComPtr<ClientSite> site_;
    Microsoft::WRL::ComPtr<EventSink> events_;
    Microsoft::WRL::ComPtr<Extender> extender_;
    DWORD miscStatus_ = 0;
    DWORD notifyCookie_ = 0;
    CONTROLINFO controlInfo_ = {};
    SiteState state_ = SiteState::Closed;
    bool containerCanBeSeen_ = true; // as the control was told last
};

} // namespace kiv::host
