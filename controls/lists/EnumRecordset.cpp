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
ComPtr<IDispatch> EnumRecordset::Field(const wchar_t* column)
{
    const DISPID fields = Member(fields_, L"Fields");
    if (fieldsTakeNames_)
    {
        try
        {
            return ObjectOf(CallMember(rows_.Get(), fields, {Variant(column)}));
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
    return ObjectOf(CallMember(collection.Get(), DISPID_VALUE, {Variant(column)}));
}

std::wstring EnumRecordset::Text(const wchar_t* column)
{
    const ComPtr<IDispatch> field = Field(column);
    if (!field)
        throw ComError(ObjectRequired);
    const Variant value = PlainValue(CallMember(field.Get(), MemberOf(field.Get(), L"Value")));
    if (value.Type() == VT_BSTR)
        return std::wstring(Bstr::ViewOf(V_BSTR(&value.Get())));
    const std::optional<Variant> text = value.As(VT_BSTR);
    return text ? text->Text() : std::wstring();
}

} // namespace kiv
