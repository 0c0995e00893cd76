#pragma once

#include "runtime/com/Variant.h"

#include <ocidl.h>
#include <wrl/client.h>

#include <string>

namespace kiv
{

// What a control reads its properties from and writes them to, each with an explicit default: an absent
// property reads as its default, and one equal to its default is not written.
class PropertyBag
{
public:
    virtual ~PropertyBag() = default;

    bool ReadProperty(const wchar_t* name, bool defaultValue);
    short ReadProperty(const wchar_t* name, short defaultValue);
    long ReadProperty(const wchar_t* name, long defaultValue);
    float ReadProperty(const wchar_t* name, float defaultValue);
    // Numbers and numeric texts are taken to the nearest ten-thousandth.
    Currency ReadProperty(const wchar_t* name, Currency defaultValue);
    std::wstring ReadProperty(const wchar_t* name, const wchar_t* defaultValue);
    // An automation date.
    double ReadDate(const wchar_t* name, double defaultValue);
    // As stored, in any type that can be read as text.
    Variant ReadTextVariant(const wchar_t* name, const Variant& defaultValue);
    // A reference to an object that answers Interface.
    template<class Interface>
    Microsoft::WRL::ComPtr<Interface> ReadObject(const wchar_t* name,
                                                 const Microsoft::WRL::ComPtr<Interface>& defaultValue)
    {
        Microsoft::WRL::ComPtr<Interface> object;
        const std::optional<Variant> stored = ReadValue(name, VT_UNKNOWN);
        if (!stored || stored->Type() == VT_EMPTY)
            return defaultValue;
        if (stored->Object() && SUCCEEDED(stored->Object()->QueryInterface(IID_PPV_ARGS(&object))))
            return object;
        ReportUnusable(name);
        return defaultValue;
    }

    void WriteProperty(const wchar_t* name, const Variant& value, const Variant& defaultValue);
    // Without a default: always written.
    void WriteProperty(const wchar_t* name, const Variant& value) { WriteValue(name, value); }

    // A stored value cannot be used and the default takes its place.
    virtual void ReportUnusable(const wchar_t* name) = 0;

protected:
    // The stored value, or nothing; expected is a hint for bags that convert (VT_EMPTY: none).
    virtual std::optional<Variant> ReadValue(const wchar_t* name, VARTYPE expected) = 0;
    virtual void WriteValue(const wchar_t* name, const Variant& value) = 0;

private:
    std::optional<Variant> ReadAs(const wchar_t* name, VARTYPE type);
};

// The container's own bag, with the log that it may give for what could not be read.
class ContainerPropertyBag final : public PropertyBag
{
public:
    // source: the control's name, as the error log shows it. log may be null.
    ContainerPropertyBag(IPropertyBag* bag, IErrorLog* log, const wchar_t* source);

    void ReportUnusable(const wchar_t* name) override;

private:
    std::optional<Variant> ReadValue(const wchar_t* name, VARTYPE expected) override;
    void WriteValue(const wchar_t* name, const Variant& value) override;

    Microsoft::WRL::ComPtr<IPropertyBag> bag_;
    Microsoft::WRL::ComPtr<IErrorLog> log_;
    std::wstring source_;
};

} // namespace kiv
