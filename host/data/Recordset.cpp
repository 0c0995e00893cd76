#include "host/data/Recordset.h"

#include "runtime/com/MakeCom.h"

namespace kiv::host
{

namespace
{

enum RecordsetMember : DISPID
{
    TheFields = DISPID_VALUE,
    Eof = 1,
    MoveNext,
    Close,
};

constexpr AutomationMember FieldMembers[] = {{L"Value", DISPID_VALUE, 0, 0}};
constexpr AutomationMember FieldsMembers[] = {{L"Item", DISPID_VALUE, 1, 1}};
constexpr AutomationMember RecordsetMembers[] = {{L"Fields", TheFields, 0, 1},
                                                 {L"EOF", Eof, 0, 0},
                                                 {L"MoveNext", MoveNext, 0, 0},
                                                 {L"Close", Close, 0, 0}};

OdbcCursor& Open(const SharedCursor& cursor)
{
    if (!*cursor)
        throw DataError(DataObjectClosed, L"The recordset is closed.");
    return **cursor;
}

std::size_t ColumnOf(const OdbcCursor& cursor, const Variant& item)
{
    if (item.Type() == VT_BSTR)
        return cursor.FindColumn(item.Text());
    const long number = item.Long();
    if (number < 0 || static_cast<std::size_t>(number) >= cursor.ColumnCount())
        throw DataError(NoSuchItem, L"There is no field of that number.");
    return static_cast<std::size_t>(number);
}

Variant FieldOf(const SharedCursor& cursor, const Variant& item)
{
    return Variant(MakeCom<Field>(cursor, ColumnOf(Open(cursor), item)).Get());
}

} // namespace

Field::Field(SharedCursor cursor, std::size_t column) :
    AutomationObject(L"FolioHost.Field", FieldMembers), cursor_(std::move(cursor)), column_(column)
{
}

Variant Field::Call(DISPID, const std::vector<Variant>&)
{
    return Open(cursor_).Value(column_);
}

Fields::Fields(SharedCursor cursor) :
    AutomationObject(L"FolioHost.Fields", FieldsMembers), cursor_(std::move(cursor))
{
}

Variant Fields::Call(DISPID, const std::vector<Variant>& arguments)
{
    return FieldOf(cursor_, arguments.front());
}

Recordset::Recordset(std::shared_ptr<const OdbcConnection> connection, const std::wstring& query) :
    AutomationObject(L"FolioHost.Recordset", RecordsetMembers),
    cursor_(std::make_shared<std::optional<OdbcCursor>>(std::in_place, std::move(connection), query))
{
}

Variant Recordset::Call(DISPID member, const std::vector<Variant>& arguments)
{
    OdbcCursor& cursor = Open(cursor_);
    switch (member)
    {
    case Eof:
        return Variant(cursor.AtEnd());
    case MoveNext:
        cursor.MoveNext();
        return {};
    case Close:
        cursor_->reset();
        return {};
    default:
        if (!arguments.empty())
            return FieldOf(cursor_, arguments.front());
        return Variant(MakeCom<Fields>(cursor_).Get());
    }
}

} // namespace kiv::host
