#include "host/data/TranslateQuery.h"

#include <algorithm>
#include <iterator>

namespace kiv::host
{

namespace
{

// Deeper than any query that a person writes.
constexpr int DeepestNesting = 100;

// What an operand of "&" cannot reach beyond: "&" binds looser than arithmetic and tighter than all of this.
constexpr std::wstring_view BoundaryWords[] = {
    L"SELECT",  L"DISTINCT", L"ALL", L"AS",    L"FROM", L"WHERE", L"GROUP", L"BY",   L"HAVING", L"ORDER",
    L"ASC",     L"DESC",     L"AND", L"OR",    L"NOT",  L"XOR",   L"EQV",   L"IMP",  L"LIKE",   L"IN",
    L"BETWEEN", L"IS",       L"ON",  L"INNER", L"LEFT", L"RIGHT", L"OUTER", L"JOIN",
};
constexpr std::wstring_view BoundarySigns[] = {L",", L"=", L"<", L">", L"<=", L">=", L"<>"};

// The signs that mean the same everywhere, beside those above and parentheses.
constexpr std::wstring_view CommonSigns[] = {L".", L"*", L"+", L"-", L"/"};

template<std::size_t Count>
bool IsOneOf(const std::wstring& text, const std::wstring_view (&list)[Count])
{
    return std::find(std::begin(list), std::end(list), text) != std::end(list);
}

std::string Narrow(const std::wstring& text)
{
    std::string narrow;
    for (const wchar_t each : text)
        narrow += static_cast<unsigned long>(each) < 0x80 ? static_cast<char>(each) : '?';
    return narrow;
}

std::wstring InQuotes(const std::wstring& text, wchar_t quote)
{
    std::wstring quoted(1, quote);
    for (const wchar_t each : text)
        quoted.append(each == quote ? 2 : 1, each);
    return quoted + quote;
}

// One SELECT, and nothing that writes.
void RequireSelect(const std::vector<QueryToken>& tokens)
{
    const auto is = [](std::wstring_view word) {
        return [word](const QueryToken& token) { return token.IsWord(word); };
    };
    if (!tokens.front().IsWord(L"SELECT"))
        throw QueryError("only a SELECT is accepted as a query");
    if (std::count_if(tokens.begin(), tokens.end(), is(L"SELECT")) != 1)
        throw QueryError("a query holds one SELECT, without others in or behind it");
    if (std::any_of(tokens.begin(), tokens.end(), is(L"INTO")))
        throw QueryError("SELECT INTO would write a table");
    const auto semicolon = std::find_if(tokens.begin(), tokens.end(),
                                        [](const QueryToken& token) { return token.IsSign(L";"); });
    if (semicolon != tokens.end() && semicolon + 2 != tokens.end())
        throw QueryError("something follows the semicolon, the end of a query");
}

class Translator
{
public:
    Translator(const std::vector<QueryToken>& tokens, SqlDialect dialect) :
        next_(tokens.begin()), sqlite_(dialect == SqlDialect::Sqlite)
    {
    }

    std::wstring Query()
    {
        std::wstring whole = Sequence();
        if (next_->IsSign(L";"))
            ++next_;
        if (next_->Kind != QueryTokenKind::End)
            throw QueryError("a closing parenthesis has no opening one");
        return whole;
    }

private:
    // What is written so far, and what has been read of a chain "a & b & c" at its end.
    struct Chain
    {
        std::wstring Written;
        std::vector<std::wstring> Operands;
        std::wstring Operand;
        bool Spaced = false; // blanks stand before the chain
    };

    bool AtEnd() const
    {
        return next_->Kind == QueryTokenKind::End || next_->IsSign(L")") || next_->IsSign(L";");
    }

    // Up to a closing parenthesis or the end; an argument ends with a comma as well.
    std::wstring Sequence(bool argument = false)
    {
        Chain chain;
        for (; !AtEnd() && !(argument && next_->IsSign(L",")); ++next_)
        {
            if (IsBoundary())
            {
                Finish(chain);
                Append(chain.Written, next_->Text, next_->Spaced);
            }
            else if (next_->IsSign(L"&"))
                NextOperand(chain);
            else
                Operand(chain);
        }
        Finish(chain);
        return chain.Written;
    }

    bool IsBoundary() const
    {
        if (next_->Kind == QueryTokenKind::Sign)
            return IsOneOf(next_->Text, BoundarySigns);
        const auto is = [this](std::wstring_view word) { return next_->IsWord(word); };
        // LEFT and RIGHT are functions as well.
        return std::any_of(std::begin(BoundaryWords), std::end(BoundaryWords), is) &&
               !((is(L"LEFT") || is(L"RIGHT")) && std::next(next_)->IsSign(L"("));
    }

    void Operand(Chain& chain)
    {
        if (chain.Operand.empty() && chain.Operands.empty())
            chain.Spaced = next_->Spaced;
        const bool spaced = next_->Spaced && !chain.Operand.empty();
        if (next_->IsWord(L"RIGHT"))
            Append(chain.Operand, Right(), spaced);
        else if (next_->IsSign(L"("))
            Append(chain.Operand, Group(), spaced);
        else
            Append(chain.Operand, Plain(), spaced);
    }

    void NextOperand(Chain& chain)
    {
        if (chain.Operand.empty())
            throw QueryError("nothing stands in front of an \"&\"");
        chain.Operands.push_back(std::move(chain.Operand));
        chain.Operand.clear();
    }

    void Finish(Chain& chain)
    {
        if (!chain.Operands.empty())
        {
            if (chain.Operand.empty())
                throw QueryError("nothing stands behind an \"&\"");
            chain.Operands.push_back(std::move(chain.Operand));
            chain.Operand = Concatenation(chain.Operands);
        }
        if (!chain.Operand.empty())
            Append(chain.Written, chain.Operand, chain.Spaced);
        chain = {std::move(chain.Written), {}, {}, false};
    }

    std::wstring Concatenation(const std::vector<std::wstring>& operands) const
    {
        // Both take a number as the text that it is written with.
        std::wstring all;
        for (const std::wstring& operand : operands)
        {
            if (!all.empty())
                all += sqlite_ ? L" || " : L", ";
            all += sqlite_ ? L"COALESCE(" + operand + L", '')" : operand;
        }
        return (sqlite_ ? L"(" : L"concat(") + all + L")";
    }

    // At the opening parenthesis; ends at the closing one, which the caller passes by.
    std::wstring Group()
    {
        Open();
        const std::wstring inner = Sequence();
        RequireClosing();
        return L"(" + inner + L")";
    }

    std::wstring Right()
    {
        ++next_;
        Open();
        const std::wstring text = Sequence(true);
        if (text.empty() || !next_->IsSign(L","))
            throw QueryError("RIGHT takes a text and a number");
        ++next_;
        const std::wstring count = next_->Text;
        if (next_->Kind != QueryTokenKind::Number || count.size() > 9 ||
            count.find_first_not_of(L"0123456789") != std::wstring::npos)
            throw QueryError("the second argument of RIGHT has to be a whole number");
        ++next_;
        RequireClosing();
        // For substr, a start of 0 is the text's own.
        if (sqlite_)
            return L"substr(" + text +
                   (count.find_first_not_of(L'0') == std::wstring::npos ? L", 1, 0)" : L", -" + count + L")");
        return L"right(CAST(" + text + L" AS text), " + count + L")";
    }

    void Open()
    {
        if (++depth_ > DeepestNesting)
            throw QueryError("too many parentheses stand in each other");
        ++next_;
    }

    void RequireClosing()
    {
        if (!next_->IsSign(L")"))
            throw QueryError("an opening parenthesis has no closing one");
        --depth_;
    }

    std::wstring Plain() const
    {
        switch (next_->Kind)
        {
        case QueryTokenKind::Name:
            // In double quotes SQLite takes a name that it does not know for a text.
            return sqlite_ ? L"[" + next_->Text + L"]" : InQuotes(next_->Text, L'"');
        case QueryTokenKind::Text:
            return InQuotes(next_->Text, L'\'');
        case QueryTokenKind::Sign:
            if (!IsOneOf(next_->Text, CommonSigns))
                throw QueryError("\"" + Narrow(next_->Text) + "\" cannot be translated");
            return next_->Text;
        default:
            return next_->Text;
        }
    }

    // Keeps apart what was: X'41' is not X '41', and two signs can begin a comment.
    static void Append(std::wstring& written, const std::wstring& piece, bool spaced)
    {
        const auto touches = [](wchar_t each) {
            return each != L'(' && each != L')' && each != L'.' && each != L',' && each != L' ';
        };
        const bool call = !piece.empty() && piece.front() == L'(';
        if (!written.empty() && !piece.empty() &&
            (spaced || (!call && touches(written.back()) && touches(piece.front()))))
            written += L' ';
        written += piece;
    }

    std::vector<QueryToken>::const_iterator next_;
    bool sqlite_;
    int depth_ = 0;
};

} // namespace

SqlDialect DialectOf(std::wstring_view systemName)
{
    if (systemName.starts_with(L"SQLite"))
        return SqlDialect::Sqlite;
    return systemName == L"PostgreSQL" ? SqlDialect::PostgreSql : SqlDialect::Desktop;
}

std::wstring TranslateQuery(std::wstring_view query, SqlDialect dialect)
{
    const std::vector<QueryToken> tokens = ReadQuery(query);
    RequireSelect(tokens);
    if (dialect == SqlDialect::Desktop)
        return std::wstring(query);
    return Translator(tokens, dialect).Query();
}

} // namespace kiv::host
