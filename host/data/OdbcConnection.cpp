#include "host/data/OdbcConnection.h"

#include <sqlucode.h>

#include <algorithm>
#include <iterator>

namespace kiv::host
{

namespace
{

// ODBC passes numbers where it declares pointers.
SQLPOINTER Number(SQLULEN value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

// With the version of ODBC that the program is written for.
SQLHENV Prepared(const OdbcHandle<SQL_HANDLE_ENV>& environment)
{
    environment.Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0));
    return environment.Get();
}

constexpr ULONGLONG PatienceMs = 2000;
constexpr DWORD RetryMs = 50;

// For a while. No input is taken: what a user does to a window that waits is for later.
void PaintWindows(DWORD milliseconds)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds, QS_PAINT | QS_SENDMESSAGE);
    MSG message;
    // A window that never says it is painted would have it go on for ever.
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) && GetTickCount64() < end)
        DispatchMessageW(&message);
}

} // namespace

OdbcConnection::OdbcConnection(const std::wstring& connectionString) :
    environment_(SQL_NULL_HANDLE), connection_(Prepared(environment_))
{
    connection_.Check(
        SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_ACCESS_MODE, Number(SQL_MODE_READ_ONLY), 0));
    connection_.Check(SQLDriverConnectW(connection_.Get(), nullptr, OdbcText(connectionString),
                                        static_cast<SQLSMALLINT>(connectionString.size()), nullptr, 0,
                                        nullptr, SQL_DRIVER_NOPROMPT),
                      OdbcConnectionFailed);
    try
    {
        // The attribute above is a hint that drivers may disregard.
        dialect_ = DialectOf(SystemName());
        if (dialect_ == SqlDialect::Sqlite)
            Execute(L"PRAGMA query_only = ON");
        else if (dialect_ == SqlDialect::PostgreSql)
            Execute(L"SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY");
    }
    catch (...)
    {
        SQLDisconnect(connection_.Get());
        throw;
    }
}

void OdbcConnection::DoPatiently(const std::function<void()>& work)
{
    const ULONGLONG end = GetTickCount64() + PatienceMs;
    for (;;)
    {
        try
        {
            return work();
        }
        catch (const DataError& error)
        {
            if (error.Result() != DatabaseInUse || GetTickCount64() >= end)
                throw;
        }
        PaintWindows(RetryMs);
    }
}

std::wstring OdbcConnection::SystemName() const
{
    SQLWCHAR name[128] = {};
    SQLSMALLINT bytes = 0;
    connection_.Check(SQLGetInfoW(connection_.Get(), SQL_DBMS_NAME, name, sizeof(name), &bytes));
    return {std::begin(name), std::find(std::begin(name), std::end(name), L'\0')};
}

void OdbcConnection::Execute(const std::wstring& command) const
{
    const OdbcHandle<SQL_HANDLE_STMT> statement(connection_.Get());
    statement.Check(
        SQLExecDirectW(statement.Get(), OdbcText(command), static_cast<SQLINTEGER>(command.size())));
}

void OdbcConnection::RequireOpen() const
{
    if (!open_)
        throw DataError(DataObjectClosed, L"The database is closed.");
}

} // namespace kiv::host
