#include "runtime/control/AccessKeys.h"

#include <vector>

namespace kiv
{

namespace
{

wchar_t LowerCase(wchar_t letter)
{
    CharLowerBuffW(&letter, 1);
    return letter;
}

wchar_t UpperCase(wchar_t letter)
{
    CharUpperBuffW(&letter, 1);
    return letter;
}

// Some containers look keys up when they go down, some by their characters: there is an entry for each way.
void AddEntries(wchar_t letter, std::vector<ACCEL>& entries)
{
    const WORD command = letter;
    if (const SHORT key = VkKeyScanW(letter); key != -1)
    {
        const BYTE shift = (HIBYTE(key) & 1) != 0 && LowerCase(letter) == UpperCase(letter) ? FSHIFT : 0;
        entries.push_back({static_cast<BYTE>(FVIRTKEY | FALT | shift), LOBYTE(key), command});
    }
    entries.push_back({FALT, LowerCase(letter), command});
    entries.push_back({FALT, UpperCase(letter), command});
}

} // namespace

AccessKeys::~AccessKeys()
{
    if (table_)
        DestroyAcceleratorTable(table_);
}

void AccessKeys::Letters(std::wstring_view letters)
{
    if (letters == letters_)
        return;
    letters_ = letters;
    std::vector<ACCEL> entries;
    for (const wchar_t letter : letters)
        AddEntries(letter, entries);
    const HACCEL former = table_;
    table_ =
        entries.empty() ? nullptr : CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size()));
    size_ = table_ ? static_cast<WORD>(entries.size()) : WORD{0};
    if (former)
        DestroyAcceleratorTable(former);
}

void AccessKeys::Describe(CONTROLINFO& info) const
{
    info.hAccel = table_;
    info.cAccel = size_;
}

wchar_t AccessKeys::LetterOf(MSG* message) const
{
    if (letters_.empty())
        return 0;
    WORD letter = 0;
    if (message && table_ && IsAccelerator(table_, size_, message, &letter))
        return static_cast<wchar_t>(letter);
    return letters_.front();
}

} // namespace kiv
