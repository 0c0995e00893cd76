#include "host/data/TranslateQuery.h"

#include <cstdint>
#include <cstdlib>

// A query; each byte is a character, a line end at the end is the file's.

namespace
{

using kiv::host::QueryToken;
using kiv::host::QueryTokenKind;
using kiv::host::SqlDialect;

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// What the other engine sees, read by its own rules: the contents of texts and names in their order. Requires
// that all else is letters, digits and the signs that mean what they say.
struct Reading
{
    std::wstring Texts;
    std::wstring Names;
};

Reading ReadAs(SqlDialect dialect, const std::wstring& query)
{
    Reading reading;
    const wchar_t nameEnd = dialect == SqlDialect::Sqlite ? L']' : L'"';
    int open = 0;
    wchar_t before = L' ';
    for (std::size_t at = 0; at < query.size(); before = query[at++])
    {
        const wchar_t first = query[at];
        const bool isText = first == L'\'';
        if (isText || first == (nameEnd == L'"' ? L'"' : L'['))
        {
            // A letter in front would be a prefix.
            Require(before == L' ' || before == L'(' || before == L')' || before == L'.' || before == L',');
            std::wstring& content = isText ? reading.Texts : reading.Names;
            const wchar_t end = isText ? L'\'' : nameEnd;
            for (;;)
            {
                Require(++at < query.size());
                if (query[at] == end && (end == L']' || at + 1 == query.size() || query[at + 1] != end))
                    break;
                content += query[at];
                if (query[at] == end)
                    ++at;
            }
            continue;
        }
        Require(std::wstring_view(L" (),.*+-/=<>|").find(first) != std::wstring_view::npos || first >= 0x80 ||
                first == L'_' || (first >= L'0' && first <= L'9') || (first >= L'A' && first <= L'Z') ||
                (first >= L'a' && first <= L'z'));
        Require(!(before == L'-' && first == L'-') && !(before == L'/' && first == L'*'));
        open += first == L'(' ? 1 : first == L')' ? -1 : 0;
        Require(open >= 0);
    }
    Require(open == 0);
    return reading;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::wstring query(data, data + size);
    if (query.ends_with(L'\n'))
        query.pop_back();
    try
    {
        Require(TranslateQuery(query, SqlDialect::Desktop) == query);
        std::wstring texts;
        std::wstring names;
        for (const QueryToken& token : kiv::host::ReadQuery(query))
        {
            if (token.Kind == QueryTokenKind::Text)
                texts += token.Text;
            else if (token.Kind == QueryTokenKind::Name)
                names += token.Text;
        }
        for (const SqlDialect dialect : {SqlDialect::Sqlite, SqlDialect::PostgreSql})
        {
            const Reading reading = ReadAs(dialect, TranslateQuery(query, dialect));
            Require(reading.Texts == texts && reading.Names == names);
        }
    }
    catch (const kiv::host::QueryError& error)
    {
        Require(*error.what() != '\0');
    }
    return 0;
}
