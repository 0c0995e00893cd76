#include "runtime/control/UserControl.h"

#include "runtime/com/Enumerator.h"
#include "runtime/com/LateBound.h"
#include "runtime/com/PropertyDescription.h"
#include "runtime/com/TaskMemory.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

struct Verb
{
    LONG Number;
    const wchar_t* Name;
    DWORD Attributes;

    // Without its name when there is no memory for that.
    void CopyTo(OLEVERB* copy) const noexcept
    {
        *copy = {Number, nullptr, 0, Attributes};
        Boundary([&] { copy->lpszVerbName = MakeTaskText(Name).release(); });
    }
};

} // namespace

// A property of the control's own interface, which it has or there is an error.
PropertyDescription UserControl::Described(DISPID property) const
{
    ComPtr<ITypeInfo> typeInfo;
    Check(DispatchTable::GetTypeInfo(class_.Properties, 0, &typeInfo));
    std::optional<PropertyDescription> found = DescribeProperty(typeInfo.Get(), property);
    if (!found)
        throw ComError(DISP_E_MEMBERNOTFOUND);
    return *std::move(found);
}

// As a late-bound host reads it.
Variant UserControl::ValueOf(DISPID property)
{
    ComPtr<IDispatch> self;
    Check(Inner()->QueryInterface(IID_PPV_ARGS(&self)));
    return CallMember(self.Get(), property);
}

// Of other types a designer shows the value itself, and so where an enumeration has no such member.
HRESULT UserControl::GetDisplayString(DISPID property, BSTR* text) noexcept
{
    if (!text)
        return E_POINTER;
    *text = nullptr;
    return Entry([&]() -> HRESULT {
        const PropertyDescription described = Described(property);
        if (described.Type == VT_BOOL)
        {
            *text = Bstr(ValueOf(property).Text()).Detach();
            return S_OK;
        }
        if (described.Members.empty())
            return E_NOTIMPL;
        const long value = ValueOf(property).Long();
        const auto member = std::ranges::find(described.Members, value, &EnumerationMember::Value);
        if (member == described.Members.end())
            return E_NOTIMPL;
        *text = Bstr(member->Name).Detach();
        return S_OK;
    });
}

// There are no pages: all can be set in a property window.
HRESULT UserControl::MapPropertyToPage(DISPID property, CLSID* page) noexcept
{
    if (!page)
        return E_POINTER;
    *page = CLSID_NULL;
    return Entry([&] {
        Described(property);
        return PERPROP_E_NOPAGEAVAILABLE;
    });
}

// The cookie of each is its value.
HRESULT UserControl::GetPredefinedStrings(DISPID property, CALPOLESTR* strings, CADWORD* cookies) noexcept
{
    if (!strings || !cookies)
        return E_POINTER;
    *strings = {};
    *cookies = {};
    return Entry([&]() -> HRESULT {
        const std::vector<EnumerationMember> members = Described(property).Members;
        if (members.empty())
            return E_NOTIMPL;
        std::vector<TaskArray<wchar_t>> names;
        for (const EnumerationMember& each : members)
            names.push_back(MakeTaskText(each.Name));
        TaskArray<LPOLESTR> texts = MakeTaskArray<LPOLESTR>(members.size());
        TaskArray<DWORD> values = MakeTaskArray<DWORD>(members.size());
        // Nothing fails from here on.
        for (std::size_t i = 0; i < members.size(); ++i)
        {
            texts[i] = names[i].release();
            values[i] = static_cast<DWORD>(members[i].Value);
        }
        *strings = {static_cast<ULONG>(members.size()), texts.release()};
        *cookies = {static_cast<ULONG>(members.size()), values.release()};
        return S_OK;
    });
}

HRESULT UserControl::GetPredefinedValue(DISPID property, DWORD cookie, VARIANT* value) noexcept
{
    if (!value)
        return E_POINTER;
    VariantInit(value);
    return Entry([&]() -> HRESULT {
        const std::vector<EnumerationMember> members = Described(property).Members;
        const auto named = static_cast<long>(cookie);
        if (std::ranges::find(members, named, &EnumerationMember::Value) == members.end())
            return E_INVALIDARG;
        Variant(named).DetachTo(value);
        return S_OK;
    });
}

HRESULT UserControl::MapPropertyToCategory(DISPID property, int* category) noexcept
{
    if (!category)
        return E_POINTER;
    *category = static_cast<int>(PropertyCategory::Nil);
    return Entry([&] { *category = static_cast<int>(CategoryOf(Described(property).Name)); });
}

// The standard ones are the designer's to name, in its own language.
HRESULT UserControl::GetCategoryName(int category, LCID, BSTR* name) noexcept
{
    if (!name)
        return E_POINTER;
    *name = nullptr;
    if (category != static_cast<int>(PropertyCategory::Limits))
        return E_INVALIDARG;
    return Entry([&] { *name = Bstr(L"Limits").Detach(); });
}

// Those of DoVerb that a host may offer to people; what it does by itself needs no name.
HRESULT UserControl::EnumVerbs(IEnumOLEVERB** verbs) noexcept
{
    if (!verbs)
        return E_POINTER;
    *verbs = nullptr;
    return Entry([&] {
        std::vector<Verb> offered = {{OLEIVERB_PRIMARY, L"&Edit", OLEVERBATTRIB_ONCONTAINERMENU},
                                     {OLEIVERB_SHOW, L"Show", 0}};
        *verbs = MakeCom<Enumerator<IEnumOLEVERB, OLEVERB, Verb>>(std::move(offered)).Detach();
    });
}

} // namespace kiv
