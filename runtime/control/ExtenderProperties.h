#pragma once

#include "runtime/com/Variant.h"

#include <ocidl.h>
#include <wrl/client.h>

namespace kiv
{

// What the container itself keeps about a control: its name, its help numbers and the like, read late-bound.
class ExtenderProperties
{
public:
    // site: null for none.
    explicit ExtenderProperties(IUnknown* site = nullptr);

    // Empty when the container has no such property, or nothing of the kind at all.
    Variant Get(const wchar_t* property) const;
    // The same as a text; empty also for what is none.
    std::wstring Text(const wchar_t* property) const;

private:
    Microsoft::WRL::ComPtr<IOleControlSite> site_;
};

} // namespace kiv
