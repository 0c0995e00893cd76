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

    HRESULT STDMETHODCALLTYPE SaveObject() override { return Tell("SaveObject"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override
    {
        *moniker = nullptr;
        Tell("GetMoniker");
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override
    {
        *container = nullptr;
        Tell("GetContainer");
        return E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return Tell("ShowObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return Tell("OnShowWindow"); }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return Tell("RequestNewObjectLayout"); }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override
    {
        const HRESULT answer = Tell("GetWindow");
        *window = SUCCEEDED(answer) ? TheHost().Window() : nullptr;
        return answer;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return Tell("ContextSensitiveHelp"); }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return Tell("CanInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return Tell("OnInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return Tell("OnUIActivate"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* position, RECT* clip,
                                               OLEINPLACEFRAMEINFO* information) override
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
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return Tell("Scroll"); }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return Tell("OnUIDeactivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return Tell("OnInPlaceDeactivate"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return Tell("DiscardUndoState"); }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return Tell("DeactivateAndUndo"); }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) override
    {
        const RECT place = *position;
        const HRESULT answer = Tell("OnPosRectChange");
        if (const auto control = TheHost().Control<IOleInPlaceObject>(); control && SUCCEEDED(answer))
            control->SetObjectRects(&place, &place);
        return answer;
    }

    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return Tell("OnControlInfoChanged"); }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return Tell("LockInPlaceActive"); }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) override
    {
        *extended = nullptr;
        const HRESULT answer = Tell("GetExtendedControl");
        return SUCCEEDED(answer) ? TheHost().Objects().Extender.CopyTo(extended) : answer;
    }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override
    {
        return Tell("TransformCoords");
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override
    {
        return Tell("TranslateAccelerator");
    }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return Tell("OnFocus"); }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return Tell("ShowPropertyFrame"); }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) override
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

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override
    {
        *window = TheHost().Window();
        return Tell("GetWindow");
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return Tell("ContextSensitiveHelp"); }
    HRESULT STDMETHODCALLTYPE GetBorder(RECT*) override { return Tell("GetBorder"); }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override
    {
        return Tell("RequestBorderSpace");
    }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return Tell("SetBorderSpace"); }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override
    {
        return Tell("SetActiveObject");
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override
    {
        return Tell("InsertMenus");
    }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return Tell("SetMenu"); }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return Tell("RemoveMenus"); }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return Tell("SetStatusText"); }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return Tell("EnableModeless"); }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) override
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
