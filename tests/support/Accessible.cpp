#include "tests/support/Accessible.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/Variant.h"

#include <utility>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

WinEventLog* listening = nullptr;

std::wstring RoleName(long role)
{
    switch (role)
    {
    case ROLE_SYSTEM_GROUPING:
        return L"grouping";
    case ROLE_SYSTEM_RADIOBUTTON:
        return L"radio button";
    case ROLE_SYSTEM_TEXT:
        return L"text";
    case ROLE_SYSTEM_COMBOBOX:
        return L"combo box";
    case ROLE_SYSTEM_LIST:
        return L"list";
    case ROLE_SYSTEM_LISTITEM:
        return L"item";
    case ROLE_SYSTEM_PUSHBUTTON:
        return L"button";
    case ROLE_SYSTEM_LINK:
        return L"link";
    case ROLE_SYSTEM_GRAPHIC:
        return L"graphic";
    case ROLE_SYSTEM_DIALOG:
        return L"dialog";
    case ROLE_SYSTEM_STATICTEXT:
        return L"label";
    case ROLE_SYSTEM_CLIENT:
        return L"client";
    case ROLE_SYSTEM_WINDOW:
        return L"window";
    default:
        return L"role " + std::to_wstring(role);
    }
}

std::wstring StateNames(long state)
{
    constexpr std::pair<long, const wchar_t*> names[] = {
        {STATE_SYSTEM_UNAVAILABLE, L"unavailable"}, {STATE_SYSTEM_SELECTED, L"selected"},
        {STATE_SYSTEM_FOCUSED, L"focused"},         {STATE_SYSTEM_CHECKED, L"checked"},
        {STATE_SYSTEM_EXPANDED, L"expanded"},       {STATE_SYSTEM_COLLAPSED, L"collapsed"},
        {STATE_SYSTEM_INVISIBLE, L"invisible"},     {STATE_SYSTEM_FOCUSABLE, L"focusable"},
        {STATE_SYSTEM_SELECTABLE, L"selectable"},   {STATE_SYSTEM_HASPOPUP, L"has popup"},
        {STATE_SYSTEM_OFFSCREEN, L"offscreen"},
    };
    std::wstring text;
    for (const auto& [bit, name] : names)
    {
        if ((state & bit) != 0)
            text += (text.empty() ? L"" : L", ") + std::wstring(name);
        state &= ~bit;
    }
    if (state != 0)
        text += (text.empty() ? L"" : L", ") + std::to_wstring(state);
    return text;
}

std::wstring Number(HRESULT result)
{
    wchar_t text[16] = {};
    swprintf_s(text, L"%08lX", static_cast<unsigned long>(result));
    return text;
}

using Getter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

std::wstring TextOf(IAccessible& object, Getter get, long part, const wchar_t* before, const wchar_t* behind)
{
    Bstr text;
    const HRESULT result = (object.*get)(Part(part), text.Receive());
    if (FAILED(result))
        return result == DISP_E_MEMBERNOTFOUND || result == E_NOTIMPL ? L"" : L" !" + Number(result);
    return text.View().empty() && result == S_FALSE ? L"" : before + text.String() + behind;
}

long NumberOf(IAccessible& object, HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, VARIANT*),
              long part)
{
    Variant value;
    return SUCCEEDED((object.*get)(Part(part), value.Receive()))
               ? value.As(VT_I4).value_or(Variant(-1L)).Long()
               : -1;
}

void Read(IAccessible& object, long part, std::size_t depth, std::vector<std::wstring>& lines)
{
    lines.push_back(std::wstring(2 * depth, L' ') + Reading(object, part));
    long count = 0;
    if (part != CHILDID_SELF || FAILED(object.get_accChildCount(&count)) || count == 0 || depth == 4)
        return;
    std::vector<VARIANT> children(static_cast<std::size_t>(count));
    LONG got = 0;
    if (FAILED(AccessibleChildren(&object, 0, count, children.data(), &got)))
    {
        lines.push_back(L"no children");
        return;
    }
    for (VARIANT& child : children)
    {
        ComPtr<IAccessible> inner;
        if (V_VT(&child) == VT_DISPATCH && V_DISPATCH(&child) &&
            SUCCEEDED(V_DISPATCH(&child)->QueryInterface(IID_PPV_ARGS(&inner))))
            Read(*inner.Get(), CHILDID_SELF, depth + 1, lines);
        else if (V_VT(&child) == VT_I4)
            Read(object, V_I4(&child), depth + 1, lines);
        VariantClear(&child);
    }
}

} // namespace

ComPtr<IAccessible> AccessibleOf(HWND window)
{
    ComPtr<IAccessible> object;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               reinterpret_cast<void**>(object.GetAddressOf()));
    return object;
}

VARIANT Part(long number)
{
    VARIANT part = {};
    V_VT(&part) = VT_I4;
    V_I4(&part) = number;
    return part;
}

void CallMember(IAccessible& object, std::size_t member, const VARIANT& part, std::wstring_view text,
                const std::function<long(long)>& below)
{
    Bstr got;
    Variant answer;
    ComPtr<IDispatch> other;
    long numbers[4] = {};
    switch (member)
    {
    case 0:
        object.get_accName(part, got.Receive());
        break;
    case 1:
        object.get_accValue(part, got.Receive());
        break;
    case 2:
        object.get_accDescription(part, got.Receive());
        break;
    case 3:
        object.get_accRole(part, answer.Receive());
        break;
    case 4:
        object.get_accState(part, answer.Receive());
        break;
    case 5:
        object.get_accKeyboardShortcut(part, got.Receive());
        break;
    case 6:
        object.get_accDefaultAction(part, got.Receive());
        break;
    case 7:
        object.accLocation(&numbers[0], &numbers[1], &numbers[2], &numbers[3], part);
        break;
    case 8:
        object.accNavigate(below(10), part, answer.Receive());
        break;
    case 9: {
        const long y = below(300);
        object.accHitTest(below(300), y, answer.Receive());
        break;
    }
    case DefaultActionMember:
        object.accDoDefaultAction(part);
        break;
    case 11:
        object.get_accChild(part, &other);
        break;
    case 12:
        object.get_accParent(&other);
        break;
    case 13:
        object.accSelect(below(64), part);
        break;
    case 14:
        object.get_accFocus(answer.Receive());
        object.get_accSelection(answer.Receive());
        object.get_accChildCount(numbers);
        break;
    default: {
        const Bstr given(text);
        object.put_accValue(part, given.Get());
        object.put_accName(part, given.Get());
        break;
    }
    }
}

std::wstring Reading(IAccessible& object, long part)
{
    const long state = NumberOf(object, &IAccessible::get_accState, part);
    return RoleName(NumberOf(object, &IAccessible::get_accRole, part)) +
           TextOf(object, &IAccessible::get_accName, part, L" \"", L"\"") +
           TextOf(object, &IAccessible::get_accValue, part, L" = \"", L"\"") +
           TextOf(object, &IAccessible::get_accDescription, part, L" (", L")") + L" [" + StateNames(state) +
           L"]" + TextOf(object, &IAccessible::get_accDefaultAction, part, L" {", L"}") +
           TextOf(object, &IAccessible::get_accKeyboardShortcut, part, L" <", L">");
}

std::vector<std::wstring> ReadingsOf(IAccessible& object)
{
    std::vector<std::wstring> lines;
    Read(object, CHILDID_SELF, 0, lines);
    return lines;
}

std::vector<std::wstring> ReadingsOf(HWND window)
{
    const ComPtr<IAccessible> object = AccessibleOf(window);
    return object ? ReadingsOf(*object.Get()) : std::vector<std::wstring>{L"nothing"};
}

WinEventLog::WinEventLog(HWND window) :
    window_(window),
    hook_(SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_ACCELERATORCHANGE, nullptr, &WinEventLog::Heard,
                          GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT))
{
    listening = this;
}

WinEventLog::~WinEventLog()
{
    UnhookWinEvent(hook_);
    listening = nullptr;
}

void CALLBACK WinEventLog::Heard(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG part, DWORD,
                                 DWORD)
{
    WinEventLog* const log = listening;
    if (!log || object != OBJID_CLIENT || (window != log->window_ && !IsChild(log->window_, window)))
        return;
    const wchar_t* name = nullptr;
    switch (event)
    {
    case EVENT_OBJECT_FOCUS:
        name = L"focus";
        break;
    case EVENT_OBJECT_SELECTION:
        name = L"selection";
        break;
    case EVENT_OBJECT_STATECHANGE:
        name = L"state";
        break;
    case EVENT_OBJECT_NAMECHANGE:
        name = L"name";
        break;
    case EVENT_OBJECT_DESCRIPTIONCHANGE:
        name = L"description";
        break;
    case EVENT_OBJECT_VALUECHANGE:
        name = L"value";
        break;
    default:
        return;
    }
    log->events_.push_back(part == CHILDID_SELF ? name : std::wstring(name) + L" " + std::to_wstring(part));
}

std::vector<std::wstring> WinEventLog::Take()
{
    return std::exchange(events_, {});
}

} // namespace kiv::test
