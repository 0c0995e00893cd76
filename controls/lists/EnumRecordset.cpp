#include "controls/lists/EnumRecordset.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/LateBound.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

constexpr long ForwardOnly =
    8; // the type of a record set that is read once, as data-access objects number it

} // namespace

std::optional<EnumRecordset> EnumRecordset::Open(IDispatch* database, std::wstring_view query) noexcept
{
    std::optional<EnumRecordset> opened;
    if (!database)
        return opened;
    Boundary([&] {
        const Variant answer = CallMember(database, MemberOf(database, L"OpenRecordset"),
                                          {Variant(query), Variant(ForwardOnly)});
        if (ComPtr<IDispatch> rows = ObjectOf(answer))
            opened.emplace(EnumRecordset(std::move(rows)));
    });
    return opened;
}

EnumRecordset::~EnumRecordset()
{
    if (rows_)
        Boundary([&] { CallMember(rows_.Get(), MemberOf(rows_.Get(), L"Close")); });
}

DISPID EnumRecordset::Member(DISPID& known, const wchar_t* name) const
{
    if (known == DISPID_UNKNOWN)
        known = MemberOf(rows_.Get(), name);
    return known;
}

bool EnumRecordset::AtEnd() const
{
    const std::optional<Variant> atEnd = CallMember(rows_.Get(), Member(eof_, L"EOF")).As(VT_BOOL);
    if (!atEnd)
        throw ComError(TypeMismatch);
    return atEnd->Bool();
}

void EnumRecordset::MoveNext()
{
    CallMember(rows_.Get(), Member(moveNext_, L"MoveNext"));
}

// Fields is a method, or a property that takes the name, or one that hands out a collection whose default
// member takes it.
ComPtr<IDispatch> EnumRecordset::Field(const Variant& column)
{
    const DISPID fields = Member(fields_, L"Fields");
    if (fieldsTakeNames_)
    {
        try
        {
            return ObjectOf(CallMemberWith(rows_.Get(), fields, column));
        }
        catch (const ComError& error)
        {
            if (error.Result() != WrongNumberOfArguments)
                throw;
            fieldsTakeNames_ = false;
        }
    }
    const ComPtr<IDispatch> collection = ObjectOf(CallMember(rows_.Get(), fields));
    if (!collection)
        throw ComError(ObjectRequired);
    return ObjectOf(CallMemberWith(collection.Get(), DISPID_VALUE, column));
}

// Handed out as it came, without a copy.
Bstr EnumRecordset::Text(const Variant& column)
{
    const ComPtr<IDispatch> field = Field(column);
    if (!field)
        throw ComError(ObjectRequired);
    Variant value = CallMember(field.Get(), MemberOf(field.Get(), L"Value"));
    if (value.Object())
        value = PlainValue(value);
    Bstr text;
    if (value.Type() != VT_BSTR)
    {
        std::optional<Variant> converted = value.As(VT_BSTR);
        if (!converted)
            return text;
        value = std::move(*converted);
    }
    VARIANT detached = {};
    value.DetachTo(&detached);
    *text.Receive() = V_BSTR(&detached);
    return text;
}

} // namespace kiv
