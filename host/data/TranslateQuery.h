#pragma once

#include "host/data/QueryTokens.h"

namespace kiv::host
{

enum class SqlDialect
{
    Desktop, // that of the queries themselves
    Sqlite,
    PostgreSql,
};

// By the name that a database management system gives itself. One that is not known is taken to speak the
// queries' own SQL.
SqlDialect DialectOf(std::wstring_view systemName);

// A query for the desktop engine in the words of another. Of what is peculiar to that engine it knows
//   [a name]      names with blanks, in brackets
//   "a text"      double quotes as well as single ones around texts
//   a & b         texts put together, Null as an empty one
//   RIGHT(a, 10)  the last characters; how many, has to be a plain number
// and leaves all else as it is written. What the other engine would take for something else (a comment, a
// parameter, an escape, a text with a prefix) does not get through. For the desktop dialect the query comes
// out unchanged, once it is looked at. Throws QueryError, also for anything but one SELECT.
std::wstring TranslateQuery(std::wstring_view query, SqlDialect dialect);

} // namespace kiv::host
