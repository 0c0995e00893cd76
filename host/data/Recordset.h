#pragma once

#include "host/data/AutomationObject.h"
#include "host/data/OdbcCursor.h"

#include <optional>

namespace kiv::host
{

// Nothing once it is closed.
using SharedCursor = std::shared_ptr<std::optional<OdbcCursor>>;

// Of a Recordset's current row, whichever that is when it is asked:
//   Value (the default)  the field's text, or Null
class Field final : public AutomationObject
{
public:
    Field(SharedCursor cursor, std::size_t column);

private:
    Variant Call(DISPID member, const std::vector<Variant>& arguments) override;

    SharedCursor cursor_;
    std::size_t column_;
};

// All fields of a Recordset:
//   Item(name or number from 0) (the default)
class Fields final : public AutomationObject
{
public:
    explicit Fields(SharedCursor cursor);

private:
    Variant Call(DISPID member, const std::vector<Variant>& arguments) override;

    SharedCursor cursor_;
};

// The rows that a query found, from the first on:
//   EOF                 behind the last row
//   MoveNext
//   Fields (the default), Fields(name or number)
//   Close               whatever is asked later, of its fields as well, fails
class Recordset final : public AutomationObject
{
public:
    Recordset(std::shared_ptr<const OdbcConnection> connection, const std::wstring& query);

private:
    Variant Call(DISPID member, const std::vector<Variant>& arguments) override;

    SharedCursor cursor_;
};

} // namespace kiv::host
