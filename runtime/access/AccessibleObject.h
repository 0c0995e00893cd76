#pragma once

#include "runtime/access/AccessibleSource.h"
#include "runtime/com/ComObject.h"

#include <wrl/client.h>

#include <map>

namespace kiv
{

// The object that assistive tools get for a window. It may be held longer than what it describes lives: then
// it answers CO_E_OBJNOTCONNECTED.
class AccessibleObject final : public ComObject<Chain<IAccessible, IDispatch>, IOleWindow>
{
public:
    // window: the one that was asked for the object. frame: the outermost window of what is described, with
    // which it is found among other windows.
    AccessibleObject(AccessibleSource& source, HWND window, HWND frame) :
        source_(&source), window_(window), frame_(frame)
    {
    }
    // What is described is gone, and its parts with it.
    void Disconnect();

    // IAccessible
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT part, IDispatch** child) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT part, BSTR* name) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT part, BSTR* value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT part, BSTR* description) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT part, VARIANT* role) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT part, VARIANT* state) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT part, BSTR* help) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT part, long* topic) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT part, BSTR* shortcut) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* part) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* parts) noexcept override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT part, BSTR* action) noexcept override;
    HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT part) noexcept override;
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT part) noexcept override;
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* end) noexcept override;
    HRESULT STDMETHODCALLTYPE accHitTest(long x, long y, VARIANT* part) noexcept override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT part) noexcept override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT part, BSTR name) noexcept override;
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT part, BSTR value) noexcept override;

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* members) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argument) noexcept override;

    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) noexcept override;

private:
    template<class Body>
    HRESULT Ask(Body&& body) noexcept;
    template<class Body>
    HRESULT Ask(const VARIANT& part, Body&& body) noexcept;
    template<class Find>
    HRESULT Text(const VARIANT& part, BSTR* text, Find find) noexcept;
    Microsoft::WRL::ComPtr<IDispatch> ObjectOf(int part);
    void Hand(int part, VARIANT* result);

    AccessibleSource* source_;
    const HWND window_;
    const HWND frame_;
    const DWORD thread_ = GetCurrentThreadId();
    Microsoft::WRL::ComPtr<AccessibleObject> outer_; // whose part this is; null for a window's own
    std::map<int, Microsoft::WRL::ComPtr<AccessibleObject>> parts_;
};

} // namespace kiv
