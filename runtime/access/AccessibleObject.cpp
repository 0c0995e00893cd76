#include "runtime/access/AccessibleObject.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/Bstr.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Variant.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

// The system's description of IAccessible.
constexpr GUID AccessibilityLibrary = {
    0x1EA4DBF0, 0x3C3B, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

ComPtr<ITypeInfo> LoadAccessibleType()
{
    ComPtr<ITypeLib> library;
    Check(LoadRegTypeLib(AccessibilityLibrary, 1, 1, LOCALE_NEUTRAL, &library));
    ComPtr<ITypeInfo> type;
    Check(library->GetTypeInfoOfGuid(__uuidof(IAccessible), &type));
    return type;
}

// The part that an argument means, -1 for none that there could be.
long PartOf(const VARIANT& part)
{
    return V_VT(&part) == VT_I4 ? V_I4(&part) : -1;
}

void PutPart(VARIANT* result, long part)
{
    V_VT(result) = VT_I4;
    V_I4(result) = part;
}

} // namespace

void AccessibleObject::Disconnect()
{
    const ComPtr<AccessibleObject> held(this);
    source_ = nullptr;
    outer_.Reset();
    for (const auto& [part, object] : std::exchange(parts_, {}))
        object->Disconnect();
}

// Whatever is done to what is described, it lives until this returns.
template<class Body>
HRESULT AccessibleObject::Ask(Body&& body) noexcept
{
    // Handed to another thread as it is, in spite of the rules.
    if (GetCurrentThreadId() != thread_)
        return RPC_E_WRONG_THREAD;
    if (!source_ || !IsWindow(window_))
        return CO_E_OBJNOTCONNECTED;
    const ComPtr<IUnknown> self(static_cast<IAccessible*>(this));
    const ComPtr<IUnknown> described(source_->AccessibleHolder());
    return Boundary(std::forward<Body>(body));
}

template<class Body>
HRESULT AccessibleObject::Ask(const VARIANT& part, Body&& body) noexcept
{
    return Ask([&]() -> HRESULT {
        const long number = PartOf(part);
        if (number < CHILDID_SELF || number > source_->PartCount())
            return E_INVALIDARG;
        return body(static_cast<int>(number));
    });
}

// --- What it is ---

template<class Find>
HRESULT AccessibleObject::Text(const VARIANT& part, BSTR* text, Find find) noexcept
{
    if (!text)
        return E_POINTER;
    *text = nullptr;
    return Ask(part, [&](int number) {
        const std::wstring found = find(number);
        if (found.empty())
            return S_FALSE;
        *text = Bstr(found).Detach();
        return S_OK;
    });
}

HRESULT AccessibleObject::get_accName(VARIANT part, BSTR* name) noexcept
{
    return Text(part, name, [this](int number) { return source_->NameOf(number); });
}

HRESULT AccessibleObject::get_accDescription(VARIANT part, BSTR* description) noexcept
{
    return Text(part, description, [this](int number) { return source_->InfoOf(number).Description; });
}

HRESULT AccessibleObject::get_accKeyboardShortcut(VARIANT part, BSTR* shortcut) noexcept
{
    return Text(part, shortcut, [this](int number) { return source_->InfoOf(number).KeyboardShortcut; });
}

HRESULT AccessibleObject::get_accDefaultAction(VARIANT part, BSTR* action) noexcept
{
    return Text(part, action, [this](int number) { return source_->InfoOf(number).DefaultAction; });
}

// Nothing entered is an empty text, other than no value at all.
HRESULT AccessibleObject::get_accValue(VARIANT part, BSTR* value) noexcept
{
    if (!value)
        return E_POINTER;
    *value = nullptr;
    return Ask(part, [&](int number) {
        const std::optional<std::wstring> found = source_->InfoOf(number).Value;
        if (!found)
            return DISP_E_MEMBERNOTFOUND;
        *value = Bstr(*found).Detach();
        return S_OK;
    });
}

HRESULT AccessibleObject::get_accRole(VARIANT part, VARIANT* role) noexcept
{
    if (!role)
        return E_POINTER;
    VariantInit(role);
    return Ask(part, [&](int number) {
        PutPart(role, source_->InfoOf(number).Role);
        return S_OK;
    });
}

HRESULT AccessibleObject::get_accState(VARIANT part, VARIANT* state) noexcept
{
    if (!state)
        return E_POINTER;
    VariantInit(state);
    return Ask(part, [&](int number) {
        PutPart(state, source_->InfoOf(number).State);
        return S_OK;
    });
}

HRESULT AccessibleObject::get_accHelp(VARIANT, BSTR* help) noexcept
{
    if (!help)
        return E_POINTER;
    *help = nullptr;
    return source_ ? S_FALSE : CO_E_OBJNOTCONNECTED;
}

HRESULT AccessibleObject::get_accHelpTopic(BSTR* file, VARIANT, long* topic) noexcept
{
    if (!file || !topic)
        return E_POINTER;
    *file = nullptr;
    *topic = -1;
    return source_ ? S_FALSE : CO_E_OBJNOTCONNECTED;
}

// --- Where it is among others ---

// Null for a part that is no more than its number.
ComPtr<IDispatch> AccessibleObject::ObjectOf(int part)
{
    ComPtr<IDispatch> found;
    if (part == CHILDID_SELF)
    {
        found = this;
    }
    else if (const HWND window = source_->WindowOf(part))
    {
        // What it shows, without the frame around it. One that is just going has none.
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IDispatch,
                                   reinterpret_cast<void**>(found.GetAddressOf()));
    }
    else if (AccessibleSource* const source = source_->SourceOf(part))
    {
        ComPtr<AccessibleObject>& object = parts_[part];
        if (!object)
        {
            object = MakeCom<AccessibleObject>(*source, window_, frame_);
            object->outer_ = this;
        }
        found = object.Get();
    }
    return found;
}

// As an object where it is one, as a number where it is not.
void AccessibleObject::Hand(int part, VARIANT* result)
{
    const ComPtr<IDispatch> object = part == CHILDID_SELF ? nullptr : ObjectOf(part);
    if (object)
        Variant(object.Get()).DetachTo(result);
    else
        PutPart(result, part);
}

HRESULT AccessibleObject::get_accParent(IDispatch** parent) noexcept
{
    if (!parent)
        return E_POINTER;
    *parent = nullptr;
    return Ask([&]() -> HRESULT {
        if (outer_)
            return outer_->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(parent));
        return AccessibleObjectFromWindow(frame_, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                          reinterpret_cast<void**>(parent));
    });
}

HRESULT AccessibleObject::get_accChildCount(long* count) noexcept
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return Ask([&] { *count = source_->PartCount(); });
}

HRESULT AccessibleObject::get_accChild(VARIANT part, IDispatch** child) noexcept
{
    if (!child)
        return E_POINTER;
    *child = nullptr;
    return Ask(part, [&](int number) -> HRESULT {
        const ComPtr<IDispatch> object = ObjectOf(number);
        return object ? object.CopyTo(child) : S_FALSE;
    });
}

HRESULT AccessibleObject::accNavigate(long direction, VARIANT start, VARIANT* end) noexcept
{
    if (!end)
        return E_POINTER;
    VariantInit(end);
    return Ask(start, [&](int number) -> HRESULT {
        const int count = source_->PartCount();
        int target = 0;
        if (direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD)
        {
            if (number != CHILDID_SELF)
                return S_FALSE;
            target = direction == NAVDIR_FIRSTCHILD ? 1 : count;
        }
        else if (number == CHILDID_SELF)
        {
            if (outer_)
                return S_FALSE;
            // Among windows: theirs are the neighbours.
            ComPtr<IAccessible> frame;
            Check(AccessibleObjectFromWindow(frame_, static_cast<DWORD>(OBJID_WINDOW), __uuidof(IAccessible),
                                             reinterpret_cast<void**>(frame.GetAddressOf())));
            return frame->accNavigate(direction, start, end);
        }
        else
        {
            const bool mirrored = (GetWindowLongPtrW(window_, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
            const bool back = direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP ||
                              direction == (mirrored ? NAVDIR_RIGHT : NAVDIR_LEFT);
            target = back ? number - 1 : number + 1;
        }
        if (target < 1 || target > count)
            return S_FALSE;
        Hand(target, end);
        return S_OK;
    });
}

HRESULT AccessibleObject::accLocation(long* left, long* top, long* width, long* height, VARIANT part) noexcept
{
    if (!left || !top || !width || !height)
        return E_POINTER;
    *left = *top = *width = *height = 0;
    return Ask(part, [&](int number) {
        const RECT place = source_->InfoOf(number).Place;
        *left = place.left;
        *top = place.top;
        *width = place.right - place.left;
        *height = place.bottom - place.top;
        return S_OK;
    });
}

HRESULT AccessibleObject::accHitTest(long x, long y, VARIANT* part) noexcept
{
    if (!part)
        return E_POINTER;
    VariantInit(part);
    return Ask([&]() -> HRESULT {
        const POINT point = {x, y};
        if (const int number = source_->PartAt(point))
        {
            Hand(number, part);
            return S_OK;
        }
        const RECT place = source_->Describe(CHILDID_SELF).Place;
        if (!PtInRect(&place, point))
            return S_FALSE;
        PutPart(part, CHILDID_SELF);
        return S_OK;
    });
}

// --- What is done with it ---

HRESULT AccessibleObject::get_accFocus(VARIANT* part) noexcept
{
    if (!part)
        return E_POINTER;
    VariantInit(part);
    return Ask([&] {
        const int focused = source_->FocusedPart();
        if (focused == CHILDID_SELF && (source_->Describe(CHILDID_SELF).State & STATE_SYSTEM_FOCUSED) == 0)
            return S_FALSE;
        Hand(focused, part);
        return S_OK;
    });
}

HRESULT AccessibleObject::get_accSelection(VARIANT* parts) noexcept
{
    if (!parts)
        return E_POINTER;
    VariantInit(parts);
    return Ask([&] {
        const int selected = source_->SelectedPart();
        if (selected == CHILDID_SELF)
            return S_FALSE;
        Hand(selected, parts);
        return S_OK;
    });
}

HRESULT AccessibleObject::accSelect(long flags, VARIANT part) noexcept
{
    return Ask(part, [&](int number) {
        constexpr long known = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
        if (flags == SELFLAG_NONE)
            return S_FALSE;
        if ((flags & ~known) != 0)
            return E_INVALIDARG;
        if ((flags & SELFLAG_TAKEFOCUS) != 0 && !source_->TakeAccessibleFocus(number))
            return DISP_E_MEMBERNOTFOUND;
        if ((flags & SELFLAG_TAKESELECTION) != 0 && !(source_ && source_->TakeAccessibleSelection(number)))
            return DISP_E_MEMBERNOTFOUND;
        return S_OK;
    });
}

HRESULT AccessibleObject::accDoDefaultAction(VARIANT part) noexcept
{
    return Ask(part,
               [&](int number) { return source_->DoDefaultAction(number) ? S_OK : DISP_E_MEMBERNOTFOUND; });
}

HRESULT AccessibleObject::put_accName(VARIANT, BSTR) noexcept
{
    return source_ ? DISP_E_MEMBERNOTFOUND : CO_E_OBJNOTCONNECTED;
}

HRESULT AccessibleObject::put_accValue(VARIANT part, BSTR value) noexcept
{
    return Ask(part, [&](int number) {
        return number == CHILDID_SELF && source_->TakeAccessibleValue(Bstr::ViewOf(value))
                   ? S_OK
                   : DISP_E_MEMBERNOTFOUND;
    });
}

// --- Late binding, as the system describes it ---

HRESULT AccessibleObject::GetTypeInfoCount(UINT* count) noexcept
{
    if (!count)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT AccessibleObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept
{
    if (!info)
        return E_POINTER;
    *info = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    return Boundary([&] { *info = LoadAccessibleType().Detach(); });
}

HRESULT AccessibleObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* members) noexcept
{
    return Boundary([&] { return LoadAccessibleType()->GetIDsOfNames(names, count, members); });
}

HRESULT AccessibleObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                 VARIANT* result, EXCEPINFO* exception, UINT* argument) noexcept
{
    return Boundary([&] {
        return LoadAccessibleType()->Invoke(static_cast<IAccessible*>(this), member, flags, arguments, result,
                                            exception, argument);
    });
}

// --- IOleWindow ---

HRESULT AccessibleObject::GetWindow(HWND* window) noexcept
{
    if (!window)
        return E_POINTER;
    *window = source_ ? window_ : nullptr;
    return source_ ? S_OK : CO_E_OBJNOTCONNECTED;
}

HRESULT AccessibleObject::ContextSensitiveHelp(BOOL) noexcept
{
    return E_NOTIMPL;
}

} // namespace kiv
