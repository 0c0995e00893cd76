#include "tests/hostile/Host.h"

#include "runtime/com/Boundary.h"
#include "runtime/core/Scoped.h"
#include "tests/hostile/HostObjects.h"
#include "tests/hostile/Members.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Library.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/Text.h"
#include "tests/support/WindowClass.h"

#include <ole2.h>
#include <olectl.h>

#include <map>
#include <stdexcept>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr const char* Names[] = {
    "ReleaseAll", "TakeDown",   "DestroyWindow", "Deactivate",    "UiDeactivate", "Close",
    "DropSite",   "ChangeSite", "Activate",      "SetProperties", "LoadAnew",     "LoadStream",
    "ChangeFont", "MoveFocus",  "ModalDialog",   "Unadvise",      "Advise",       "Freeze",
    "Draw",       "Save",       "DropOther",     "Fail",          "Throw",
};
static_assert(std::size(Names) == static_cast<std::size_t>(Action::Count_));

// One more sink at each call makes more calls the next time.
constexpr std::size_t MostBlows = 30;

const std::vector<Member>& MembersOfClass(const PublishedClass& what, IDispatch* control)
{
    thread_local std::map<unsigned long, std::vector<Member>> known;
    auto found = known.find(what.Class);
    if (found == known.end())
        found = known.emplace(what.Class, MembersOf(control)).first;
    return found->second;
}

// Windows that appear in front are closed again at once: whoever shows one waits for its end. Unless somebody
// else wants to do it.
thread_local std::atomic<HWND>* shownTo = nullptr;

// One message in a life is shown; the system has no room for more, and whoever waits for the user goes on.
thread_local int messagesShown = 0;

bool IsMessage(HWND window)
{
    return IsOfClass(window, "#32770");
}

// Wine keeps the system menu of a window whose making is refused. Some ten thousand of them are all that it
// has, and then it ends altogether.
void ForgetSystemMenu(HWND window)
{
    SetWindowLongW(window, GWL_STYLE, GetWindowLongW(window, GWL_STYLE) & ~WS_SYSMENU);
    GetSystemMenu(window, TRUE);
}

LRESULT CALLBACK CloseDialogs(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    constexpr LRESULT refused = 1;
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND && IsMessage(window) && messagesShown++ > 0)
    {
        ForgetSystemMenu(window);
        return refused;
    }
    if (code == HCBT_ACTIVATE && (IsMessage(window) || IsOfClass(window, "KivControls.Form")))
    {
        if (shownTo)
            *shownTo = window;
        else
            PostMessageW(window, WM_CLOSE, 0, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// A host's own modal dialog, which pumps messages until it is answered, here at once.
void RunModalDialog(HWND owner)
{
    const HWND dialog = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 60, 60, 50, 20, owner,
                                        nullptr, nullptr, nullptr);
    EnableWindow(owner, FALSE);
    SetFocus(dialog);
    DrainMessages();
    EnableWindow(owner, TRUE);
    ::DestroyWindow(dialog);
}

void Draw(IUnknown* control)
{
    ComPtr<IViewObject> view;
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(&view))))
        return;
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const RECTL bounds = {0, 0, 100, 30};
    view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}

} // namespace

const char* NameOf(Action action)
{
    return Names[static_cast<std::size_t>(action)];
}

Host::Host() :
    objects_(std::make_unique<HostObjects>(*this)),
    hook_(SetWindowsHookExW(WH_CBT, &CloseDialogs, nullptr, GetCurrentThreadId()))
{
}

void Host::ShowDialogsTo(std::atomic<HWND>* dialog)
{
    shownTo = dialog;
}

Host::~Host()
{
    UnhookWindowsHookEx(hook_);
}

void Host::Begin(const PublishedClass& what, bool active, bool accompanied)
{
    Disarm();
    messagesShown = 0;
    class_ = &what;
    if (!window_ || !window_->Handle())
    {
        window_ = std::make_unique<HostWindow>();
        other_ = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 0, 100, 50, 20, window_->Handle(),
                                 nullptr, nullptr, nullptr);
    }
    control_ = Made(objects_->Site.Get());
    if (accompanied)
        companion_ = Made(objects_->OtherSite.Get());
    const auto control = Control<IDispatch>();
    if (wcscmp(what.Name, L"EnumList") == 0)
    {
        PutRefByName(control.Get(), L"Database", Variant(objects_->Database.Get()));
        PutByName(control.Get(), L"StateCode", Variant(L"MA"));
        PutByName(control.Get(), L"TableName", Variant(L"Single"));
    }
    if (wcscmp(what.Name, L"ChkCombo") == 0)
    {
        for (const wchar_t* item : {L"One", L"Two", L"Three"})
            CallByName(control.Get(), L"AddItem", {Variant(item)});
    }
    Connect();
    if (active)
        Activate(OLEIVERB_UIACTIVATE);
}

ComPtr<IUnknown> Host::Made(IOleClientSite* site)
{
    const ComPtr<IUnknown> made = Library::UnderTest().Create(Id(class_->Class));
    ComPtr<IOleObject> object;
    Check(made.As(&object));
    Check(object->SetClientSite(site));
    ComPtr<IPersistStreamInit> persistence;
    Check(made.As(&persistence));
    Check(persistence->InitNew());
    ComPtr<IDispatch> properties;
    Check(made.As(&properties));
    PutRefByName(properties.Get(), L"Font",
                 Variant(static_cast<IDispatch*>(objects_->Font.Get()))); // not all have one
    if (site == objects_->OtherSite.Get())
        object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site, 0, Window(), nullptr);
    return made;
}

void Host::Connect()
{
    const auto control = control_;
    if (!control)
        return;
    ComPtr<IConnectionPointContainer> container;
    control.As(&container);
    // A sink that is asked what it is may connect others.
    const auto connect = [&](const IID& iid, IUnknown* sink) {
        ComPtr<IConnectionPoint> point;
        DWORD cookie = 0;
        if (SUCCEEDED(container->FindConnectionPoint(iid, &point)) && SUCCEEDED(point->Advise(sink, &cookie)))
            cookies_.emplace_back(iid, cookie);
    };
    connect(Id(class_->Events), objects_->Events.Get());
    connect(IID_IPropertyNotifySink, objects_->Notify.Get());
    ComPtr<IViewObject> view;
    control.As(&view);
    view->SetAdvise(DVASPECT_CONTENT, 0, objects_->View.Get());
    ComPtr<IOleObject> object;
    control.As(&object);
    DWORD cookie = 0;
    object->Advise(objects_->View.Get(), &cookie);
}

void Host::Disconnect()
{
    const auto control = control_;
    if (!control)
        return;
    ComPtr<IConnectionPointContainer> container;
    control.As(&container);
    for (const auto& [iid, cookie] : std::exchange(cookies_, {}))
    {
        ComPtr<IConnectionPoint> point;
        if (SUCCEEDED(container->FindConnectionPoint(iid, &point)))
            point->Unadvise(cookie);
    }
    ComPtr<IViewObject> view;
    control.As(&view);
    view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
}

void Host::Arm(std::optional<Blow> blow)
{
    blow_ = blow;
    calls_.clear();
    arrived_ = 0;
    fallen_ = 0;
    armed_ = true;
}

HRESULT Host::Arrived(const char* object, const char* member)
{
    // What the host does by itself is not the control's doing, unless it answers blow with blow.
    if (!armed_ || acting_)
        return S_OK;
    const std::size_t position = arrived_++;
    if (!blow_)
    {
        calls_.push_back(std::string(object) + "." + member);
        return S_OK;
    }
    if (position != blow_->Position && (!blow_->AndAfter || position < blow_->Position))
        return S_OK;
    if (++fallen_ > MostBlows)
        return S_OK;
    const Scoped<bool> acting(acting_, true);
    return Do(blow_->What);
}

HRESULT Host::ArrivedQuietly(const char* object, const char* member) noexcept
{
    return Boundary([&] { return Arrived(object, member); });
}

HRESULT Host::Do(Action action)
{
    const ComPtr<IUnknown> control =
        action == Action::ReleaseAll || action == Action::TakeDown ? nullptr : control_;
    const auto object = Control<IOleObject>();
    const auto inPlace = Control<IOleInPlaceObject>();
    switch (action)
    {
    case Action::ReleaseAll:
        LoseControl();
        return S_OK;
    case Action::TakeDown:
        TakeDown();
        return S_OK;
    case Action::DestroyWindow:
        window_->Destroy();
        return S_OK;
    case Action::Fail:
        return E_FAIL;
    case Action::Throw:
        // On the other architecture a program does not find the way out through another module: it ends
        // itself.
        if constexpr (sizeof(void*) == 8)
            throw std::runtime_error("a host's own");
        return E_UNEXPECTED;
    case Action::DropOther:
        companion_.Reset();
        return S_OK;
    case Action::MoveFocus:
        SetFocus(other_);
        return S_OK;
    case Action::ModalDialog:
        RunModalDialog(Window());
        return S_OK;
    case Action::ChangeFont:
        ChangeFont();
        return S_OK;
    default:
        break;
    }
    if (!control)
        return S_OK;
    switch (action)
    {
    case Action::Deactivate:
        inPlace->InPlaceDeactivate();
        break;
    case Action::UiDeactivate:
        inPlace->UIDeactivate();
        break;
    case Action::Close:
        object->Close(OLECLOSE_SAVEIFDIRTY);
        break;
    case Action::DropSite:
        object->SetClientSite(nullptr);
        break;
    case Action::ChangeSite:
        object->SetClientSite(objects_->OtherSite.Get());
        break;
    case Action::Activate:
        Activate(OLEIVERB_UIACTIVATE);
        break;
    case Action::SetProperties:
        SetEveryProperty();
        break;
    case Action::LoadAnew:
        Control<IPersistStreamInit>()->InitNew();
        break;
    case Action::LoadStream:
        objects_->Rewind();
        Control<IPersistStreamInit>()->Load(objects_->Stream.Get());
        break;
    case Action::Unadvise:
        Disconnect();
        break;
    case Action::Advise:
        Connect();
        break;
    case Action::Freeze:
        Control<IOleControl>()->FreezeEvents(frozen_ = !frozen_);
        break;
    case Action::Draw:
        Draw(control.Get());
        break;
    case Action::Save:
        objects_->Rewind();
        Control<IPersistStreamInit>()->Save(objects_->Stream.Get(), TRUE);
        Control<IPersistPropertyBag>()->Save(objects_->Bag.Get(), TRUE, TRUE);
        break;
    default:
        break;
    }
    return S_OK;
}

void Host::LoseControl()
{
    cookies_.clear();
    control_.Reset();
}

void Host::TakeDown()
{
    ComPtr<IUnknown> control;
    control.Swap(control_);
    if (!control)
        return;
    ComPtr<IOleInPlaceObject> inPlace;
    control.As(&inPlace);
    inPlace->UIDeactivate();
    inPlace->InPlaceDeactivate();
    inPlace.Reset();
    control_ = control;
    Disconnect();
    control_.Reset();
    ComPtr<IOleObject> object;
    control.As(&object);
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
}

void Host::Activate(LONG verb)
{
    const auto object = Control<IOleObject>();
    if (!object)
        return;
    const RECT place = Place();
    object->DoVerb(verb, nullptr, objects_->Site.Get(), 0, Window(), &place);
    HWND window = nullptr;
    if (const auto inPlace = Control<IOleInPlaceObject>(); inPlace && SUCCEEDED(inPlace->GetWindow(&window)))
        controlWindow_ = window;
}

HWND Host::FocusWindow() const
{
    const HWND focus = GetFocus();
    return focus && controlWindow_ && IsChild(controlWindow_, focus) ? focus : controlWindow_;
}

void Host::SetEveryProperty()
{
    const auto control = Control<IDispatch>();
    if (!control)
        return;
    for (const Member& member : MembersOfClass(*class_, control.Get()))
    {
        if ((member.Kind == INVOKE_PROPERTYPUT || member.Kind == INVOKE_PROPERTYPUTREF) &&
            member.Takes.size() == 1)
            Invoke(control.Get(), member.Id, static_cast<WORD>(member.Kind),
                   {ArgumentOf(member.Takes[0], ++turn_, objects_->Font.Get(), objects_->Database.Get())});
    }
}

void Host::ChangeFont()
{
    ComPtr<IFont> font;
    if (FAILED(objects_->Font.As(&font)))
        return;
    ++turn_;
    font->put_Size({{turn_ % 2 == 0 ? 97500UL : 120000UL, 0}});
}

std::string Host::End(bool alone)
{
    Disarm();
    std::string wrong;
    if (control_)
        wrong = Tried();
    const HWND window = controlWindow_;
    if (frozen_ && control_)
        Control<IOleControl>()->FreezeEvents(FALSE);
    frozen_ = false;
    TakeDown();
    companion_.Reset();
    controlWindow_ = nullptr;
    cookies_.clear();
    DrainMessages();
    for (const std::string& name : objects_->Held())
        wrong += " somebody holds " + name + ";";
    if (window && IsWindow(window))
        wrong += " the window is left;";
    if (alone && Library::UnderTest().CanUnloadNow() != S_OK)
        wrong += " objects are left;";
    return wrong;
}

// Whether it can be put on a form again, as if nothing had been.
std::string Host::Tried()
{
    std::string wrong;
    const auto object = Control<IOleObject>();
    const auto inPlace = Control<IOleInPlaceObject>();
    const auto isOnForm = [&] {
        HWND window = nullptr;
        return SUCCEEDED(inPlace->GetWindow(&window)) && IsChild(Window(), window);
    };
    HWND window = nullptr;
    if (inPlace->GetWindow(&window) != S_OK && controlWindow_ && IsChild(Window(), controlWindow_))
        wrong += " the window of an inactive control is on the form;";
    if (!isOnForm())
    {
        inPlace->InPlaceDeactivate();
        if (!window_->Handle())
            window_ = std::make_unique<HostWindow>();
        object->SetClientSite(objects_->Site.Get());
        const RECT place = Place();
        const HRESULT activated =
            object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, objects_->Site.Get(), 0, Window(), &place);
        if (FAILED(activated))
            wrong += " it can not be activated again: " + Hr(activated) + ";";
        else if (!isOnForm())
            wrong += " its window is not on the form;";
    }
    if (SUCCEEDED(inPlace->GetWindow(&window)))
        controlWindow_ = window;
    if (FAILED(Control<IPersistStreamInit>()->InitNew()))
        wrong += " it can not be made new;";
    Draw(control_.Get());
    return wrong;
}

} // namespace kiv::test
