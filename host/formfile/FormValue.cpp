#include "host/formfile/FormValue.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace kiv::host
{

namespace
{

std::string_view TrimLeft(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

char LowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool StartsWithWord(std::string_view text, std::string_view lowerCase)
{
    if (text.size() < lowerCase.size())
        return false;
    for (std::size_t at = 0; at < lowerCase.size(); ++at)
        if (LowerCase(text[at]) != lowerCase[at])
            return false;
    return true;
}

[[noreturn]] void Refuse(const std::string& why)
{
    throw std::invalid_argument(why);
}

// Takes a quoted piece off the front.
std::string TakeQuoted(std::string_view& text)
{
    std::string piece;
    for (std::size_t at = 1; at < text.size(); ++at)
    {
        if (text[at] != '"')
            piece += text[at];
        else if (at + 1 < text.size() && text[at + 1] == '"')
            piece += text[at++];
        else
        {
            text.remove_prefix(at + 1);
            return piece;
        }
    }
    Refuse("the text has no closing quote");
}

// Takes Chr(code) off the front.
char TakeCharacter(std::string_view& text)
{
    text.remove_prefix(4); // "Chr("
    unsigned code = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), code);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (error != std::errc() || code > 127 || !text.starts_with(')'))
        Refuse("Chr takes a code from 0 to 127 in parentheses");
    text.remove_prefix(1);
    return static_cast<char>(code);
}

std::string ParseText(std::string_view text)
{
    std::string whole;
    for (;;)
    {
        if (text.starts_with('"'))
            whole += TakeQuoted(text);
        else if (StartsWithWord(text, "chr("))
            whole += TakeCharacter(text);
        else
            Refuse("a quoted text or Chr(code) must follow \"&\"");
        text = TrimLeft(text);
        if (text.empty())
            return whole;
        if (!text.starts_with('&'))
            Refuse("unexpected \"" + std::string(text) + "\" behind the text");
        text = TrimLeft(text.substr(1));
    }
}

std::int64_t ParseHexadecimal(std::string_view text)
{
    std::string_view digits = text.substr(2);
    if (digits.ends_with('&'))
        digits.remove_suffix(1);
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (error == std::errc::result_out_of_range)
        Refuse("the number " + std::string(text) + " is too large");
    if (error != std::errc() || end != digits.data() + digits.size())
        Refuse("\"" + std::string(text) + "\" is not a hexadecimal number");
    // Up to eight digits are a 32-bit pattern, whose top bit is the sign.
    if (digits.size() <= 8)
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
    return static_cast<std::int64_t>(number);
}

FormValue ParseNumber(std::string_view text)
{
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    std::int64_t whole = 0;
    const auto [wholeEnd, wholeError] = std::from_chars(begin, end, whole);
    if (wholeEnd == end && wholeError == std::errc())
        return whole;
    if (wholeEnd == end && wholeError == std::errc::result_out_of_range)
        Refuse("the number " + std::string(text) + " is too large");
    double number = 0;
    const auto [numberEnd, numberError] = std::from_chars(begin, end, number);
    if (numberEnd != end || text.find_first_of("0123456789") == std::string_view::npos)
        Refuse("\"" + std::string(text) +
               "\" is no value: a number, True, False or a text in quotes is expected");
    if (numberError != std::errc() || !std::isfinite(number))
        Refuse("the number " + std::string(text) + " is out of range");
    return number;
}

} // namespace

FormValue ParseFormValue(std::string_view text)
{
    if (text.empty())
        Refuse("there is no value behind \"=\"");
    if (text.starts_with('"') || StartsWithWord(text, "chr("))
        return ParseText(text);
    if (StartsWithWord(text, "true") && text.size() == 4)
        return true;
    if (StartsWithWord(text, "false") && text.size() == 5)
        return false;
    if (StartsWithWord(text, "&h"))
        return ParseHexadecimal(text);
    return ParseNumber(text);
}

std::string QuoteFormText(std::string_view text)
{
    std::string written;
    bool open = false;
    for (const char character : text)
    {
        const auto code = static_cast<unsigned char>(character);
        const bool plain = (code >= 32 && code != 127) || code == '\t';
        if (plain && !open)
            written += written.empty() ? "\"" : " & \"";
        else if (!plain)
            written += open ? "\" & " : (written.empty() ? "" : " & ");
        open = plain;
        if (!plain)
            written += "Chr(" + std::to_string(code) + ")";
        else if (character == '"')
            written += "\"\"";
        else
            written += character;
    }
    if (written.empty())
        return "\"\"";
    return open ? written + "\"" : written;
}

std::string FormatFormValue(const FormValue& value)
{
    if (const bool* truth = std::get_if<bool>(&value))
        return *truth ? "True" : "False";
    if (const std::string* text = std::get_if<std::string>(&value))
        return QuoteFormText(*text);

    char digits[40];
    if (const std::int64_t* number = std::get_if<std::int64_t>(&value))
    {
        const auto bits = static_cast<std::uint64_t>(*number);
        if (*number == static_cast<std::int32_t>(*number) && (bits & 0xFF000000U) == 0x80000000U)
        {
            const auto end = std::to_chars(digits, std::end(digits), bits & 0xFFFFFFFFU, 16).ptr;
            std::string written = "&H";
            for (const char* digit = digits; digit != end; ++digit)
                written += *digit >= 'a' ? static_cast<char>(*digit - 'a' + 'A') : *digit;
            return written;
        }
        return std::string(digits, std::to_chars(digits, std::end(digits), *number).ptr);
    }
    std::string written(digits, std::to_chars(digits, std::end(digits), std::get<double>(value)).ptr);
    // A fraction of nothing still tells it from a whole number.
    if (written.find_first_of(".e") == std::string::npos)
        written += ".0";
    return written;
}

} // namespace kiv::host
