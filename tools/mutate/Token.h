#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kiv::mutate
{

enum class TokenKind
{
    Word,
    Number, // characters as well
    Text,
    Sign
};

struct Token
{
    TokenKind Kind;
    std::string_view Text;
    std::size_t Offset;
    std::size_t Line; // from 1
    // Blanks on both sides. In sources that are laid out by clang-format this tells the operator from the
    // bracket of a template, and a product from a pointer.
    bool Apart;

    std::size_t End() const { return Offset + Text.size(); }
};

// What the compiler would see of a source, without comments and lines of the preprocessor. The tokens point
// into it.
std::vector<Token> Tokenize(std::string_view source);

// The place of the bracket that belongs to an opening one; the count of tokens if there is none.
std::size_t Closing(const std::vector<Token>& tokens, std::size_t opening);

bool Opens(const Token& token);
bool Closes(const Token& token);

} // namespace kiv::mutate
