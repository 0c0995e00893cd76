#include "host/data/Database.h"

#include "host/data/Recordset.h"
#include "runtime/com/MakeCom.h"

namespace kiv::host
{

namespace
{

enum DatabaseMember : DISPID
{
    OpenRecordsetId = 1,
    CloseId,
};

constexpr AutomationMember Members[] = {{L"OpenRecordset", OpenRecordsetId, 1, 2}, {L"Close", CloseId, 0, 0}};

constexpr long ForwardOnly = 8;

std::wstring Translated(const std::wstring& query, SqlDialect dialect)
{
    try
    {
        return TranslateQuery(query, dialect);
    }
    catch (const QueryError& error)
    {
        // What it says is ASCII.
        const std::string_view what = error.what();
        throw DataError(QueryNotUnderstood, L"Query: " + std::wstring(what.begin(), what.end()));
    }
}

} // namespace

Database::Database(const std::wstring& connectionString) :
    AutomationObject(L"FolioHost.Database", Members),
    connection_(std::make_shared<OdbcConnection>(connectionString))
{
}

Variant Database::Call(DISPID member, const std::vector<Variant>& arguments)
{
    if (!connection_)
        throw DataError(DataObjectClosed, L"The database is closed.");
    if (member == OpenRecordsetId)
        return OpenRecordset(arguments);
    connection_->Close();
    connection_.reset();
    return {};
}

Variant Database::OpenRecordset(const std::vector<Variant>& arguments) const
{
    if (arguments.size() > 1 && arguments[1].Type() != VT_EMPTY && arguments[1].Long() != ForwardOnly)
        throw DataError(InvalidDataArgument, L"Only forward-only recordsets (type 8) can be opened.");
    const std::wstring query = Translated(arguments.front().Text(), connection_->Dialect());
    return Variant(MakeCom<Recordset>(connection_, query).Get());
}

} // namespace kiv::host
