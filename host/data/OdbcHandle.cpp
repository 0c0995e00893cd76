#include "host/data/OdbcHandle.h"

#include <sqlucode.h>

#include <algorithm>
#include <iterator>

namespace kiv::host
{

bool SaysInUse(SQLSMALLINT type, SQLHANDLE handle)
{
    // The number of SQLite; what other engines mean by it, their text tells.
    constexpr SQLINTEGER sqliteBusy = 5;
    SQLWCHAR state[6] = {};
    SQLWCHAR message[SQL_MAX_MESSAGE_LENGTH] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    return SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, 1, state, &native, message,
                                        static_cast<SQLSMALLINT>(std::size(message)), &length)) &&
           native == sqliteBusy &&
           std::wstring(std::begin(message), std::end(message)).find(L"locked") != std::wstring::npos;
}

std::wstring DescribeOdbcError(SQLSMALLINT type, SQLHANDLE handle)
{
    std::wstring all;
    for (SQLSMALLINT record = 1;; ++record)
    {
        SQLWCHAR state[6] = {};
        SQLWCHAR message[SQL_MAX_MESSAGE_LENGTH] = {};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, record, state, &native, message,
                                          static_cast<SQLSMALLINT>(std::size(message)), &length)))
            break;
        if (!all.empty())
            all += L"\r\n";
        all += std::wstring(std::begin(state), std::find(std::begin(state), std::end(state), L'\0')) + L" ";
        all.append(std::begin(message), std::find(std::begin(message), std::end(message), L'\0'));
    }
    return all.empty() ? L"ODBC failed without saying why" : all;
}

} // namespace kiv::host
