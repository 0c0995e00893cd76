#include "host/container/PropertyBag.h"

#include "host/container/Automation.h"
#include "runtime/com/Boundary.h"

#include <algorithm>

namespace kiv::host
{

namespace
{

// Tells the reader's error log, when there is one, that a stored value cannot be what was asked for.
HRESULT ReportMismatch(const std::wstring& name, IErrorLog* log)
{
    if (log)
    {
        const Bstr description(L"The stored value of " + name + L" has the wrong type");
        EXCEPINFO report = {};
        report.bstrDescription = description.Get();
        report.scode = DISP_E_TYPEMISMATCH;
        log->AddError(name.c_str(), &report);
    }
    return DISP_E_TYPEMISMATCH;
}

} // namespace

const Variant* PropertyBag::Find(std::wstring_view name) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return SameName(entry.first, name); });
    return found == entries_.end() ? nullptr : &found->second;
}

void PropertyBag::Set(std::wstring_view name, Variant value)
{
    if (const Variant* present = Find(name))
        *const_cast<Variant*>(present) = std::move(value);
    else
        entries_.emplace_back(name, std::move(value));
}

void PropertyBag::Remove(std::wstring_view name)
{
    std::erase_if(entries_, [&](const Entry& entry) { return SameName(entry.first, name); });
}

HRESULT PropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept
{
    if (!name || !value)
        return E_POINTER;
    return Boundary([&]() -> HRESULT {
        asked_.emplace_back(name);
        // The reader says in the variant which type it wants; VT_EMPTY takes any.
        const VARTYPE wanted = V_VT(value);
        const Variant* stored = Find(name);
        if (!stored)
            return E_INVALIDARG;
        if (wanted == VT_EMPTY || wanted == stored->Type())
            return VariantCopy(value, stored->Borrow());
        std::optional<Variant> converted = stored->As(wanted);
        if (!converted)
            return ReportMismatch(name, log);
        converted->DetachTo(value);
        return S_OK;
    });
}

HRESULT PropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept
{
    if (!name || !value)
        return E_POINTER;
    return Boundary([&] { Set(name, Variant(*value)); });
}

} // namespace kiv::host
