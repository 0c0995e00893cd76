#include "host/data/QueryTokens.h"

#include <gtest/gtest.h>

namespace kiv::host
{

namespace
{

using enum QueryTokenKind;

// "Word:Text", with a blank in front where one stands in the query; the end is left out.
std::vector<std::wstring> Read(std::wstring_view query)
{
    const auto kind = [](const QueryToken& token) -> std::wstring {
        switch (token.Kind)
        {
        case Word:
            return L"Word:";
        case Name:
            return L"Name:";
        case Text:
            return L"Text:";
        case Number:
            return L"Number:";
        case Sign:
            return L"Sign:";
        default:
            return L"End:";
        }
    };
    std::vector<std::wstring> read;
    for (const QueryToken& token : ReadQuery(query))
        read.push_back((token.Spaced ? L" " : L"") + kind(token) + token.Text);
    read.pop_back();
    return read;
}

std::string MistakeIn(std::wstring_view query)
{
    try
    {
        ReadQuery(query);
        return "none";
    }
    catch (const QueryError& error)
    {
        return error.what();
    }
}

using Pieces = std::vector<std::wstring>;

TEST(QueryTokens, AreWordsNamesTextsNumbersAndSigns)
{
    EXPECT_EQ(Read(L"SELECT *\r\nFROM [Enum Tables]"),
              (Pieces{L"Word:SELECT", L" Sign:*", L" Word:FROM", L" Name:Enum Tables"}));
    EXPECT_EQ(Read(L"a<=1.5E+3 <>.25"),
              (Pieces{L"Word:a", L"Sign:<=", L"Number:1.5E+3", L" Sign:<>", L"Number:.25"}));
    EXPECT_EQ(Read(L"gr\u00F6\u00DFe_2&a"), (Pieces{L"Word:gr\u00F6\u00DFe_2", L"Sign:&", L"Word:a"}));
}

TEST(QueryTokens, TextsKeepWhatIsInThem)
{
    EXPECT_EQ(Read(L"'[x] & \"y\" -- ;'"), Pieces{L"Text:[x] & \"y\" -- ;"});
    EXPECT_EQ(Read(L"\"it's\""), Pieces{L"Text:it's"});
    EXPECT_EQ(Read(L"'it''s' \"say \"\"hi\"\"\" ''"), (Pieces{L"Text:it's", L" Text:say \"hi\"", L" Text:"}));
    EXPECT_EQ(Read(L"'a'\"b\""), (Pieces{L"Text:a", L"Text:b"}));
    EXPECT_EQ(Read(L"'one\r\ntwo'"), Pieces{L"Text:one\r\ntwo"});
}

TEST(QueryTokens, NamesKeepWhatIsInThem)
{
    EXPECT_EQ(Read(L"[it's \"x\" & y]"), Pieces{L"Name:it's \"x\" & y"});
    EXPECT_EQ(Read(L"[a].[b]"), (Pieces{L"Name:a", L"Sign:.", L"Name:b"}));
}

TEST(QueryTokens, WordsCompareWithoutCase)
{
    EXPECT_TRUE(ReadQuery(L"sElEcT").front().IsWord(L"SELECT"));
    EXPECT_FALSE(ReadQuery(L"[SELECT]").front().IsWord(L"SELECT"));
    EXPECT_FALSE(ReadQuery(L"'SELECT'").front().IsWord(L"SELECT"));
}

TEST(QueryTokens, RefusesWhatIsNotWhole)
{
    EXPECT_EQ(MistakeIn(L"SELECT 'x"), "the text that starts at character 8 has no closing quote");
    EXPECT_EQ(MistakeIn(L"SELECT 'x''"), "the text that starts at character 8 has no closing quote");
    EXPECT_EQ(MistakeIn(L"'it's'"), "the text that starts at character 6 has no closing quote");
    EXPECT_EQ(MistakeIn(L"[x"), "the name that starts at character 1 has no closing bracket");
    EXPECT_EQ(MistakeIn(L"[]"), "the brackets at character 1 hold no name");
    EXPECT_EQ(MistakeIn(L"[a\nb]"), "the name that starts at character 1 holds a character that no name has");
    EXPECT_EQ(MistakeIn(L"1a"), "a letter follows the number at character 1");
    EXPECT_EQ(MistakeIn(std::wstring_view(L"'a\0b'", 5)), "character 3 has the code 0");
    EXPECT_EQ(MistakeIn(std::wstring_view(L"a\0b", 3)), "character 2 is a control character");
}

TEST(QueryTokens, AnEmptyQueryIsItsEnd)
{
    EXPECT_EQ(Read(L""), Pieces{});
    EXPECT_EQ(Read(L" \t\r\n"), Pieces{});
}

} // namespace

} // namespace kiv::host
