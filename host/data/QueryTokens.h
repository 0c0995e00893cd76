#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::host
{

// A query that is refused; what() says why in words for the person who wrote it.
struct QueryError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

enum class QueryTokenKind
{
    Word,   // a keyword, or a name without brackets; as written
    Name,   // a name in brackets; without them
    Text,   // a text in either kind of quotes; its content, doubled quotes made one
    Number, // as written
    Sign,   // one character, or one of <= >= <>
    End,    // of the query
};

// A piece of a query in the SQL of desktop databases.
struct QueryToken
{
    QueryTokenKind Kind = QueryTokenKind::End;
    std::wstring Text;
    bool Spaced = false; // blanks stand before it

    bool IsSign(std::wstring_view sign) const { return Kind == QueryTokenKind::Sign && Text == sign; }
    // word in capitals; case is ignored.
    bool IsWord(std::wstring_view word) const;
};

// Takes a query apart; the last token is an End. Throws QueryError for what cannot be taken apart: a text or
// a name that is not closed, a character that no query has.
std::vector<QueryToken> ReadQuery(std::wstring_view query);

} // namespace kiv::host
