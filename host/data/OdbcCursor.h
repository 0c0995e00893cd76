#pragma once

#include "host/data/OdbcConnection.h"
#include "runtime/com/Variant.h"

#include <memory>
#include <string_view>
#include <vector>

namespace kiv::host
{

// The rows of a query, from the first to the last. Throws DataError.
class OdbcCursor
{
public:
    // query in the words of the connection's engine. The first row is the current one.
    OdbcCursor(std::shared_ptr<const OdbcConnection> connection, const std::wstring& query);

    bool AtEnd() const;
    void MoveNext();

    // By name, case ignored. Columns count from 0.
    std::size_t FindColumn(std::wstring_view name) const;
    std::size_t ColumnCount() const { return columns_.size(); }
    // Of the current row: a text, or Null.
    Variant Value(std::size_t column);

private:
    void Fetch();
    void Start(const std::wstring& query);
    void ReadColumnNames();
    Variant ReadValue(std::size_t column) const;

    std::shared_ptr<const OdbcConnection> connection_;
    OdbcHandle<SQL_HANDLE_STMT> statement_;
    std::vector<std::wstring> columns_;
    std::vector<Variant> row_; // as many of its values as have been read
    bool atEnd_ = false;
};

} // namespace kiv::host
