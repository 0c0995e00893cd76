#pragma once

#include "host/data/AutomationObject.h"
#include "host/data/OdbcConnection.h"

#include <memory>

namespace kiv::host
{

// A database for controls that read code tables, called by name:
//   OpenRecordset(query, type)  a Recordset. The query is one SELECT in the SQL of desktop databases; type
//   may
//                               be 8 (forward only) or left out.
//   Close                       whatever is asked later, of its recordsets as well, fails
// Its connection is read-only.
class Database final : public AutomationObject
{
public:
    // Throws DataError.
    explicit Database(const std::wstring& connectionString);

private:
    Variant Call(DISPID member, const std::vector<Variant>& arguments) override;
    Variant OpenRecordset(const std::vector<Variant>& arguments) const;

    std::shared_ptr<OdbcConnection> connection_; // null once closed
};

// The connection string of a source as a user names it: one that holds an "=" is a connection string itself,
// any other the file of an SQLite database, which has to be there. Throws DataError.
std::wstring ConnectionStringOf(const std::wstring& source);

} // namespace kiv::host
