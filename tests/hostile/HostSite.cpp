#include "tests/hostile/HostSite.h"

#include "runtime/com/MakeCom.h"
#include "runtime/com/Variant.h"
#include "tests/hostile/HostObjects.h"
#include "tests/hostile/Told.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

class Site final
    : public ToldDispatch<IOleClientSite, Chain<IOleInPlaceSite, IOleWindow>, IOleControlSite, IDispatch>
{
public:
    explicit Site(Host& host) : ToldDispatch(host, "Site") {}

    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return Tell("SaveObject"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override
    {
        *moniker = nullptr;
        Tell("GetMoniker");
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override
    {
        *container = nullptr;
        Tell("GetContainer");
        return E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return Tell("ShowObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return Tell("OnShowWindow"); }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override
    {
        return Tell("RequestNewObjectLayout");
    }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override
    {
        const HRESULT answer = Tell("GetWindow");
        *window = SUCCEEDED(answer) ? TheHost().Window() : nullptr;
        return answer;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override
    {
        return Tell("ContextSensitiveHelp");
    }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return Tell("CanInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override { return Tell("OnInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override { return Tell("OnUIActivate"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* position, RECT* clip,
                                               OLEINPLACEFRAMEINFO* information) noexcept override
    {
        *frame = nullptr;
        *document = nullptr;
        const HRESULT answer = Tell("GetWindowContext");
        if (FAILED(answer))
            return answer;
        TheHost().Objects().Frame.CopyTo(frame);
        TheHost().Objects().Document.CopyTo(document);
        *position = TheHost().Place();
        *clip = {0, 0, 1000, 1000};
        *information = {information->cb, FALSE, TheHost().Window(), nullptr, 0};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return Tell("Scroll"); }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override { return Tell("OnUIDeactivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override { return Tell("OnInPlaceDeactivate"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return Tell("DiscardUndoState"); }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return Tell("DeactivateAndUndo"); }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) noexcept override
    {
        const RECT place = *position;
        const HRESULT answer = Tell("OnPosRectChange");
        if (const auto control = TheHost().Control<IOleInPlaceObject>(); control && SUCCEEDED(answer))
            control->SetObjectRects(&place, &place);
        return answer;
    }

    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override
    {
        return Tell("OnControlInfoChanged");
    }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return Tell("LockInPlaceActive"); }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) noexcept override
    {
        *extended = nullptr;
        const HRESULT answer = Tell("GetExtendedControl");
        return SUCCEEDED(answer) ? TheHost().Objects().Extender.CopyTo(extended) : answer;
    }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) noexcept override
    {
        return Tell("TransformCoords");
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) noexcept override
    {
        return Tell("TranslateAccelerator");
    }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) noexcept override { return Tell("OnFocus"); }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override { return Tell("ShowPropertyFrame"); }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) noexcept override
    {
        const HRESULT answer = Tell("Ambient");
        if (FAILED(answer))
            return answer;
        if (member == DISPID_AMBIENT_USERMODE)
            Variant(true).DetachTo(result);
        else if (member == DISPID_AMBIENT_FONT)
            Variant(static_cast<IDispatch*>(TheHost().Objects().Font.Get())).DetachTo(result);
        else
            return DISP_E_MEMBERNOTFOUND;
        return S_OK;
    }
};

// The frame window, or the document's.
class Frame final : public Told<Chain<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>>
{
public:
    Frame(Host& host, const char* name) : Told(host, name) {}

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override
    {
        *window = TheHost().Window();
        return Tell("GetWindow");
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override
    {
        return Tell("ContextSensitiveHelp");
    }
    HRESULT STDMETHODCALLTYPE GetBorder(RECT*) noexcept override { return Tell("GetBorder"); }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) noexcept override
    {
        return Tell("RequestBorderSpace");
    }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) noexcept override
    {
        return Tell("SetBorderSpace");
    }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) noexcept override
    {
        return Tell("SetActiveObject");
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override
    {
        return Tell("InsertMenus");
    }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return Tell("SetMenu"); }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override { return Tell("RemoveMenus"); }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override { return Tell("SetStatusText"); }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return Tell("EnableModeless"); }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) noexcept override
    {
        return Tell("TranslateAccelerator");
    }
};

} // namespace

ComPtr<IOleClientSite> MakeSite(Host& host)
{
    return MakeCom<Site>(host);
}

ComPtr<IOleInPlaceFrame> MakeFrame(Host& host, const char* name)
{
    return MakeCom<Frame>(host, name);
}

} // namespace kiv::test
