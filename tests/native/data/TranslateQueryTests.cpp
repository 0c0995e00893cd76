#include "host/data/TranslateQuery.h"

#include <gtest/gtest.h>

namespace kiv::host
{

namespace
{

std::wstring Sqlite(std::wstring_view query)
{
    return TranslateQuery(query, SqlDialect::Sqlite);
}

std::wstring PostgreSql(std::wstring_view query)
{
    return TranslateQuery(query, SqlDialect::PostgreSql);
}

std::string Mistake(std::wstring_view query, SqlDialect dialect = SqlDialect::Sqlite)
{
    try
    {
        TranslateQuery(query, dialect);
        return "none";
    }
    catch (const QueryError& error)
    {
        return error.what();
    }
}

TEST(TranslateQuery, RewritesTheQueriesOfCodeLists)
{
    const std::wstring lookup =
        L"SELECT * FROM [Enum Tables]  WHERE [State Code] = 'MD' AND [Table Name] = 'County' "
        L"AND [Enum Code] = '7'";
    EXPECT_EQ(Sqlite(lookup),
              L"SELECT * FROM [Enum Tables] WHERE [State Code] = 'MD' AND [Table Name] = 'County' "
              L"AND [Enum Code] = '7'");
    EXPECT_EQ(PostgreSql(lookup), L"SELECT * FROM \"Enum Tables\" WHERE \"State Code\" = 'MD' AND "
                                  L"\"Table Name\" = 'County' AND \"Enum Code\" = '7'");
    const std::wstring list = L"SELECT * FROM [Enum Tables]  WHERE [State Code] = '' AND [Table Name] = 'T' "
                              L"ORDER BY RIGHT('0000000000' & [Enum Code], 10)";
    EXPECT_EQ(Sqlite(list),
              L"SELECT * FROM [Enum Tables] WHERE [State Code] = '' AND [Table Name] = 'T' "
              L"ORDER BY substr((COALESCE('0000000000', '') || COALESCE([Enum Code], '')), -10)");
    EXPECT_EQ(PostgreSql(list),
              L"SELECT * FROM \"Enum Tables\" WHERE \"State Code\" = '' AND \"Table Name\" = 'T' "
              L"ORDER BY right(CAST(concat('0000000000', \"Enum Code\") AS text), 10)");
}

struct Row
{
    std::wstring Query;
    std::wstring Sqlite;
    std::wstring PostgreSql;
};

TEST(TranslateQuery, LeavesTextsAlone)
{
    const Row rows[] = {
        {L"SELECT '[a] & RIGHT(b, 2); -- \"c\" /* ?'", L"SELECT '[a] & RIGHT(b, 2); -- \"c\" /* ?'",
         L"SELECT '[a] & RIGHT(b, 2); -- \"c\" /* ?'"},
        {L"SELECT 'it''s'", L"SELECT 'it''s'", L"SELECT 'it''s'"},
        {L"SELECT \"it's \"\"x\"\"\"", L"SELECT 'it''s \"x\"'", L"SELECT 'it''s \"x\"'"},
        {L"SELECT 'a\r\nb  c'", L"SELECT 'a\r\nb  c'", L"SELECT 'a\r\nb  c'"},
        {L"SELECT ''", L"SELECT ''", L"SELECT ''"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(Sqlite(row.Query), row.Sqlite);
        EXPECT_EQ(PostgreSql(row.Query), row.PostgreSql);
    }
}

TEST(TranslateQuery, WritesNamesAsTheEngineReadsThem)
{
    EXPECT_EQ(Sqlite(L"SELECT [T x].[it's \"y\"] FROM [T x]"), L"SELECT [T x].[it's \"y\"] FROM [T x]");
    EXPECT_EQ(PostgreSql(L"SELECT [T x].[it's \"y\"] FROM [T x]"),
              L"SELECT \"T x\".\"it's \"\"y\"\"\" FROM \"T x\"");
    EXPECT_EQ(PostgreSql(L"SELECT Plain FROM T"), L"SELECT Plain FROM T");
}

TEST(TranslateQuery, PutsTextsTogether)
{
    const Row rows[] = {
        {L"SELECT a & b & 'c' AS d, e",
         L"SELECT (COALESCE(a, '') || COALESCE(b, '') || COALESCE('c', '')) AS d, e",
         L"SELECT concat(a, b, 'c') AS d, e"},
        {L"SELECT x WHERE a&b='c'", L"SELECT x WHERE (COALESCE(a, '') || COALESCE(b, ''))= 'c'",
         L"SELECT x WHERE concat(a, b)= 'c'"},
        // Arithmetic binds tighter, comparing looser.
        {L"SELECT 1 + 2 & 3 * 4 <> a & b",
         L"SELECT (COALESCE(1 + 2, '') || COALESCE(3 * 4, '')) <> "
         L"(COALESCE(a, '') || COALESCE(b, ''))",
         L"SELECT concat(1 + 2, 3 * 4) <> concat(a, b)"},
        {L"SELECT (a & b) & c",
         L"SELECT (COALESCE(((COALESCE(a, '') || COALESCE(b, ''))), '') || COALESCE(c, ''))",
         L"SELECT concat((concat(a, b)), c)"},
        {L"SELECT f(a & b, c) & d",
         L"SELECT (COALESCE(f((COALESCE(a, '') || COALESCE(b, '')), c), '') || COALESCE(d, ''))",
         L"SELECT concat(f(concat(a, b), c), d)"},
        {L"SELECT x WHERE NOT a & b LIKE 'c' & d AND e BETWEEN f & g AND h ORDER BY i & j DESC",
         L"SELECT x WHERE NOT (COALESCE(a, '') || COALESCE(b, '')) LIKE (COALESCE('c', '') || COALESCE(d, "
         L"'')) AND "
         L"e BETWEEN (COALESCE(f, '') || COALESCE(g, '')) AND h ORDER BY (COALESCE(i, '') || COALESCE(j, "
         L"'')) DESC",
         L"SELECT x WHERE NOT concat(a, b) LIKE concat('c', d) AND e BETWEEN concat(f, g) AND h "
         L"ORDER BY concat(i, j) DESC"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(Sqlite(row.Query), row.Sqlite);
        EXPECT_EQ(PostgreSql(row.Query), row.PostgreSql);
    }
}

TEST(TranslateQuery, TakesTheLastCharacters)
{
    EXPECT_EQ(Sqlite(L"SELECT RIGHT(a, 3)"), L"SELECT substr(a, -3)");
    EXPECT_EQ(Sqlite(L"SELECT Right ( a + f(b, c) , 03 )"), L"SELECT substr(a + f(b, c), -03)");
    // A start of -0 would be the first character's.
    EXPECT_EQ(Sqlite(L"SELECT RIGHT(a, 0)"), L"SELECT substr(a, 1, 0)");
    EXPECT_EQ(Sqlite(L"SELECT RIGHT(RIGHT(a, 4), 2) & b"),
              L"SELECT (COALESCE(substr(substr(a, -4), -2), '') || COALESCE(b, ''))");
    EXPECT_EQ(PostgreSql(L"SELECT RIGHT(a, 0)"), L"SELECT right(CAST(a AS text), 0)");
    // A join of that name is none.
    EXPECT_EQ(Sqlite(L"SELECT a & b FROM c RIGHT JOIN d ON e = f"),
              L"SELECT (COALESCE(a, '') || COALESCE(b, '')) FROM c RIGHT JOIN d ON e = f");
    EXPECT_EQ(Sqlite(L"SELECT [RIGHT], 'RIGHT(a, 1)'"), L"SELECT [RIGHT], 'RIGHT(a, 1)'");
}

TEST(TranslateQuery, LetsNothingTurnIntoSomethingElse)
{
    // A comment; a text with a prefix, of other digits or with escapes.
    EXPECT_EQ(Sqlite(L"SELECT 5--3"), L"SELECT 5 - - 3");
    EXPECT_EQ(Sqlite(L"SELECT 5/*3"), L"SELECT 5 / * 3");
    EXPECT_EQ(Sqlite(L"SELECT X'41'"), L"SELECT X '41'");
    EXPECT_EQ(PostgreSql(L"SELECT E'\\n'"), L"SELECT E '\\n'");
    EXPECT_EQ(PostgreSql(L"SELECT U&'x'"), L"SELECT concat(U, 'x')");
    for (const wchar_t* sign :
         {L"?", L"{", L"}", L"#", L"$", L"@", L"!", L"\\", L"^", L":", L"`", L"|", L"~", L"%"})
        EXPECT_EQ(Mistake(std::wstring(L"SELECT a ") + sign),
                  std::string("\"") + static_cast<char>(*sign) + "\" cannot be translated");
}

TEST(TranslateQuery, IsASingleSelect)
{
    EXPECT_EQ(Sqlite(L"select 1"), L"select 1");
    EXPECT_EQ(Sqlite(L" SELECT 1 ; "), L"SELECT 1");
    EXPECT_EQ(Sqlite(L"SELECT [INTO], 'SELECT; INTO'"), L"SELECT [INTO], 'SELECT; INTO'");
    for (const SqlDialect dialect : {SqlDialect::Sqlite, SqlDialect::PostgreSql, SqlDialect::Desktop})
    {
        for (const wchar_t* query :
             {L"", L";", L"DELETE FROM t", L"(SELECT 1)", L"'SELECT'", L"[SELECT] 1", L"WITH a AS b"})
            EXPECT_EQ(Mistake(query, dialect), "only a SELECT is accepted as a query");
        for (const wchar_t* query : {L"SELECT 1 UNION SELECT 2", L"SELECT 1; SELECT 2", L"SELECT (SELECT 1)"})
            EXPECT_EQ(Mistake(query, dialect), "a query holds one SELECT, without others in or behind it");
        EXPECT_EQ(Mistake(L"SELECT 1; DROP TABLE t", dialect),
                  "something follows the semicolon, the end of a query");
        EXPECT_EQ(Mistake(L"SELECT 1;;", dialect), "something follows the semicolon, the end of a query");
        EXPECT_EQ(Mistake(L"SELECT a INTO b FROM c", dialect), "SELECT INTO would write a table");
        EXPECT_EQ(Mistake(L"SELECT 'a' 'b", dialect),
                  "the text that starts at character 12 has no closing quote");
    }
}

TEST(TranslateQuery, SaysWhatIsWrong)
{
    const std::pair<const wchar_t*, const char*> rows[] = {
        {L"SELECT & a", "nothing stands in front of an \"&\""},
        {L"SELECT a & & b", "nothing stands in front of an \"&\""},
        {L"SELECT a &", "nothing stands behind an \"&\""},
        {L"SELECT (a &)", "nothing stands behind an \"&\""},
        {L"SELECT a & FROM b", "nothing stands behind an \"&\""},
        {L"SELECT (a", "an opening parenthesis has no closing one"},
        {L"SELECT (a;", "an opening parenthesis has no closing one"},
        {L"SELECT a)", "a closing parenthesis has no opening one"},
        {L"SELECT RIGHT(a)", "RIGHT takes a text and a number"},
        {L"SELECT RIGHT(, 1)", "RIGHT takes a text and a number"},
        {L"SELECT RIGHT(a, b)", "the second argument of RIGHT has to be a whole number"},
        {L"SELECT RIGHT(a, 1.5)", "the second argument of RIGHT has to be a whole number"},
        {L"SELECT RIGHT(a, 1000000000)", "the second argument of RIGHT has to be a whole number"},
        {L"SELECT RIGHT(a, -1)", "the second argument of RIGHT has to be a whole number"},
        {L"SELECT RIGHT(a, 1", "an opening parenthesis has no closing one"},
        {L"SELECT RIGHT(a, 1, 2)", "an opening parenthesis has no closing one"},
    };
    for (const auto& [query, mistake] : rows)
        EXPECT_EQ(Mistake(query), mistake);
    EXPECT_EQ(Mistake(L"SELECT " + std::wstring(100, L'(') + L"1" + std::wstring(100, L')')), "none");
    EXPECT_EQ(Mistake(L"SELECT " + std::wstring(101, L'(') + L"1" + std::wstring(101, L')')),
              "too many parentheses stand in each other");
    EXPECT_EQ(Mistake(L"SELECT " + std::wstring(100000, L'(')), "too many parentheses stand in each other");
}

TEST(TranslateQuery, LeavesTheQueriesOwnSqlAsItIs)
{
    const std::wstring query = L"SELECT  [a]&\"b\", #1/2/2003#, T![c] FROM T;";
    EXPECT_EQ(TranslateQuery(query, SqlDialect::Desktop), query);
}

TEST(TranslateQuery, KnowsEnginesByTheirNames)
{
    EXPECT_EQ(DialectOf(L"SQLite"), SqlDialect::Sqlite);
    EXPECT_EQ(DialectOf(L"SQLite3"), SqlDialect::Sqlite);
    EXPECT_EQ(DialectOf(L"PostgreSQL"), SqlDialect::PostgreSql);
    EXPECT_EQ(DialectOf(L"ACCESS"), SqlDialect::Desktop);
    EXPECT_EQ(DialectOf(L""), SqlDialect::Desktop);
}

} // namespace

} // namespace kiv::host
