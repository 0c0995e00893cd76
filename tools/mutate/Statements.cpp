#include "tools/mutate/Site.h"

#include <algorithm>
#include <array>

namespace kiv::mutate
{

namespace
{

template<std::size_t Count>
bool IsOneOf(std::string_view text, const std::array<std::string_view, Count>& list)
{
    return std::ranges::find(list, text) != list.end();
}

constexpr std::array<std::string_view, 28> NotExpressions = {
    "alignas",  "auto",     "break", "case",      "class",  "const",         "constexpr",
    "continue", "default",  "do",    "else",      "enum",   "explicit",      "for",
    "friend",   "goto",     "if",    "namespace", "return", "static",        "struct",
    "switch",   "template", "throw", "try",       "using",  "static_assert", "while"};
constexpr std::array<std::string_view, 3> Leaving = {"break", "continue", "return"};
constexpr std::array<std::string_view, 4> Headed = {"if", "for", "while", "switch"};
constexpr std::array<std::string_view, 17> AfterTarget = {
    "(", "=", ".", "->", "[", "++", "--", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "<<=", ">>=", "^="};

class StatementFinder
{
public:
    StatementFinder(std::string_view source, const std::vector<Token>& tokens) :
        source_(source), tokens_(tokens)
    {
    }

    std::vector<Site> All()
    {
        for (at_ = 0; at_ < tokens_.size(); ++at_)
        {
            if (InCode() && Begins())
                Take();
            Enter();
        }
        return std::move(sites_);
    }

private:
    std::string_view Text(std::size_t i) const { return i < tokens_.size() ? tokens_[i].Text : ""; }
    std::string_view Before() const { return at_ == 0 ? "" : Text(at_ - 1); }
    bool InCode() const { return !code_.empty() && code_.back(); }

    void Enter()
    {
        const Token& token = tokens_[at_];
        if (Opens(token))
        {
            headers_.push_back(token.Text == "(" && (IsOneOf(Before(), Headed) || Before() == "constexpr"));
            code_.push_back(token.Text == "{" && BeginsCode());
        }
        afterHeader_ = false;
        if (Closes(token) && !code_.empty())
        {
            afterHeader_ = headers_.back();
            headers_.pop_back();
            code_.pop_back();
        }
        if (token.Text == "case" || (token.Text == "default" && Text(at_ + 1) == ":"))
            inLabel_ = true;
        afterLabel_ = inLabel_ && token.Text == ":";
        inLabel_ = inLabel_ && !afterLabel_;
    }

    // As opposed to a class, a namespace or a list of values.
    bool BeginsCode() const
    {
        constexpr std::array<std::string_view, 9> heads = {")",       "]",    "const", "noexcept", "override",
                                                           "mutable", "else", "do",    "try"};
        return IsOneOf(Before(), heads) || (InCode() && Begins());
    }

    bool Begins() const
    {
        return Before() == ";" || Before() == "{" || Before() == "}" || Before() == "else" || afterHeader_ ||
               afterLabel_;
    }

    void Take()
    {
        const std::size_t end = End();
        if (end == tokens_.size() || !(IsExpression() || Leaves(end)))
            return;
        const std::size_t offset = tokens_[at_].Offset;
        const std::size_t length = tokens_[end].Offset - offset;
        std::string what(source_.substr(offset, length));
        std::erase(what, '\n');
        sites_.push_back({{{tokens_[at_].Line, what + "; left out", {{offset, length, ""}}}},
                          {{offset, 0, "if (::mutants::Kept(#)) "}, {tokens_[end].End(), 0, " else {}"}}});
    }

    // The semicolon.
    std::size_t End() const
    {
        for (std::size_t i = at_; i < tokens_.size(); ++i)
        {
            if (tokens_[i].Text == ";")
                return i;
            if (Opens(tokens_[i]))
                i = Closing(tokens_, i);
            else if (Closes(tokens_[i]))
                break;
        }
        return tokens_.size();
    }

    bool IsExpression() const
    {
        const Token& first = tokens_[at_];
        if (first.Text == "++" || first.Text == "--" || first.Text == "*")
            return true;
        if (first.Kind != TokenKind::Word || IsOneOf(first.Text, NotExpressions))
            return false;
        std::size_t next = at_ + 1;
        while (Text(next) == "::")
            next += 2;
        if (Text(next) == "<" && !tokens_[next].Apart)
            next = AfterTemplate(next);
        return IsOneOf(Text(next), AfterTarget);
    }

    std::size_t AfterTemplate(std::size_t next) const
    {
        while (next < tokens_.size() && Text(next) != ">")
            ++next;
        return next + 1;
    }

    // Where something else comes behind it; at the end of a block it often does nothing.
    bool Leaves(std::size_t end) const { return IsOneOf(tokens_[at_].Text, Leaving) && Text(end + 1) != "}"; }

    std::string_view source_;
    const std::vector<Token>& tokens_;
    std::size_t at_ = 0;
    // Of each bracket that is open: whether it is the body of a function, and whether the head of a
    // statement.
    std::vector<bool> code_;
    std::vector<bool> headers_;
    bool afterHeader_ = false;
    bool inLabel_ = false;
    bool afterLabel_ = false;
    std::vector<Site> sites_;
};

} // namespace

std::vector<Site> FindStatements(std::string_view source, const std::vector<Token>& tokens)
{
    return StatementFinder(source, tokens).All();
}

} // namespace kiv::mutate
