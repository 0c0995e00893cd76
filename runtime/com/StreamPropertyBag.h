#pragma once

#include "runtime/com/PropertyBag.h"
#include "runtime/core/PropertyStream.h"

#include <objidl.h>

#include <map>

namespace kiv
{

// Properties in memory on their way from or to a stream. Holds numbers, texts, Null, and the standard font
// and picture objects.
class StreamPropertyBag final : public PropertyBag
{
public:
    // For writing.
    StreamPropertyBag() = default;
    // For reading; throws DamagedStream when a value does not fit its type.
    explicit StreamPropertyBag(const PropertyStream& stream);

    // Throws DamagedStream: nothing but our own writing makes these streams.
    void ReportUnusable(const wchar_t* name) override;

    // What has been written, in the order of writing.
    std::vector<StoredProperty> Take() { return std::move(written_); }

private:
    std::optional<Variant> ReadValue(const wchar_t* name, VARTYPE expected) override;
    void WriteValue(const wchar_t* name, const Variant& value) override;
    std::map<std::wstring, Variant> values_;
    std::vector<StoredProperty> written_;
};

// One encoded stream at the position of source. Throws DamagedStream or ComError.
PropertyStream ReadPropertyStream(IStream* source);
void WritePropertyStream(IStream* target, const PropertyStream& stream);

} // namespace kiv
