#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Variant.h"
#include "tests/support/CallLog.h"
#include "tests/support/HostWindow.h"

#include <ocidl.h>
#include <oleidl.h>

#include <map>
#include <memory>
#include <set>

namespace kiv::test
{

// What a host leaves out.
struct SiteShape
{
    bool InPlace = true;     // IOleInPlaceSite
    bool ControlSite = true; // IOleControlSite
    bool Ambients = true;    // IDispatch
    bool Frame = true;       // GetWindowContext gives a frame, and a document window beside it
};

// The frame or document window of a recording site.
class RecordingFrame final : public ComObject<Chain<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>>
{
public:
    RecordingFrame(std::shared_ptr<CallLog> log, HWND window, bool isDocument) :
        log_(std::move(log)), window_(window), isDocument_(isDocument)
    {
    }

    // What it was last told to be the active object.
    IOleInPlaceActiveObject* ActiveObject() const { return active_.Get(); }
    void LetGo() { active_.Reset(); }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) noexcept override;
    HRESULT STDMETHODCALLTYPE GetBorder(RECT* border) noexcept override;
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object,
                                              LPCOLESTR name) noexcept override;
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU menu, LPOLEMENUGROUPWIDTHS widths) noexcept override;
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU menu, HOLEMENU oleMenu, HWND active) noexcept override;
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU menu) noexcept override;
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR text) noexcept override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, WORD id) noexcept override;

private:
    HRESULT Arrived(const char* name) const;

    std::shared_ptr<CallLog> log_;
    HWND window_;
    bool isDocument_;
    Microsoft::WRL::ComPtr<IOleInPlaceActiveObject> active_;
};

// A host's client site that records every call on it, in order, and holds the test to expect them. Questions
// for ambient properties may come at any time and are kept apart.
class RecordingSite final
    : public ComObject<IOleClientSite, Chain<IOleInPlaceSite, IOleWindow>, IOleControlSite, IDispatch>
{
public:
    explicit RecordingSite(SiteShape shape = {});

    CallLog& Log() { return *log_; }
    HostWindow& Window() { return window_; }
    RecordingFrame* Frame() { return frame_.Get(); }

    // Ambient properties by dispatch identifier; one that is not there is not known.
    void SetAmbient(DISPID ambient, Variant value) { ambients_[ambient] = std::move(value); }
    void RemoveAmbient(DISPID ambient) { ambients_.erase(ambient); }
    const std::set<DISPID>& AmbientsRead() const { return ambientsRead_; }
    void FailAmbients() { failAmbients_ = true; }
    // What the container adds to the control; nothing unless it is said here.
    void Extend(Microsoft::WRL::ComPtr<IDispatch> extender) { extender_ = std::move(extender); }

    // Where the control is to be, in pixels of the host's window.
    void PlaceAt(const RECT& position) { position_ = position; }
    const RECT& Position() const { return position_; }
    // Where the control last asked to be; known before the call is recorded.
    const RECT& AskedPosition() const { return asked_; }
    // Lets go of what the control handed over.
    void LetGo();

    // ComObject
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override;
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL show) noexcept override;
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override;

    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) noexcept override;
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* position, RECT* clip,
                                               OLEINPLACEFRAMEINFO* information) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE extent) noexcept override;
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL undoable) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override;
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override;
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) noexcept override;

    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override;
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL lock) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) noexcept override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container,
                                              DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL gotFocus) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override;

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentInError) noexcept override;

private:
    const SiteShape shape_;
    HostWindow window_;
    std::shared_ptr<CallLog> log_ = std::make_shared<CallLog>();
    Microsoft::WRL::ComPtr<RecordingFrame> frame_;
    Microsoft::WRL::ComPtr<RecordingFrame> document_;
    RECT position_ = {10, 10, 130, 50};
    RECT asked_ = {};
    std::map<DISPID, Variant> ambients_;
    std::set<DISPID> ambientsRead_;
    bool failAmbients_ = false;
    Microsoft::WRL::ComPtr<IDispatch> extender_;
};

} // namespace kiv::test
