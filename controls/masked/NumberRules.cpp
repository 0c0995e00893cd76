#include "controls/masked/NumberRules.h"

#include "runtime/core/Digits.h"

#include <algorithm>

namespace kiv
{

namespace
{

// The districts that issue routing numbers; there is no test of the check digit.
bool IsRoutingPrefix(int prefix)
{
    return (prefix >= 1 && prefix <= 12) || (prefix >= 21 && prefix <= 32);
}

} // namespace

void NumberRules::SetStyle(NumberFormat style)
{
    style_ = style;
    switch (style)
    {
    case NumberFormat::SSN:
        mask_ = L"___-__-____";
        maxLength_ = 11;
        usesRoutingBox_ = false;
        break;
    case NumberFormat::FederalId:
        mask_ = L"__-_______";
        maxLength_ = 10;
        usesRoutingBox_ = false;
        break;
    case NumberFormat::Routing:
        mask_ = L"";
        maxLength_ = RoutingLength;
        usesRoutingBox_ = true;
        break;
    case NumberFormat::Custom:
        mask_ = L"";
        usesRoutingBox_ = false;
        break;
    }
}

bool NumberRules::SetMaxLength(int characters)
{
    if (style_ != NumberFormat::Custom)
        return false;
    maxLength_ = characters;
    return true;
}

bool NumberRules::IsComplete(std::wstring_view text) const
{
    if (style_ == NumberFormat::Routing)
    {
        if (text.empty())
            return true;
        return text.size() == RoutingLength && AllDigits(text) &&
               IsRoutingPrefix(*ReadDigits(text.substr(0, 2)));
    }
    if (maxLength_ > 0 && text.size() > static_cast<std::size_t>(maxLength_))
        return false;
    if (IsMasked())
        return text == mask_ || FillsMask(text);
    // A style that is none asks for nothing but the length.
    return style_ != NumberFormat::Custom || AllDigits(text);
}

bool NumberRules::FillsMask(std::wstring_view text) const
{
    const auto fills = [](wchar_t character, wchar_t place) {
        return place == BlankPlace ? IsDigit(character) : character == place;
    };
    return std::ranges::equal(text, mask_, fills);
}

std::wstring NumberRules::Text(std::wstring_view boxText) const
{
    if (boxText == mask_)
        return {};
    std::wstring text(boxText);
    std::ranges::replace(text, BlankPlace, L' ');
    text.erase(text.find_last_not_of(L' ') + 1);
    text.erase(0, text.find_first_not_of(L' '));
    return text;
}

std::optional<std::wstring> NumberRules::Value(std::wstring_view boxText) const
{
    if (boxText == mask_ || !IsComplete(boxText))
        return std::nullopt;
    return std::wstring(boxText);
}

std::optional<std::wstring> NumberRules::Assigned(std::wstring_view value) const
{
    if (value.empty())
        return std::wstring(mask_);
    return IsComplete(value) ? std::optional<std::wstring>(value) : std::nullopt;
}

std::optional<std::wstring> NumberRules::Pasted(std::wstring_view clipboard) const
{
    // A clipboard without text has nothing to paste: where an empty entry is complete, it must not clear one.
    if (clipboard.empty() || !IsComplete(clipboard))
        return std::nullopt;
    return std::wstring(clipboard);
}

std::wstring NumberRules::Meaning() const
{
    switch (style_)
    {
    case NumberFormat::SSN:
        return L"Social Security number, nine digits";
    case NumberFormat::FederalId:
        return L"Federal identification number, nine digits";
    case NumberFormat::Routing:
        return L"Routing number, nine digits";
    default:
        return maxLength_ > 0 ? L"Number, at most " + std::to_wstring(maxLength_) + L" digits" : L"Number";
    }
}

std::optional<std::wstring> NumberRules::Complaint(std::wstring_view boxText) const
{
    if (boxText.empty() || IsComplete(boxText))
        return std::nullopt;
    if (style_ == NumberFormat::Routing)
        return L"Please enter a valid RTN.\nA valid RTN is a nine digit number in which the first two digits "
               L"are "
               L"01 through 12 or 21 through 32.";
    return L"Please enter all digits in this field.";
}

KeyOutcome NumberRules::KeyPress(const BoxState& box, short keyAscii) const
{
    if (IsMasked())
        return OvertypeCharacter(Places(), box, keyAscii);
    const bool types = keyAscii == Backspace || (keyAscii >= L'0' && keyAscii <= L'9');
    return types || IsClipboardKey(keyAscii) ? PassOn(box) : Swallow(box);
}

KeyOutcome NumberRules::KeyDown(const BoxState& box, short keyCode) const
{
    return IsMasked() && keyCode == DeleteKey ? OvertypeDelete(Places(), box) : PassOn(box);
}

} // namespace kiv
