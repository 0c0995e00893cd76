#include "controls/amount/CurrencyRules.h"
#include "controls/amount/PercentRules.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

int Count(const std::wstring& text, wchar_t character)
{
    return static_cast<int>(std::ranges::count(text, character));
}

bool IsDigitKey(short keyAscii)
{
    return keyAscii >= '0' && keyAscii <= '9';
}

// What a text box does with a character.
void Insert(kiv::BoxState& box, short keyAscii)
{
    if (kiv::IsClipboardKey(keyAscii))
        return;
    if (keyAscii == kiv::Backspace && box.SelLength == 0 && box.SelStart != 0)
    {
        --box.SelStart;
        box.SelLength = 1;
    }
    box.Text.erase(static_cast<std::size_t>(box.SelStart), static_cast<std::size_t>(box.SelLength));
    box.SelLength = 0;
    if (keyAscii != kiv::Backspace)
        box.Text.insert(static_cast<std::size_t>(box.SelStart++), 1, static_cast<wchar_t>(keyAscii));
}

// Moves the selection to a place that the text has.
void Select(kiv::BoxState& box, int start, int length)
{
    const int end = static_cast<int>(box.Text.size());
    box.SelStart = std::min(start, end);
    box.SelLength = std::min(length, end - box.SelStart);
}

// A byte is a key, or a selection when it is above the characters that keys make.
template<class Filter, class Invariant>
void Type(const std::uint8_t* data, std::size_t size, const Filter& filter, const Invariant& invariant)
{
    kiv::BoxState box;
    for (std::size_t i = 0; i < size; ++i)
    {
        if (data[i] >= 0x80)
        {
            Select(box, (data[i] >> 3) & 15, data[i] & 7);
            continue;
        }
        const std::size_t before = box.Text.size();
        const kiv::FilteredKey filtered = filter(box, static_cast<short>(data[i]));
        box = filtered.Box;
        if (filtered.KeyAscii != 0)
            Insert(box, filtered.KeyAscii);
        Check(box.Text.size() <= before + 1);
        Check(static_cast<std::size_t>(box.SelStart + box.SelLength) <= box.Text.size());
        invariant(box.Text, filtered.KeyAscii);
    }
}

void TypeCurrency(const kiv::CurrencyLimits& limits, const std::uint8_t* data, std::size_t size)
{
    // With a point in it a text takes more digits before the point than it should, and keeps them.
    bool hadPoint = false;
    Type(
        data, size,
        [&](const kiv::BoxState& box, short key) { return kiv::CurrencyRules(limits).Filter(box, key); },
        [&](const std::wstring& text, short key) {
            Check(text.find_first_not_of(L"0123456789.-") == std::wstring::npos);
            const int points = Count(text, L'.');
            Check(points <= (limits.NumDecDigits != 0 ? 1 : 0));
            hadPoint = !text.empty() && (hadPoint || points != 0);
            // A minus sign in front is never too much.
            const int digits = static_cast<int>(text.size()) - Count(text, L'-');
            Check(hadPoint || digits <= limits.NumIntDigits);
            const std::size_t point = text.find(L'.');
            if (IsDigitKey(key) && point != std::wstring::npos)
                Check(text.size() - point - 1 <= static_cast<std::size_t>(limits.NumDecDigits));
        });
}

void TypePercent(const kiv::PercentLimits& limits, const std::uint8_t* data, std::size_t size)
{
    Type(
        data, size,
        [&](const kiv::BoxState& box, short key) { return kiv::PercentRules(limits).Filter(box, key); },
        [&](const std::wstring& text, short) {
            Check(text.find_first_not_of(L"0123456789.") == std::wstring::npos);
            Check(Count(text, L'.') <= (limits.MaxDecimals != 0 ? 1 : 0));
            // Whatever was typed can be asked for and left.
            kiv::PercentRules(limits).Read(text);
            kiv::PercentRules().Exit(text);
        });
}

} // namespace

// The digit counts, then keys and selections.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    kiv::CurrencyLimits currency;
    currency.NumIntDigits = static_cast<std::int16_t>(1 + data[0] % 14);
    currency.NumDecDigits = static_cast<std::int16_t>(data[1] % 5);
    TypeCurrency(currency, data + 2, size - 2);
    kiv::PercentLimits percent;
    percent.MaxDigits = static_cast<std::int16_t>(1 + data[0] % 6);
    percent.MaxDecimals = static_cast<std::int16_t>(data[1] % 7);
    TypePercent(percent, data + 2, size - 2);
    return 0;
}
