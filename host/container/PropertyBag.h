#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/Variant.h"

#include <ocidl.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kiv::host
{

// A property bag in memory that keeps the order of writing. Names compare without regard to case. Fonts,
// pictures and other objects are kept as references. Make one with MakeCom<PropertyBag>().
class PropertyBag : public ComObject<IPropertyBag>
{
public:
    using Entry = std::pair<std::wstring, Variant>;

    const std::vector<Entry>& Entries() const { return entries_; }
    const Variant* Find(std::wstring_view name) const;
    void Set(std::wstring_view name, Variant value);
    void Remove(std::wstring_view name);
    void Clear() { entries_.clear(); }

    // Names asked for so far, in order: what a control reads while it loads.
    const std::vector<std::wstring>& Asked() const { return asked_; }

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) noexcept override;

private:
    std::vector<Entry> entries_;
    std::vector<std::wstring> asked_;
};

} // namespace kiv::host
