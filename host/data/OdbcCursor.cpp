#include "host/data/OdbcCursor.h"

#include "host/container/Automation.h"

#include <sqlucode.h>

#include <algorithm>

namespace kiv::host
{

namespace
{

// Codes and most descriptions fit in at once; a longer text is then read in larger pieces.
constexpr std::size_t FirstPiece = 512;
constexpr std::size_t LargestPiece = 65536;

} // namespace

OdbcCursor::OdbcCursor(std::shared_ptr<const OdbcConnection> connection, const std::wstring& query) :
    connection_(std::move(connection)), statement_(connection_->Get())
{
    OdbcConnection::DoPatiently([&] { Start(query); });
}

void OdbcCursor::Start(const std::wstring& query)
{
    columns_.clear();
    SQLFreeStmt(statement_.Get(), SQL_CLOSE);
    const SQLRETURN result =
        SQLExecDirectW(statement_.Get(), OdbcText(query), static_cast<SQLINTEGER>(query.size()));
    if (result != SQL_NO_DATA)
        statement_.Check(result);
    ReadColumnNames();
    Fetch();
}

void OdbcCursor::ReadColumnNames()
{
    SQLSMALLINT count = 0;
    statement_.Check(SQLNumResultCols(statement_.Get(), &count));
    for (SQLUSMALLINT column = 1; column <= count; ++column)
    {
        SQLWCHAR name[256] = {};
        SQLSMALLINT length = 0;
        statement_.Check(SQLDescribeColW(statement_.Get(), column, name,
                                         static_cast<SQLSMALLINT>(std::size(name)), &length, nullptr, nullptr,
                                         nullptr, nullptr));
        columns_.emplace_back(std::begin(name), std::find(std::begin(name), std::end(name), L'\0'));
    }
}

void OdbcCursor::Fetch()
{
    row_.clear();
    const SQLRETURN result = SQLFetch(statement_.Get());
    atEnd_ = result == SQL_NO_DATA;
    if (!atEnd_)
        statement_.Check(result);
}

bool OdbcCursor::AtEnd() const
{
    connection_->RequireOpen();
    return atEnd_;
}

void OdbcCursor::MoveNext()
{
    connection_->RequireOpen();
    if (atEnd_)
        throw DataError(NoCurrentRecord, L"There is no record behind the last one.");
    Fetch();
}

std::size_t OdbcCursor::FindColumn(std::wstring_view name) const
{
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const std::wstring& each) { return SameName(each, name); });
    if (found == columns_.end())
        throw DataError(NoSuchItem, L"There is no field \"" + std::wstring(name) + L"\".");
    return static_cast<std::size_t>(found - columns_.begin());
}

Variant OdbcCursor::Value(std::size_t column)
{
    connection_->RequireOpen();
    if (atEnd_)
        throw DataError(NoCurrentRecord, L"There is no current record.");
    // Drivers let each column of a row be read once, and from left to right.
    while (row_.size() <= column)
        row_.push_back(ReadValue(row_.size()));
    return row_[column];
}

Variant OdbcCursor::ReadValue(std::size_t column) const
{
    std::wstring text;
    std::vector<wchar_t> piece(FirstPiece);
    for (;;)
    {
        SQLLEN bytes = 0; // of what is left
        const SQLRETURN result =
            SQLGetData(statement_.Get(), static_cast<SQLUSMALLINT>(column + 1), SQL_C_WCHAR, piece.data(),
                       static_cast<SQLLEN>(piece.size() * sizeof(wchar_t)), &bytes);
        if (result == SQL_NO_DATA)
            break;
        statement_.Check(result);
        if (bytes == SQL_NULL_DATA)
            return Variant::Null();
        // The last place holds the end of the text.
        const std::size_t most = piece.size() - 1;
        const bool isLast =
            bytes != SQL_NO_TOTAL && static_cast<std::size_t>(bytes) <= most * sizeof(wchar_t);
        text.append(piece.data(), isLast ? static_cast<std::size_t>(bytes) / sizeof(wchar_t) : most);
        if (isLast)
            break;
        piece.resize(LargestPiece);
    }
    return Variant(std::wstring_view(text));
}

} // namespace kiv::host
