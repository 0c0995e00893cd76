#include "host/data/QueryTokens.h"

#include <algorithm>

namespace kiv::host
{

namespace
{

bool IsBlank(wchar_t character)
{
    return character == L' ' || character == L'\t' || character == L'\r' || character == L'\n';
}

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

// What lies beyond ASCII is taken for a letter, as names may be in any language.
bool IsLetter(wchar_t character)
{
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z') ||
           character == L'_' || static_cast<unsigned long>(character) >= 0x80;
}

wchar_t UpperCase(wchar_t letter)
{
    return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
}

class Reader
{
public:
    explicit Reader(std::wstring_view query) : query_(query) {}

    QueryToken Next()
    {
        QueryToken token;
        for (; at_ < query_.size() && IsBlank(query_[at_]); ++at_)
            token.Spaced = true;
        if (at_ == query_.size())
            return token;
        const wchar_t first = query_[at_];
        if (first == L'\'' || first == L'"')
            Quoted(token);
        else if (first == L'[')
            Bracketed(token);
        else if (IsDigit(first) || (first == L'.' && IsDigit(Peek(1))))
            Number(token);
        else if (IsLetter(first))
            Run(token, QueryTokenKind::Word, [](wchar_t each) { return IsLetter(each) || IsDigit(each); });
        else
            Sign(token);
        return token;
    }

private:
    wchar_t Peek(std::size_t ahead) const
    {
        return at_ + ahead < query_.size() ? query_[at_ + ahead] : L'\0';
    }

    template<class Belongs>
    void Run(QueryToken& token, QueryTokenKind kind, Belongs belongs)
    {
        token.Kind = kind;
        while (at_ < query_.size() && belongs(query_[at_]))
            token.Text += query_[at_++];
    }

    void Quoted(QueryToken& token)
    {
        const std::size_t start = at_;
        const wchar_t quote = query_[at_++];
        token.Kind = QueryTokenKind::Text;
        for (; at_ < query_.size(); ++at_)
        {
            if (query_[at_] == quote)
            {
                if (Peek(1) != quote)
                {
                    ++at_;
                    return;
                }
                ++at_;
            }
            // Drivers would take it for the end of the query.
            if (query_[at_] == L'\0')
                throw QueryError("character " + std::to_string(at_ + 1) + " has the code 0");
            token.Text += query_[at_];
        }
        throw QueryError("the text that starts at character " + std::to_string(start + 1) +
                         " has no closing quote");
    }

    void Bracketed(QueryToken& token)
    {
        const std::size_t start = at_;
        const std::size_t end = query_.find(L']', at_);
        if (end == std::wstring_view::npos)
            throw QueryError("the name that starts at character " + std::to_string(start + 1) +
                             " has no closing bracket");
        token.Kind = QueryTokenKind::Name;
        token.Text = query_.substr(at_ + 1, end - at_ - 1);
        at_ = end + 1;
        if (token.Text.empty())
            throw QueryError("the brackets at character " + std::to_string(start + 1) + " hold no name");
        for (const wchar_t character : token.Text)
            if (static_cast<unsigned long>(character) < 0x20 || character == L'[')
                throw QueryError("the name that starts at character " + std::to_string(start + 1) +
                                 " holds a character that no name has");
    }

    void Number(QueryToken& token)
    {
        Run(token, QueryTokenKind::Number, [](wchar_t each) { return IsDigit(each) || each == L'.'; });
        const std::size_t sign = Peek(1) == L'+' || Peek(1) == L'-' ? 1 : 0;
        if (UpperCase(Peek(0)) == L'E' && IsDigit(Peek(1 + sign)))
        {
            token.Text += query_.substr(at_, 1 + sign);
            at_ += 1 + sign;
            Run(token, QueryTokenKind::Number, IsDigit);
        }
        if (IsLetter(Peek(0)))
            throw QueryError("a letter follows the number at character " + std::to_string(at_));
    }

    void Sign(QueryToken& token)
    {
        token.Kind = QueryTokenKind::Sign;
        const wchar_t first = query_[at_];
        if (static_cast<unsigned long>(first) < 0x20 || first == 0x7F)
            throw QueryError("character " + std::to_string(at_ + 1) + " is a control character");
        const std::wstring_view pair = query_.substr(at_, 2);
        token.Text = pair == L"<=" || pair == L">=" || pair == L"<>" ? pair : query_.substr(at_, 1);
        at_ += token.Text.size();
    }

    std::wstring_view query_;
    std::size_t at_ = 0;
};

} // namespace

bool QueryToken::IsWord(std::wstring_view word) const
{
    return Kind == QueryTokenKind::Word &&
           std::equal(Text.begin(), Text.end(), word.begin(), word.end(),
                      [](wchar_t own, wchar_t upper) { return UpperCase(own) == upper; });
}

std::vector<QueryToken> ReadQuery(std::wstring_view query)
{
    std::vector<QueryToken> tokens;
    Reader reader(query);
    do
        tokens.push_back(reader.Next());
    while (tokens.back().Kind != QueryTokenKind::End);
    return tokens;
}

} // namespace kiv::host
