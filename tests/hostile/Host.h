#pragma once

#include "tests/com/PublishedClasses.h"
#include "tests/support/HostWindow.h"

#include "runtime/com/Variant.h"

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>
#include <wrl/client.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::test
{

struct HostObjects;

// What a host may do to a control from inside any call that the control makes on it.
enum class Action
{
    ReleaseAll,
    TakeDown,
    DestroyWindow,
    Deactivate,
    UiDeactivate,
    Close,
    DropSite,
    ChangeSite,
    Activate,
    SetProperties,
    LoadAnew,
    LoadStream,
    ChangeFont,
    MoveFocus,
    ModalDialog,
    Unadvise,
    Advise,
    Freeze,
    Draw,
    Save,
    DropOther, // another control that shares the font
    Fail,
    Throw, // as nobody may through these interfaces
    Count_
};
const char* NameOf(Action action);

// An action at one of the control's calls, or at each from there on.
struct Blow
{
    std::size_t Position = 0;
    Action What = Action::ReleaseAll;
    bool AndAfter = false;
};

// A host of one control at a time. It hears of every call that the control makes, whichever of its objects
// the call is on, and strikes at the one that it was told to.
class Host
{
public:
    Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host();

    // A control of the class, sited, new and connected to all sinks; active or not. Quietly.
    // accompanied: by another control of the class, which shares its font.
    void Begin(const PublishedClass& what, bool active, bool accompanied = false);
    // Dialogs of the calling thread are closed at once, but not while somebody else is told of them.
    static void ShowDialogsTo(std::atomic<HWND>* dialog);
    // From now on calls are counted, and the blow falls.
    void Arm(std::optional<Blow> blow);
    void Disarm() { armed_ = false; }
    // The names of the calls since Arm, and how many.
    const std::vector<std::string>& Calls() const { return calls_; }
    // What the control is good for now: nothing, with all references gone, or everything. Then lets go of it.
    // Returns what is wrong, empty for nothing. alone: nobody else in the process has a control.
    std::string End(bool alone = true);

    // For the host's objects: a call has arrived. Returns what to answer.
    HRESULT Arrived(const char* object, const char* member);
    // Where nothing can be thrown.
    HRESULT ArrivedQuietly(const char* object, const char* member) noexcept;

    // What operations use. The control may lose the host's reference while one is running, so each holds its
    // own.
    template<class Interface>
    Microsoft::WRL::ComPtr<Interface> Control() const
    {
        Microsoft::WRL::ComPtr<Interface> found;
        if (control_)
            control_.As(&found);
        return found;
    }
    const PublishedClass& Class() const { return *class_; }
    HostObjects& Objects() { return *objects_; }
    HWND Window() const { return window_->Handle(); }
    void DestroyWindow() { window_->Destroy(); }
    // The control's own window, and where keys go.
    HWND ControlWindow() const { return controlWindow_; }
    HWND FocusWindow() const;
    RECT Place() const { return {10, 10, 210, 40}; }
    void Activate(LONG verb);
    void SetEveryProperty();
    void ChangeFont();
    // All references but those that the caller took.
    void LoseControl();
    void Connect();
    void Disconnect();

private:
    Microsoft::WRL::ComPtr<IUnknown> Made(IOleClientSite* site);
    HRESULT Do(Action action);
    void TakeDown();
    std::string Tried();

    // First: the objects ask for them while they are being made.
    bool armed_ = false;
    bool acting_ = false;
    std::unique_ptr<HostWindow> window_;
    HWND other_ = nullptr; // another control of the form's
    std::unique_ptr<HostObjects> objects_;
    HHOOK hook_;
    const PublishedClass* class_ = nullptr;
    Microsoft::WRL::ComPtr<IUnknown> control_;
    Microsoft::WRL::ComPtr<IUnknown> companion_; // shares the font
    HWND controlWindow_ = nullptr;
    std::optional<Blow> blow_;
    std::vector<std::string> calls_;
    std::size_t arrived_ = 0;
    std::size_t fallen_ = 0;
    std::vector<std::pair<IID, DWORD>> cookies_;
    bool frozen_ = false;
    std::size_t turn_ = 0;
};

} // namespace kiv::test
