#include "tests/native/amount/TypedBox.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

// Takes a character out of a drawn text, and says where it was.
std::size_t TakeOut(std::wstring& drawn, wchar_t character)
{
    const std::size_t place = drawn.find(character);
    if (place != std::wstring::npos)
        drawn.erase(place, 1);
    return place;
}

// As a text box does.
BoxState Insert(BoxState box, short keyAscii)
{
    const auto start = static_cast<std::size_t>(box.SelStart);
    const auto length = static_cast<std::size_t>(box.SelLength);
    if (IsClipboardKey(keyAscii))
        return box;
    if (keyAscii != Backspace)
    {
        box.Text.replace(start, length, 1, static_cast<wchar_t>(keyAscii));
        return {box.Text, box.SelStart + 1, 0};
    }
    if (length != 0)
        box.Text.erase(start, length);
    else if (start != 0)
        box.Text.erase(static_cast<std::size_t>(--box.SelStart), 1);
    return {box.Text, box.SelStart, 0};
}

} // namespace

BoxState BoxOf(std::wstring_view drawn)
{
    std::wstring text(drawn);
    std::size_t start = TakeOut(text, L'[');
    std::size_t end = TakeOut(text, L']');
    if (start == std::wstring::npos)
        start = end = std::min(TakeOut(text, L'|'), text.size());
    return {text, static_cast<int>(start), static_cast<int>(end - start)};
}

void TypedBox::Take(const FilteredKey& key)
{
    if (key.Box.Text != Box.Text)
        ++Changes;
    Box = key.Box;
    if (key.KeyAscii == 0)
        return;
    const BoxState after = Insert(Box, key.KeyAscii);
    if (after.Text != Box.Text)
        ++Changes;
    Box = after;
}

} // namespace kiv::test
