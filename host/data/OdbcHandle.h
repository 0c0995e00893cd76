#pragma once

#include "host/data/DataError.h"

#include <windows.h>

#include <sql.h>
#include <sqlext.h>

#include <string>

namespace kiv::host
{

// What ODBC has to say of the last call on a handle, or a text of our own where it says nothing.
std::wstring DescribeOdbcError(SQLSMALLINT type, SQLHANDLE handle);

// Whether the last call on a handle failed because another program writes into the database just now.
bool SaysInUse(SQLSMALLINT type, SQLHANDLE handle);

// Owner of an ODBC handle: SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT.
template<SQLSMALLINT Type>
class OdbcHandle
{
public:
    // parent is what it is made in: null for an environment.
    explicit OdbcHandle(SQLHANDLE parent)
    {
        if (!SQL_SUCCEEDED(SQLAllocHandle(Type, parent, &handle_)))
            throw DataError(OdbcCallFailed, parent ? DescribeOdbcError(ParentType, parent)
                                                   : L"ODBC has no environment to offer");
    }
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;
    ~OdbcHandle() { SQLFreeHandle(Type, handle_); }

    SQLHANDLE Get() const { return handle_; }

    // Throws DataError for a call that failed.
    void Check(SQLRETURN result, HRESULT error = OdbcCallFailed) const
    {
        if (SQL_SUCCEEDED(result))
            return;
        if (SaysInUse(Type, handle_))
            throw DataError(DatabaseInUse, L"The database is locked by another program.");
        throw DataError(error, DescribeOdbcError(Type, handle_));
    }

private:
    static constexpr SQLSMALLINT ParentType = Type == SQL_HANDLE_STMT ? SQL_HANDLE_DBC : SQL_HANDLE_ENV;

    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

// A text as ODBC takes it: it writes to none of those that it is given to read.
inline SQLWCHAR* OdbcText(const std::wstring& text)
{
    static_assert(sizeof(SQLWCHAR) == sizeof(wchar_t));
    return reinterpret_cast<SQLWCHAR*>(const_cast<wchar_t*>(text.data()));
}

} // namespace kiv::host
