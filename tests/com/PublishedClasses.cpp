#include "tests/com/PublishedClasses.h"

#include <wrl/client.h>

#include <algorithm>
#include <cwchar>
#include <iterator>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

GUID Id(unsigned long firstGroup)
{
    return {firstGroup, 0x873E, 0x11D3, {0xBB, 0x17, 0x00, 0x10, 0x5A, 0x16, 0xD8, 0xEF}};
}

const std::vector<PublishedClass>& PublishedClasses()
{
    static const std::vector<PublishedClass> classes = {
        {L"EnumList", 0x3E649233, 0x3E649232, 0x3E649235, 30000, false},
        {L"YesNo", 0x3E649237, 0x3E649236, 0x3E649239, 30001, true},
        {L"DateBox", 0x3E64923B, 0x3E64923A, 0x3E64923D, 30002, true},
        {L"PicCommand", 0x3E64923F, 0x3E64923E, 0x3E649242, 30003, true},
        {L"ChkCombo", 0x3E649244, 0x3E649243, 0x3E649245, 30004, true},
        {L"PicLite", 0x3E649247, 0x3E649246, 0x3E649248, 30005, false},
        {L"PercentBox", 0x3E64924A, 0x3E649249, 0x3E64924B, 30006, true},
        {L"NumberBox", 0x3E64924D, 0x3E64924C, 0x3E64924F, 30007, true},
        {L"CurrencyBox", 0x3E649251, 0x3E649250, 0x3E649252, 30008, true},
    };
    return classes;
}

const PublishedClass& ClassNamed(const wchar_t* name)
{
    return *std::ranges::find_if(PublishedClasses(),
                                 [name](const PublishedClass& each) { return wcscmp(each.Name, name) == 0; });
}

std::vector<PublishedClass> ClassesIn(ITypeLib* library)
{
    std::vector<PublishedClass> classes;
    std::ranges::copy_if(PublishedClasses(), std::back_inserter(classes),
                         [library](const PublishedClass& each) {
                             ComPtr<ITypeInfo> info;
                             return SUCCEEDED(library->GetTypeInfoOfGuid(Id(each.Class), &info));
                         });
    return classes;
}

} // namespace kiv::test
