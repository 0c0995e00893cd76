#include "host/container/EventInterface.h"

#include "runtime/com/TypeDescription.h"

#include <ocidl.h>
#include <oleidl.h>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

ComPtr<ITypeInfo> ClassInformation(IUnknown* control)
{
    ComPtr<ITypeInfo> description;
    ComPtr<IProvideClassInfo> provider;
    if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&provider))) &&
        SUCCEEDED(provider->GetClassInfo(&description)) && description)
        return description;

    ComPtr<IDispatch> dispatch;
    ComPtr<IPersist> persist;
    ComPtr<ITypeInfo> members;
    ComPtr<ITypeLib> library;
    CLSID classId = {};
    UINT index = 0;
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(&dispatch))) ||
        FAILED(control->QueryInterface(IID_PPV_ARGS(&persist))) || FAILED(persist->GetClassID(&classId)) ||
        FAILED(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, &members)) || !members ||
        FAILED(members->GetContainingTypeLib(&library, &index)))
        return nullptr;
    description.Reset();
    library->GetTypeInfoOfGuid(classId, &description);
    return description;
}

ComPtr<ITypeInfo> DefaultSource(ITypeInfo* classInformation)
{
    constexpr int wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    const UINT count = TypeAttributes(classInformation)->cImplTypes;
    for (UINT each = 0; each < count; ++each)
    {
        INT flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> source;
        if (SUCCEEDED(classInformation->GetImplTypeFlags(each, &flags)) && (flags & wanted) == wanted &&
            SUCCEEDED(classInformation->GetRefTypeOfImplType(each, &reference)) &&
            SUCCEEDED(classInformation->GetRefTypeInfo(reference, &source)))
            return source;
    }
    return nullptr;
}

} // namespace

EventInterface FindEventInterface(IUnknown* control)
{
    const ComPtr<ITypeInfo> classInformation = ClassInformation(control);
    if (!classInformation)
        return {};
    try
    {
        const ComPtr<ITypeInfo> source = DefaultSource(classInformation.Get());
        if (source)
            return {TypeAttributes(source.Get())->guid, source};
    }
    catch (const ComError&)
    {
        // A control that cannot say what its events are has none.
    }
    return {};
}

} // namespace kiv::host
