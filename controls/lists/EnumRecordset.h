#pragma once

#include "runtime/com/Bstr.h"
#include "runtime/com/Variant.h"

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <optional>
#include <string_view>

namespace kiv
{

// The rows that a host's database object answers a query with, read once from the first to the last. The
// database may be any automation object with OpenRecordset(query, type); its record sets have EOF, MoveNext,
// Fields(name).Value and Close. All but Open can throw ComError: the database's own errors as it raised them,
// 438 for a record set without one of the members, 424 for a field that is no object.
class EnumRecordset
{
public:
    // Nothing when there is no database or it does not answer.
    static std::optional<EnumRecordset> Open(IDispatch* database, std::wstring_view query) noexcept;

    EnumRecordset(EnumRecordset&& other) noexcept = default;
    EnumRecordset& operator=(EnumRecordset&&) = delete;
    // Closes the record set; an error in that is nobody's concern any more.
    ~EnumRecordset();

    bool AtEnd() const;
    void MoveNext();
    // The current row's value as text, by its column's name; empty for Null and for what is no text.
    Bstr Text(const Variant& column);

private:
    explicit EnumRecordset(Microsoft::WRL::ComPtr<IDispatch> rows) : rows_(std::move(rows)) {}
    Microsoft::WRL::ComPtr<IDispatch> Field(const Variant& column);

    Microsoft::WRL::ComPtr<IDispatch> rows_;
    // The members, looked up when they are first needed.
    DISPID Member(DISPID& known, const wchar_t* name) const;
    mutable DISPID eof_ = DISPID_UNKNOWN;
    DISPID moveNext_ = DISPID_UNKNOWN;
    DISPID fields_ = DISPID_UNKNOWN;
    bool fieldsTakeNames_ = true;
};

} // namespace kiv
