#pragma once

#include "host/data/OdbcHandle.h"
#include "host/data/TranslateQuery.h"

#include <functional>

namespace kiv::host
{

// A connection to a data source that can only read. Ends when it is closed and the last cursor on it is gone.
class OdbcConnection
{
public:
    // Throws DataError.
    explicit OdbcConnection(const std::wstring& connectionString);
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;
    ~OdbcConnection() { SQLDisconnect(connection_.Get()); }

    SQLHDBC Get() const { return connection_.Get(); }
    SqlDialect Dialect() const { return dialect_; }

    void Close() { open_ = false; }
    // Does it, and while the database is locked by another program does it again, for two seconds in all. The
    // windows of the program are painted meanwhile.
    static void DoPatiently(const std::function<void()>& work);

    // Throws DataError once it is closed.
    void RequireOpen() const;

private:
    std::wstring SystemName() const;
    void Execute(const std::wstring& command) const;

    OdbcHandle<SQL_HANDLE_ENV> environment_;
    OdbcHandle<SQL_HANDLE_DBC> connection_;
    SqlDialect dialect_ = SqlDialect::Desktop;
    bool open_ = true;
};

} // namespace kiv::host
