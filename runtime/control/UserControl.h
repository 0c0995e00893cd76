#pragma once

#include "runtime/com/Aggregatable.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/CategorizeProperties.h"
#include "runtime/com/ConnectionPoint.h"
#include "runtime/com/DispatchTable.h"
#include "runtime/com/ErrorReport.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/PropertyBag.h"
#include "runtime/com/StreamPropertyBag.h"
#include "runtime/constituents/Constituent.h"
#include "runtime/constituents/ToolTip.h"
#include "runtime/control/AccessKeys.h"
#include "runtime/control/AmbientProperties.h"
#include "runtime/control/ControlClass.h"
#include "runtime/control/ExtenderProperties.h"
#include "runtime/control/FocusWatch.h"
#include "runtime/control/PropertyCategory.h"
#include "runtime/control/Surface.h"

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <functional>
#include <optional>
#include <span>

namespace kiv
{

class Label;
struct PropertyDescription;

// A control as its container drives it: all the interfaces of an in-place active object, turned into the
// event procedures of the control's class. The sources are split by topic.
class UserControl : public Aggregatable,
                    public IOleObject,
                    public IOleControl,
                    public IOleInPlaceObject,
                    public IOleInPlaceActiveObject,
                    public IViewObject2,
                    public IPersistPropertyBag,
                    public IPersistStreamInit,
                    public IPersistStorage,
                    public IProvideClassInfo2,
                    public IConnectionPointContainer,
                    public IQuickActivate,
                    public ISupportErrorInfo,
                    public IPerPropertyBrowsing,
                    public ICategorizeProperties,
                    protected ConstituentOwner,
                    protected AccessibleSource,
                    private SurfaceEvents
{
public:
    // IOleObject (UserControl_object.cpp, UserControl_activation.cpp)
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) noexcept override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) noexcept override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR application, LPCOLESTR object) noexcept override;
    HRESULT STDMETHODCALLTYPE Close(DWORD saveOption) noexcept override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, BOOL creation,
                                           DWORD reserved) noexcept override;
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                                     LPCRECT position) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    HRESULT STDMETHODCALLTYPE Update() noexcept override;
    HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override;
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) noexcept override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* type) noexcept override;
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) noexcept override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** connections) noexcept override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) noexcept override;

    // IOleControl (UserControl_object.cpp)
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) noexcept override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) noexcept override;
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID property) noexcept override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) noexcept override;

    // IOleWindow, IOleInPlaceObject, IOleInPlaceActiveObject (UserControl_activation.cpp)
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) noexcept override;
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL activate) noexcept override;
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL activate) noexcept override;
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window,
                                           BOOL frame) noexcept override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override;

    // IViewObject2 (UserControl_view.cpp)
    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                                   HDC information, HDC dc, LPCRECTL bounds, LPCRECTL windowBounds,
                                   BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR),
                                   ULONG_PTR proceedWith) noexcept override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                                          HDC target, LOGPALETTE** palette) noexcept override;
    HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspectInfo,
                                     DWORD* freeze) noexcept override;
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD freeze) noexcept override;
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                        SIZEL* size) noexcept override;

    // IPersist, IPersistPropertyBag, IPersistStreamInit, IPersistStorage (UserControl_persistence.cpp)
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) noexcept override;
    HRESULT STDMETHODCALLTYPE IsDirty() noexcept override;
    HRESULT STDMETHODCALLTYPE InitNew() noexcept override;
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;
    HRESULT STDMETHODCALLTYPE Load(IStream* stream) noexcept override;
    HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) noexcept override;
    HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) noexcept override;
    HRESULT STDMETHODCALLTYPE Load(IStorage* storage) noexcept override;
    HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
    HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) noexcept override;
    HRESULT STDMETHODCALLTYPE HandsOffStorage() noexcept override;

    // IProvideClassInfo2, IConnectionPointContainer, IQuickActivate, ISupportErrorInfo
    // (UserControl_object.cpp)
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** typeInfo) noexcept override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;
    HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept override;
    HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) noexcept override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

    // IPerPropertyBrowsing, ICategorizeProperties (UserControl_designer.cpp)
    HRESULT STDMETHODCALLTYPE GetDisplayString(DISPID property, BSTR* text) noexcept override;
    HRESULT STDMETHODCALLTYPE MapPropertyToPage(DISPID property, CLSID* page) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPredefinedStrings(DISPID property, CALPOLESTR* strings,
                                                   CADWORD* cookies) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPredefinedValue(DISPID property, DWORD cookie,
                                                 VARIANT* value) noexcept override;
    HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID property, int* category) noexcept override;
    HRESULT STDMETHODCALLTYPE GetCategoryName(int category, LCID locale, BSTR* name) noexcept override;

    // A persisted or bound property has changed. Not told to anybody while the control is loading.
    void PropertyChanged(const wchar_t* name);

protected:
    // outer: the aggregating object or null. Throws ComError when the window cannot be made.
    UserControl(const ControlClass& controlClass, IUnknown* outer);
    ~UserControl() override;

    // The event procedures, in the order of a control's life.
    virtual void UserControl_Initialize() {}
    virtual void UserControl_InitProperties() {}
    virtual void UserControl_ReadProperties(PropertyBag&) {}
    virtual void UserControl_Resize() {}
    // The window is at another resolution from now on: the same number of twips is another one of pixels, and
    // the surface's font has another handle. Comes before UserControl_Resize where both change.
    virtual void UserControl_ResolutionChanged() {}
    virtual void UserControl_Paint() {}
    // The colours of the system's scheme are others now; the control is painted anew in any case.
    virtual void UserControl_SystemColorsChanged() {}
    // Coordinates in twips of the surface. Button and Shift are the bits that the events of forms carry.
    static constexpr short LeftButton = 1;
    static constexpr short RightButton = 2;
    static constexpr short MiddleButton = 4;
    virtual void UserControl_MouseDown(short Button, short Shift, double X, double Y);
    virtual void UserControl_MouseUp(short Button, short Shift, double X, double Y);
    // A key set to 0 goes no further.
    virtual void UserControl_KeyDown(short& KeyCode, short Shift);
    virtual void UserControl_KeyPress(short& KeyAscii);
    virtual void UserControl_KeyUp(short& KeyCode, short Shift);
    // One of the letters of SetAccessKeys was typed with Alt, wherever the focus is.
    virtual void UserControl_AccessKeyPress(wchar_t) {}
    // The focus crosses the control's outer edge within its form. Moves between its own windows do not count,
    // and neither does another window in front, a message box or another program, which gives the focus back.
    virtual void UserControl_EnterFocus() {}
    virtual void UserControl_ExitFocus() {}
    virtual void UserControl_WriteProperties(PropertyBag&) {}
    // The control is about to leave its container's window.
    virtual void UserControl_Hide() {}
    virtual void UserControl_Terminate() {}

    Surface& TheSurface() { return surface_; }
    const Surface& TheSurface() const { return surface_; }
    const AmbientProperties& Ambient() const { return ambient_; }
    const ExtenderProperties& Extender() const { return extender_; }
    const ControlClass& Class() const { return class_; }

    // Repaints the surface, in the window or wherever the container shows it.
    void Refresh();
    // The label in view whose caption a tool tip tells in full where it is cut, null for none. Whoever brings
    // another into view, without repainting, has the tip updated.
    virtual const Label* TippedLabel() const { return nullptr; }
    void UpdateToolTip();
    // Asks the container for another size of the control's window, in pixels and with its border; without a
    // container it is taken. Not while loading: the control is laid out when that is over.
    void RequestSize(SIZE pixels);
    // The same until the control fits, or its container gives no more. needed: the size that the control has
    // to take as it is now; none when it fits.
    void RequestFit(const std::function<std::optional<SIZE>()>& needed);
    // Where a designer shows a property of the control.
    virtual PropertyCategory CategoryOf(std::wstring_view property) const = 0;
    // Whether the control is mirrored where the window around it is.
    virtual bool FollowsDirection() const { return true; }
    // The window that has the focus when the control has it: the surface's, unless a constituent takes it.
    virtual const Window& FocusWindow() const { return surface_; }
    // The letters that, with Alt, lead to the control; the container hears of a change.
    void SetAccessKeys(std::wstring_view letters);
    // Whether Enter is the control's own while it has the focus, and not for the container's default button.
    virtual bool TakesReturn() const { return false; }
    // What a modal form of the control's tells the container before it appears (false) and before it goes
    // (true): whether the container's other windows are to answer.
    std::function<void(bool enabled)> ModalTeller() const;
    // For an access key: the container hears that the control is active, and the keys go to it.
    void TakeFocus();
    bool TakesInput() const override;
    // Whether a key that otherwise is the container's (Tab, Enter, Esc) is the control's own just now.
    virtual bool Wants(WPARAM) const { return false; }
    // Raises an event of the control's source interface; arguments in declared order, by-reference ones
    // asking the host for an answer. The host may do anything in it, but the control lives until this
    // returns.
    void RaiseEvent(DISPID event, std::span<const Variant> arguments = {});
    // The same, also while the control is loading.
    void RaiseEventAtAnyTime(DISPID event, std::span<const Variant> arguments = {});
    // Key events: the host may change the key, or set it to 0.
    void RaiseKeyEvent(DISPID event, short& KeyCode, short Shift);
    void RaiseKeyEvent(DISPID event, short& KeyAscii);
    // Raises a run-time error, for members that cannot be read while the form is being designed.
    void RefuseAtDesignTime() const;

    // The outer edge of whatever containers call: the control lives until this returns, although the
    // container may drop it in any call back.
    template<class Body>
    HRESULT Entry(Body&& body) noexcept
    {
        const Microsoft::WRL::ComPtr<IUnknown> held(Outer());
        return Boundary(std::forward<Body>(body));
    }
    // The same for a member of the control's own interface: makes sure that the control has been given its
    // first properties, and reports an error with the control's name as source.
    template<class Body>
    HRESULT Member(Body&& body) noexcept
    {
        const Microsoft::WRL::ComPtr<IUnknown> held(Outer());
        try
        {
            EnsureInitialized();
            if constexpr (std::is_void_v<std::invoke_result_t<Body>>)
            {
                body();
                return S_OK;
            }
            else
            {
                const HRESULT result = body();
                Check(result);
                return result;
            }
        }
        catch (...)
        {
            return ReportCurrentException(class_.Properties, class_.Name);
        }
    }
    template<class T, class Body>
    HRESULT Get(T* result, Body&& body) noexcept
    {
        return result ? Member([&] { *result = body(); }) : E_POINTER;
    }

    void* FindInterface(REFIID iid) noexcept override;
    bool GoesElsewhere() noexcept override;
    void FinalRelease() noexcept override;

    // Runs UserControl_Initialize: after construction, so that the class's own procedure is called.
    void Initialize();

    // What the control is to assistive tools (UserControl_accessible.cpp): its role, value, description and
    // default action. Place and state are added as the windows tell them. So for its parts, which have names
    // as well, and places in pixels of the surface.
    virtual AccessibleInfo Accessible() const = 0;
    virtual AccessibleInfo AccessiblePart(int) const { return {}; }
    // As the container has it for the control, or the label before it on the form.
    virtual std::wstring AccessibleName() const;
    // Tells assistive tools what has happened (EVENT_OBJECT_...), not while the control is loading.
    void Announce(DWORD event, int part = CHILDID_SELF) const;
    bool TakeAccessibleFocus(int part) override;

    template<class Control>
    friend HRESULT CreateControl(IUnknown* outer, REFIID iid, void** object) noexcept;

private:
    enum class Activity
    {
        Inactive,
        InPlace,
        Ui
    };

    // SurfaceEvents (UserControl_window.cpp)
    LRESULT SurfaceMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void SurfacePaint() override { UserControl_Paint(); }
    IUnknown* SurfaceOwner() noexcept override { return Outer(); }

    // ConstituentOwner (UserControl_window.cpp)
    void PreviewKeyDown(short& keyCode) override;
    void PreviewKeyPress(short& keyAscii) override;
    void PreviewKeyUp(short& keyCode) override;
    void ConstituentFocus(bool gained, HWND other) override;
    IUnknown* ConstituentHolder() noexcept override { return Outer(); }

    // AccessibleSource, and ConstituentOwner's share in it (UserControl_accessible.cpp)
    AccessibleInfo Describe(int part) const override;
    std::wstring NameOf(int part) const override;
    IUnknown* AccessibleHolder() noexcept override { return Outer(); }
    std::optional<LRESULT> AnswerAccessible(HWND window, WPARAM wParam, LPARAM lParam) override;

    // UserControl_toolTip.cpp
    const Label* CutLabel() const;
    void RelayToToolTip(const MSG& message);

    void MousePressed(short button, LPARAM position);
    void MouseReleased(short button, WPARAM keys, LPARAM position);
    void FocusGained(HWND from);
    void FocusLost(HWND to);
    void FocusGoes(HWND next);
    bool LeavesFor(HWND window) const;
    void Leave();
    bool IsOwn(HWND window) const;

    // UserControl_events.cpp
    void Deliver(DISPID event, std::span<const Variant> arguments);
    void NotifyChanged(DISPID property);
    void DeliverHeld();

    // UserControl_object.cpp
    void TellAccessKeys();

    // UserControl_designer.cpp
    PropertyDescription Described(DISPID property) const;
    Variant ValueOf(DISPID property);

    // UserControl_activation.cpp
    void ActivateInPlace();
    void ShowIn(IOleInPlaceSite* site);
    void RequireActive() const;
    void ActivateUi();

    // UserControl_persistence.cpp
    void EnsureInitialized();
    void MakeNew();
    void LoadFrom(const std::function<void()>& read);
    void LoadFrom(const PropertyStream& stream);
    HRESULT LoadOrInitNew(const std::function<void()>& load) noexcept;
    PropertyStream Saved();

    // UserControl_view.cpp
    SIZEL ExtentOf(SIZE pixels) const;
    static SIZE PixelsOf(SIZEL extent, const Resolution& resolution);
    SIZE PixelsOf(SIZEL extent) const { return PixelsOf(extent, surface_.TheResolution()); }
    void SetSize(SIZEL extent);
    void FollowWindow();
    void FollowResolution();
    void FollowDirection();

    const ControlClass& class_;
    AmbientProperties ambient_;
    ExtenderProperties extender_;
    AccessKeys accessKeys_;
    std::wstring toldAccessKeys_; // as the container knows them
    Microsoft::WRL::ComPtr<IOleClientSite> clientSite_;
    Microsoft::WRL::ComPtr<IOleControlSite> controlSite_;
    Microsoft::WRL::ComPtr<IOleInPlaceSite> inPlaceSite_;
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> frame_;
    Microsoft::WRL::ComPtr<IOleInPlaceUIWindow> document_;
    Microsoft::WRL::ComPtr<IOleAdviseHolder> adviseHolder_;
    Microsoft::WRL::ComPtr<IAdviseSink> viewSink_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    ConnectionPoint events_;
    ConnectionPoint notifications_;
    Activity activity_ = Activity::Inactive;
    bool activating_ = false;
    bool deactivating_ = false;
    bool hasFocus_ = false;          // as UserControl_EnterFocus and UserControl_ExitFocus told it
    std::optional<FocusWatch> away_; // while the focus is with another window in front
    bool requestingSize_ = false;
    SIZEL extent_ = {}; // HIMETRIC
    bool initializeRan_ = false;
    bool hasProperties_ = false;
    bool loading_ = false;
    bool dirty_ = false;
    bool savedToOwnStorage_ = false;
    int freezeCount_ = 0;
    std::vector<std::function<void()>> held_; // what FreezeEvents holds back
    ToolTip toolTip_;
    AccessibleServer accessible_;
    // Last, so that its window goes first: its messages use all of the above.
    Surface surface_;
};

// Makes a control of a class for its class factory.
template<class Control>
HRESULT CreateControl(IUnknown* outer, REFIID iid, void** object) noexcept
{
    return Boundary([&] {
        auto* control = new Control(outer);
        const Microsoft::WRL::ComPtr<IUnknown> inner = TakeOver(control->Inner());
        control->Initialize();
        return inner->QueryInterface(iid, object);
    });
}

} // namespace kiv
