#include "tools/mutate/Token.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace kiv::mutate
{

namespace
{

// Longer ones first. No ">>": it closes two templates more often than it shifts, and Tokenize asks for it
// itself.
constexpr std::array<std::string_view, 24> Signs = {"<<=", ">>=", "<=>", "...", "->*", "::", "->", "++",
                                                    "--",  "<<",  "<=",  ">=",  "==",  "!=", "&&", "||",
                                                    "+=",  "-=",  "*=",  "/=",  "%=",  "&=", "|=", "^="};

bool IsBlank(char c)
{
    return c == ' ' || c == '\n';
}

bool IsWordPart(char c)
{
    return c == '_' || std::isalnum(static_cast<unsigned char>(c)) != 0;
}

class Tokenizer
{
public:
    explicit Tokenizer(std::string_view source) : source_(source) {}

    std::vector<Token> All()
    {
        while (at_ < source_.size())
            Next();
        return std::move(tokens_);
    }

private:
    void Next()
    {
        const std::string_view rest = source_.substr(at_);
        if (rest.starts_with("//") || (rest.front() == '#' && (at_ == 0 || source_[at_ - 1] == '\n')))
            at_ = std::min(source_.find('\n', at_), source_.size());
        else if (rest.front() == '\n')
            ++line_, ++at_;
        else if (rest.front() == ' ')
            ++at_;
        else
            Take(rest);
    }

    void Take(std::string_view rest)
    {
        const std::size_t quote = rest.find_first_of("\"'");
        const std::string_view prefix = rest.substr(0, quote);
        const bool quoted =
            quote != rest.npos && (prefix.empty() || prefix == "L" || prefix == "u" || prefix == "u8");
        if (quoted)
            Add(rest[quote] == '"' ? TokenKind::Text : TokenKind::Number, QuotedLength(rest, quote));
        else if (std::isdigit(static_cast<unsigned char>(rest.front())))
            Add(TokenKind::Number,
                Length(rest, [](char c) { return IsWordPart(c) || c == '.' || c == '\''; }));
        else if (IsWordPart(rest.front()))
            Add(TokenKind::Word, Length(rest, IsWordPart));
        else
            Add(TokenKind::Sign, SignLength(rest));
    }

    static std::size_t QuotedLength(std::string_view rest, std::size_t quote)
    {
        std::size_t end = quote + 1;
        while (end < rest.size() && rest[end] != rest[quote])
            end += rest[end] == '\\' ? 2 : 1;
        return end + 1;
    }

    template<class Belongs>
    static std::size_t Length(std::string_view rest, Belongs belongs)
    {
        return static_cast<std::size_t>(std::ranges::find_if_not(rest, belongs) - rest.begin());
    }

    std::size_t SignLength(std::string_view rest) const
    {
        if (rest.starts_with(">> ") && source_[at_ - 1] == ' ')
            return 2;
        const auto sign =
            std::ranges::find_if(Signs, [&](std::string_view one) { return rest.starts_with(one); });
        return sign == Signs.end() ? 1 : sign->size();
    }

    void Add(TokenKind kind, std::size_t length)
    {
        const std::size_t end = at_ + length;
        const bool apart =
            at_ > 0 && IsBlank(source_[at_ - 1]) && end < source_.size() && IsBlank(source_[end]);
        tokens_.push_back({kind, source_.substr(at_, length), at_, line_, apart});
        at_ = end;
    }

    std::string_view source_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    std::vector<Token> tokens_;
};

} // namespace

std::vector<Token> Tokenize(std::string_view source)
{
    return Tokenizer(source).All();
}

bool Opens(const Token& token)
{
    return token.Text == "(" || token.Text == "[" || token.Text == "{";
}

bool Closes(const Token& token)
{
    return token.Text == ")" || token.Text == "]" || token.Text == "}";
}

std::size_t Closing(const std::vector<Token>& tokens, std::size_t opening)
{
    std::size_t depth = 0;
    for (std::size_t i = opening; i < tokens.size(); ++i)
    {
        depth += Opens(tokens[i]) ? 1U : 0U;
        if (Closes(tokens[i]) && --depth == 0)
            return i;
    }
    return tokens.size();
}

} // namespace kiv::mutate
