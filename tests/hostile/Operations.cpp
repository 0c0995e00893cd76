#include "tests/hostile/Operations.h"

#include "tests/hostile/HostObjects.h"
#include "tests/hostile/Members.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Library.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/WindowClass.h"

#include <ole2.h>
#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// Every member with each of two sets of arguments.
void AddMembers(std::vector<Operation>& operations, const PublishedClass& what)
{
    ComPtr<IDispatch> control;
    Check(Library::UnderTest().Create(Id(what.Class)).As(&control));
    for (const Member& member : MembersOf(control.Get()))
    {
        const std::size_t variants = member.Takes.empty() ? 1 : 2;
        for (std::size_t number = 0; number < variants; ++number)
        {
            const auto run = [member, number](Host& host) {
                const auto called = host.Control<IDispatch>();
                std::vector<Variant> arguments;
                for (const VARTYPE type : member.Takes)
                    arguments.push_back(
                        ArgumentOf(type, number, host.Objects().Font.Get(), host.Objects().Database.Get()));
                if (called)
                    Invoke(called.Get(), member.Id, static_cast<WORD>(member.Kind), arguments);
            };
            operations.push_back({member.Name + (number == 0 ? "" : " (other)"), true, false, run});
            if (number == 0 && member.Kind != INVOKE_PROPERTYGET)
                operations.push_back({member.Name + " (inactive)", false, false, run});
        }
    }
}

void Press(Host& host, WPARAM key)
{
    SendMessageW(host.FocusWindow(), WM_KEYDOWN, key, 1);
    SendMessageW(host.FocusWindow(), WM_KEYUP, key, 1);
}

void ClickOn(HWND window)
{
    // A scroll bar stays in the press until the button is let go of, which a modal dialog may swallow.
    if (IsOfClass(window, "ScrollBar"))
        return;
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
}

void AddInput(std::vector<Operation>& operations)
{
    for (const char letter : {'y', '1', ' ', '\b', '/', '.', '\r', '\x1b', '\x16'})
    {
        operations.push_back(
            {"character " + std::to_string(static_cast<int>(letter)), true, false, [letter](Host& host) {
                 SendMessageW(host.FocusWindow(), WM_CHAR, static_cast<WPARAM>(letter), 1);
             }});
    }
    for (const WPARAM key : {VK_LEFT, VK_RIGHT, VK_DOWN, VK_END, VK_DELETE, VK_F4, VK_RETURN, VK_ESCAPE})
        operations.push_back(
            {"key " + std::to_string(key), true, false, [key](Host& host) { Press(host, key); }});
    operations.push_back({"Alt+Down", true, false, [](Host& host) {
                              SendMessageW(host.FocusWindow(), WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
                          }});
    operations.push_back({"click on each window", true, false, [](Host& host) {
                              for (const HWND window : WindowsOf(host.ControlWindow()))
                                  ClickOn(window);
                          }});
    operations.push_back({"right click", true, false, [](Host& host) {
                              SendMessageW(host.ControlWindow(), WM_RBUTTONDOWN, MK_RBUTTON,
                                           MAKELPARAM(4, 4));
                              SendMessageW(host.ControlWindow(), WM_RBUTTONUP, 0, MAKELPARAM(4, 4));
                          }});
    for (const UINT message : {WM_PASTE, WM_CUT, WM_CLEAR})
    {
        operations.push_back({"clipboard message " + std::to_string(message), true, false,
                              [message](Host& host) { SendMessageW(host.FocusWindow(), message, 0, 0); }});
    }
    operations.push_back({"open and choose", true, false, [](Host& host) {
                              for (const HWND window : WindowsOf(host.ControlWindow()))
                              {
                                  SendMessageW(window, CB_SHOWDROPDOWN, TRUE, 0);
                                  SendMessageW(window, CB_SETCURSEL, 1, 0);
                                  SendMessageW(window, WM_KEYDOWN, VK_DOWN, 1);
                                  SendMessageW(window, CB_SHOWDROPDOWN, FALSE, 0);
                              }
                          }});
    operations.push_back({"the focus leaves", true, false, [](Host& host) { SetFocus(host.Window()); }});
    operations.push_back({"the focus leaves and returns", true, false, [](Host& host) {
                              const HWND inside = host.FocusWindow();
                              SetFocus(host.Window());
                              SetFocus(inside);
                          }});
    operations.push_back({"the focus leaves after an entry", true, false, [](Host& host) {
                              SendMessageW(host.FocusWindow(), WM_CHAR, '1', 1);
                              SetFocus(host.Window());
                          }});
    operations.push_back({"repaint", true, false, [](Host& host) {
                              RedrawWindow(host.ControlWindow(), nullptr, nullptr,
                                           RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
                          }});
    operations.push_back({"the form goes", true, false, [](Host& host) { host.DestroyWindow(); }});
    operations.push_back({"shown and hidden", true, false, [](Host& host) {
                              ShowWindow(host.ControlWindow(), SW_HIDE);
                              ShowWindow(host.ControlWindow(), SW_SHOWNA);
                          }});
    operations.push_back({"disabled and enabled", true, false, [](Host& host) {
                              EnableWindow(host.ControlWindow(), FALSE);
                              EnableWindow(host.ControlWindow(), TRUE);
                          }});
}

// One with a call of an interface of the control's, if it still has it.
template<class Interface, class Body>
Operation Calling(std::string name, bool active, Body body)
{
    return {std::move(name), active, false, [body](Host& host) {
                if (const auto control = host.Control<Interface>())
                    body(host, control.Get());
            }};
}

void AddEmbedding(std::vector<Operation>& operations)
{
    for (const LONG verb : {OLEIVERB_UIACTIVATE, OLEIVERB_INPLACEACTIVATE, OLEIVERB_SHOW})
        operations.push_back(
            {"verb " + std::to_string(verb), false, false, [verb](Host& host) { host.Activate(verb); }});
    for (const LONG verb : {LONG{OLEIVERB_HIDE}, LONG{OLEIVERB_PRIMARY}, 7L})
        operations.push_back({"verb " + std::to_string(verb) + " (active)", true, false,
                              [verb](Host& host) { host.Activate(verb); }});
    operations.push_back(Calling<IOleInPlaceObject>("UIDeactivate", true,
                                                    [](Host&, auto* object) { object->UIDeactivate(); }));
    operations.push_back(Calling<IOleInPlaceObject>(
        "InPlaceDeactivate", true, [](Host&, auto* object) { object->InPlaceDeactivate(); }));
    operations.push_back(
        Calling<IOleObject>("Close", true, [](Host&, auto* object) { object->Close(OLECLOSE_SAVEIFDIRTY); }));
    operations.push_back(
        Calling<IOleObject>("no site", true, [](Host&, auto* object) { object->SetClientSite(nullptr); }));
    operations.push_back(Calling<IOleObject>("another site", false, [](Host& host, auto* object) {
        object->SetClientSite(host.Objects().OtherSite.Get());
    }));
    operations.push_back(Calling<IOleObject>("SetExtent", true, [](Host&, auto* object) {
        SIZEL size = {2000, 700};
        object->SetExtent(DVASPECT_CONTENT, &size);
    }));
    operations.push_back(Calling<IOleObject>("GetMoniker", true, [](Host&, auto* object) {
        ComPtr<IMoniker> moniker;
        object->GetMoniker(1, 1, &moniker);
    }));
    operations.push_back(Calling<IOleInPlaceObject>("SetObjectRects", true, [](Host&, auto* object) {
        const RECT place = {5, 5, 155, 65};
        object->SetObjectRects(&place, &place);
    }));
    operations.push_back(Calling<IOleControl>("ambient changes", true, [](Host&, auto* control) {
        control->OnAmbientPropertyChange(DISPID_UNKNOWN);
    }));
    operations.push_back(Calling<IOleControl>("mnemonic", true, [](Host&, auto* control) {
        MSG message = {nullptr, WM_SYSCHAR, 'y', 0, 0, {}};
        control->OnMnemonic(&message);
    }));
    operations.push_back(Calling<IOleControl>("frozen and thawed", true, [](Host& host, auto* control) {
        control->FreezeEvents(TRUE);
        host.SetEveryProperty();
        SendMessageW(host.FocusWindow(), WM_CHAR, '1', 1);
        control->FreezeEvents(FALSE);
    }));
    operations.push_back(Calling<IOleInPlaceActiveObject>("Tab", true, [](Host& host, auto* object) {
        MSG message = {host.FocusWindow(), WM_KEYDOWN, VK_TAB, 0, 0, {}};
        object->TranslateAccelerator(&message);
    }));
    operations.push_back(
        Calling<IPerPropertyBrowsing>("shown in a window", true, [](Host& host, auto* shown) {
            for (const Member& member : MembersOf(host.Control<IDispatch>().Get()))
            {
                Bstr text;
                shown->GetDisplayString(member.Id, text.Receive());
            }
        }));
    operations.push_back({"connect", true, false, [](Host& host) { host.Connect(); }});
    operations.push_back({"disconnect", true, false, [](Host& host) { host.Disconnect(); }});
    operations.push_back(Calling<IViewObject>("SetAdvise", true, [](Host& host, auto* view) {
        view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST | ADVF_ONLYONCE, host.Objects().View.Get());
    }));
    operations.push_back(Calling<IQuickActivate>("QuickActivate", false, [](Host& host, auto* quick) {
        QACONTAINER container = {};
        container.cbSize = sizeof container;
        container.pClientSite = host.Objects().Site.Get();
        container.pPropertyNotifySink = host.Objects().Notify.Get();
        container.pUnkEventSink = host.Objects().Events.Get();
        QACONTROL answer = {};
        answer.cbSize = sizeof answer;
        quick->QuickActivate(&container, &answer);
    }));
    for (const bool accompanied : {false, true})
    {
        operations.push_back({accompanied ? "the shared font changes" : "the font changes", true, accompanied,
                              [](Host& host) { host.ChangeFont(); }});
    }
    for (const bool active : {true, false})
    {
        operations.push_back({active ? "every property" : "every property (inactive)", active, active,
                              [](Host& host) { host.SetEveryProperty(); }});
    }
    operations.push_back(Calling<IOleInPlaceObject>("gone and back", true, [](Host& host, auto* object) {
        object->InPlaceDeactivate();
        host.Activate(OLEIVERB_UIACTIVATE);
    }));
}

void AddPersistence(std::vector<Operation>& operations)
{
    for (const bool active : {true, false})
    {
        operations.push_back(Calling<IPersistStreamInit>(active ? "made new" : "made new (inactive)", active,
                                                         [](Host&, auto* object) { object->InitNew(); }));
        operations.push_back(Calling<IPersistPropertyBag>(
            active ? "bag" : "bag (inactive)", active, [](Host& host, auto* object) {
                object->Save(host.Objects().Bag.Get(), TRUE, TRUE);
                object->Load(host.Objects().Bag.Get(), host.Objects().Log.Get());
            }));
        operations.push_back(Calling<IPersistStreamInit>(active ? "stream" : "stream (inactive)", active,
                                                         [](Host& host, auto* object) {
                                                             host.Objects().Rewind();
                                                             object->Save(host.Objects().Stream.Get(), TRUE);
                                                             host.Objects().Rewind();
                                                             object->Load(host.Objects().Stream.Get());
                                                         }));
        operations.push_back(Calling<IPersistStorage>(active ? "storage" : "storage (inactive)", active,
                                                      [](Host& host, auto* object) {
                                                          object->Save(host.Objects().Storage.Get(), FALSE);
                                                          object->Load(host.Objects().Storage.Get());
                                                      }));
    }
    operations.push_back(Calling<IPersistStreamInit>("GetSizeMax", false, [](Host&, auto* object) {
        ULARGE_INTEGER size = {};
        object->GetSizeMax(&size);
    }));
}

} // namespace

std::vector<Operation> OperationsOn(const PublishedClass& what)
{
    std::vector<Operation> operations;
    AddMembers(operations, what);
    AddInput(operations);
    AddEmbedding(operations);
    AddPersistence(operations);
    return operations;
}

} // namespace kiv::test
