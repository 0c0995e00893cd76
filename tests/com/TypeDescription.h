#pragma once

#include "runtime/com/Bstr.h"
#include "runtime/com/TypeDescription.h"

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace kiv::test
{

struct Documentation
{
    std::wstring Name;
    std::wstring Help;
};

template<class Info>
Documentation DocumentationOf(Info* info, int member)
{
    Bstr name;
    Bstr help;
    Check(info->GetDocumentation(member, name.Receive(), help.Receive(), nullptr, nullptr));
    return {name.String(), help.String()};
}

// One member in one line: kind, identifier, name, parameters, result, flags. Hosts see a property's value as
// its result.
std::wstring MemberText(ITypeInfo* info, UINT index);

// The words of the flags that are set, a blank before each.
std::wstring WordsOf(UINT flags, std::initializer_list<std::pair<UINT, const wchar_t*>> words);

// The members of an interface without those of IDispatch, in order.
std::vector<std::wstring> OwnMembers(ITypeInfo* info);

// The vtable's side of a dual interface.
Microsoft::WRL::ComPtr<ITypeInfo> VtableSide(ITypeInfo* info);

} // namespace kiv::test
