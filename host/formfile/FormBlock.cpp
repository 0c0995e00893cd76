#include "host/formfile/FormBlock.h"

#include <algorithm>
#include <cmath>

namespace kiv::host
{

namespace
{

bool IsProperty(const FormEntry& entry, std::string_view name)
{
    return !entry.Block.empty() && entry.Block.front().IsProperty &&
           SameFormName(entry.Block.front().Name, name);
}

// Behind the last key or nested property, in front of the controls and the comments that follow.
std::vector<FormEntry>::iterator PlaceForNew(std::vector<FormEntry>& entries)
{
    const auto last = std::find_if(entries.rbegin(), entries.rend(), [](const FormEntry& entry) {
        return !entry.Key.empty() || (!entry.Block.empty() && entry.Block.front().IsProperty);
    });
    return last == entries.rend() ? entries.begin() : last.base();
}

// A number without a fraction is written as such where one stood before.
FormValue InTheStyleOf(const FormValue& before, FormValue value)
{
    constexpr double Exact = 9007199254740992; // 2^53: above, not every whole number is one
    const double* const number = std::get_if<double>(&value);
    if (number && std::get_if<std::int64_t>(&before) && std::trunc(*number) == *number &&
        std::abs(*number) <= Exact)
        return static_cast<std::int64_t>(*number);
    return value;
}

} // namespace

bool SameFormName(std::string_view one, std::string_view other)
{
    const auto lowerCase = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [&](char left, char right) { return lowerCase(left) == lowerCase(right); });
}

const FormValue* FormBlock::Find(std::string_view key) const
{
    const auto found = std::find_if(Entries.begin(), Entries.end(), [&](const FormEntry& entry) {
        return !entry.Key.empty() && SameFormName(entry.Key, key);
    });
    return found == Entries.end() ? nullptr : &found->Value;
}

int FormBlock::LineOf(std::string_view name) const
{
    for (const FormEntry& entry : Entries)
        if (kiv::host::IsProperty(entry, name) || (!entry.Key.empty() && SameFormName(entry.Key, name)))
            return entry.Line;
    return Line;
}

std::string_view FormBlock::WrittenValue(std::string_view key) const
{
    for (const FormEntry& entry : Entries)
        if (!entry.Key.empty() && SameFormName(entry.Key, key))
            return std::string_view(entry.Source).substr(entry.ValueAt, entry.ValueLength);
    return {};
}

void FormBlock::Set(std::string_view key, FormValue value)
{
    for (FormEntry& entry : Entries)
        if (!entry.Key.empty() && SameFormName(entry.Key, key))
        {
            value = InTheStyleOf(entry.Value, std::move(value));
            if (entry.Value == value)
                return;
            if (!entry.Source.empty())
            {
                const std::string written = FormatFormValue(value);
                entry.Source.replace(entry.ValueAt, entry.ValueLength, written);
                entry.ValueLength = written.size();
            }
            entry.Value = std::move(value);
            return;
        }
    FormEntry added;
    added.Key = key;
    added.Value = std::move(value);
    Entries.insert(PlaceForNew(Entries), std::move(added));
}

const FormBlock* FormBlock::FindProperty(std::string_view name) const
{
    for (const FormEntry& entry : Entries)
        if (kiv::host::IsProperty(entry, name))
            return &entry.Block.front();
    return nullptr;
}

FormBlock* FormBlock::FindProperty(std::string_view name)
{
    return const_cast<FormBlock*>(static_cast<const FormBlock*>(this)->FindProperty(name));
}

void FormBlock::SetProperty(FormBlock block)
{
    if (FormBlock* const present = FindProperty(block.Name))
    {
        *present = std::move(block);
        return;
    }
    FormEntry added;
    added.Block.push_back(std::move(block));
    Entries.insert(PlaceForNew(Entries), std::move(added));
}

void FormBlock::Remove(std::string_view name)
{
    std::erase_if(Entries, [&](const FormEntry& entry) {
        return kiv::host::IsProperty(entry, name) || (!entry.Key.empty() && SameFormName(entry.Key, name));
    });
}

} // namespace kiv::host
