#include "tools/mutate/Site.h"

#include <algorithm>
#include <array>
#include <optional>

namespace kiv::mutate
{

namespace
{

// A binary operator: what it becomes, and an operator of the same precedence that carries the switch.
struct Operator
{
    std::string_view Sign;
    std::string_view Carrier;
    std::string_view Does;
    std::array<std::string_view, 2> Becomes; // the second may be none
    std::array<std::string_view, 2> ThenDoes;
};

constexpr Operator Operators[] = {
    {"<", "<", "std::less<>", {"<=", ">="}, {"std::less_equal<>", "std::greater_equal<>"}},
    {"<=", "<", "std::less_equal<>", {"<", ">"}, {"std::less<>", "std::greater<>"}},
    {">", "<", "std::greater<>", {">=", "<="}, {"std::greater_equal<>", "std::less_equal<>"}},
    {">=", "<", "std::greater_equal<>", {">", "<"}, {"std::greater<>", "std::less<>"}},
    {"==", "==", "std::equal_to<>", {"!="}, {"std::not_equal_to<>"}},
    {"!=", "==", "std::not_equal_to<>", {"=="}, {"std::equal_to<>"}},
    {"+", "+", "std::plus<>", {"-"}, {"std::minus<>"}},
    {"-", "+", "std::minus<>", {"+"}, {"std::plus<>"}},
    {"*", "*", "std::multiplies<>", {"/"}, {"std::divides<>"}},
    {"/", "*", "std::divides<>", {"*"}, {"std::multiplies<>"}},
    {"%", "*", "std::modulus<>", {"*"}, {"std::multiplies<>"}},
    {"<<", "<<", "::mutants::ShiftLeft", {">>"}, {"::mutants::ShiftRight"}},
    {">>", "<<", "::mutants::ShiftRight", {"<<"}, {"::mutants::ShiftLeft"}},
    {"&", "&", "std::bit_and<>", {"|"}, {"std::bit_or<>"}},
    {"|", "|", "std::bit_or<>", {"&"}, {"std::bit_and<>"}},
    {"^", "^", "std::bit_xor<>", {"|"}, {"std::bit_or<>"}},
    {"+=", "+=", "std::plus<>", {"-="}, {"std::minus<>"}},
    {"-=", "+=", "std::minus<>", {"+="}, {"std::plus<>"}},
    {"*=", "+=", "std::multiplies<>", {"/="}, {"std::divides<>"}},
    {"/=", "+=", "std::divides<>", {"*="}, {"std::multiplies<>"}},
    {"%=", "+=", "std::modulus<>", {"*="}, {"std::multiplies<>"}},
    {"<<=", "+=", "::mutants::ShiftLeft", {">>="}, {"::mutants::ShiftRight"}},
    {">>=", "+=", "::mutants::ShiftRight", {"<<="}, {"::mutants::ShiftLeft"}},
    {"&=", "+=", "std::bit_and<>", {"|="}, {"std::bit_or<>"}},
    {"|=", "+=", "std::bit_or<>", {"&="}, {"std::bit_and<>"}},
};

// An operator before its operand: what it becomes, and the switch.
struct Prefix
{
    std::string_view Sign;
    std::string_view Becomes;
    std::string_view Switch;
};

constexpr Prefix Prefixes[] = {
    {"++", "--", "Up"}, {"--", "++", "Down"}, {"-", "", "Minus"}, {"!", "", "Not"}, {"~", "", "Bits"}};

class SiteFinder
{
public:
    SiteFinder(std::string_view source, const std::vector<Token>& tokens) :
        tokens_(tokens), sites_(FindStatements(source, tokens))
    {
    }

    // A switch at the end of an operand stands further out the weaker its operator binds.
    std::vector<Site> All()
    {
        Each(&SiteFinder::Literal);
        Each(&SiteFinder::Binary);
        Each(&SiteFinder::Unary);
        Each(&SiteFinder::And);
        Each(&SiteFinder::Or);
        Each(&SiteFinder::Choice);
        Each(&SiteFinder::Branch);
        return std::move(sites_);
    }

private:
    void Each(void (SiteFinder::*find)(std::size_t))
    {
        for (std::size_t i = 1; i < tokens_.size(); ++i)
            (this->*find)(i);
    }

    std::string_view Text(std::size_t i) const { return i < tokens_.size() ? tokens_[i].Text : ""; }

    static Edit Replace(const Token& token, std::string text)
    {
        return {token.Offset, token.Text.size(), std::move(text)};
    }

    static Mutant Becomes(const Token& token, std::string_view other)
    {
        const std::string text(other);
        const std::string shown = text.empty() ? "nothing" : text;
        return {token.Line, std::string(token.Text) + " becomes " + shown, {Replace(token, text)}};
    }

    void Literal(std::size_t i)
    {
        const Token& token = tokens_[i];
        const std::string text(token.Text);
        const bool truth = token.Text == "true" || token.Text == "false";
        if (truth)
            sites_.push_back({{Becomes(token, token.Text == "true" ? "false" : "true")},
                              {Replace(token, "::mutants::Flag(#, " + text + ")")}});
        else if (token.Kind == TokenKind::Number)
            sites_.push_back({{Becomes(token, "(" + text + " + 1)")},
                              {Replace(token, "::mutants::Value(#, " + text + ")")}});
    }

    void Binary(std::size_t i)
    {
        const Token& token = tokens_[i];
        const auto found =
            std::ranges::find_if(Operators, [&](const Operator& one) { return one.Sign == token.Text; });
        if (token.Kind != TokenKind::Sign || !token.Apart || found == std::end(Operators))
            return;
        const std::string carrier = " " + std::string(found->Carrier) + " ";
        std::string switched = carrier + "::mutants::Binary<" + std::string(found->Does);
        Site site;
        for (std::size_t k = 0; k < found->Becomes.size() && !found->Becomes[k].empty(); ++k)
        {
            switched += ", " + std::string(found->ThenDoes[k]);
            site.Mutants.push_back(Becomes(token, found->Becomes[k]));
        }
        site.Switched = {Replace(token, switched + ">(#)" + carrier)};
        sites_.push_back(std::move(site));
    }

    void Unary(std::size_t i)
    {
        const Token& token = tokens_[i];
        const auto found =
            std::ranges::find_if(Prefixes, [&](const Prefix& one) { return one.Sign == token.Text; });
        if (found == std::end(Prefixes) || token.Apart || Text(i - 1) == "operator" || NamesDestructor(i))
            return;
        const bool behind = tokens_[i - 1].Kind == TokenKind::Word && tokens_[i - 1].End() == token.Offset;
        Site site{{Becomes(token, found->Becomes)}, {}};
        // Behind its operand (i++) or a prefix of a prefix (*++i): only by itself.
        if (!behind && Text(i - 1) != ")" && Text(i - 1) != "]" && Text(i - 1) != "*" && Text(i - 1) != "!")
            site.Switched = {Replace(token, "::mutants::" + std::string(found->Switch) + "(#) ->* ")};
        sites_.push_back(std::move(site));
    }

    bool NamesDestructor(std::size_t i) const
    {
        return Text(i) == "~" && (Text(i - 1) == ";" || Text(i - 1) == "}" || Text(i - 1) == ":");
    }

    void And(std::size_t i)
    {
        if (Text(i) == "&&" && tokens_[i].Apart)
            Logical(i, "||", "&&");
    }

    void Or(std::size_t i)
    {
        if (Text(i) == "||" && tokens_[i].Apart)
            Logical(i, "&&", "||");
    }

    void Logical(std::size_t i, std::string_view other, const std::string& sign)
    {
        const std::string kind = sign == "&&" ? "And" : "Or";
        sites_.push_back(
            {{Becomes(tokens_[i], other)},
             {Replace(tokens_[i], sign + " ::mutants::" + kind + "Left(#) " + sign),
              {OperandEnd(i, sign == "&&"), 0, " " + sign + " ::mutants::" + kind + "Right(#)"}}});
    }

    // Behind the right operand of a logical operator.
    std::size_t OperandEnd(std::size_t i, bool endsAtOr) const
    {
        std::size_t last = i;
        for (std::size_t at = i + 1; at < tokens_.size(); ++at)
        {
            const std::string_view text = Text(at);
            if (Closes(tokens_[at]) || text == "," || text == ";" || text == "?" || text == ":" ||
                text == "=" || (text == "||" && (endsAtOr || tokens_[at].Apart)) ||
                (text == "&&" && endsAtOr))
                break;
            if (Opens(tokens_[at]))
                at = Closing(tokens_, at);
            last = at;
        }
        return tokens_[last].End();
    }

    void Choice(std::size_t i)
    {
        if (Text(i) == "?")
            sites_.push_back({{{tokens_[i].Line, "condition before ? negated", {}}}, {Negate(i - 1)}});
    }

    void Branch(std::size_t i)
    {
        if (Text(i) != "(" || (Text(i - 1) != "if" && Text(i - 1) != "while" && Text(i - 1) != "for"))
            return;
        const std::size_t end = Closing(tokens_, i);
        std::vector<std::size_t> semicolons;
        bool declares = false;
        for (std::size_t at = i + 1; at < end; ++at)
        {
            if (Text(at) == ";")
            {
                semicolons.push_back(at);
                declares = false;
            }
            declares = declares || Text(at) == "=";
            if (Opens(tokens_[at]))
                at = Closing(tokens_, at);
        }
        if (Text(i - 1) != "for")
        {
            if (!declares)
                Condition(semicolons.empty() ? i : semicolons.back(), end);
        }
        else if (semicolons.size() == 2 && semicolons[0] + 1 < semicolons[1])
            Condition(semicolons[0], semicolons[1]);
    }

    // What stands between two tokens.
    void Condition(std::size_t before, std::size_t behind)
    {
        sites_.push_back({{{tokens_[before + 1].Line,
                            "condition negated",
                            {{tokens_[before].End(), 0, "!("}, {tokens_[behind].Offset, 0, ")"}}}},
                          {Negate(behind - 1)}});
    }

    Edit Negate(std::size_t last) const { return {tokens_[last].End(), 0, " || ::mutants::Negate(#)"}; }

    const std::vector<Token>& tokens_;
    std::vector<Site> sites_;
};

} // namespace

std::vector<Site> FindSites(std::string_view source, const std::vector<Token>& tokens)
{
    return SiteFinder(source, tokens).All();
}

} // namespace kiv::mutate
