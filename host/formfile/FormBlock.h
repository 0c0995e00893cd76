#pragma once

#include "host/formfile/FormValue.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::host
{

struct FormEntry;

// One "Begin Class Name … End" or "BeginProperty Name Class … EndProperty" of a form file, with its lines in
// their order. Keys and names compare without regard to case (ASCII).
struct FormBlock
{
    bool IsProperty = false;
    std::string Class;
    std::string Name;
    std::vector<FormEntry> Entries;
    // As read, with their line ends, so that what nobody changes is written back unchanged; empty for new
    // blocks.
    std::string OpeningLine;
    std::string ClosingLine;
    int Line = 0; // in the file, from 1; 0 for new blocks

    const FormValue* Find(std::string_view key) const;
    // The line of a key or of a nested property; that of the block itself when it has no such entry.
    int LineOf(std::string_view name) const;
    // A key's value as it is written in the file; empty when it has none.
    std::string_view WrittenValue(std::string_view key) const;
    // Replaces the value where the key stands, or adds it behind the last key. The same value leaves the line
    // as it was written, another one all of it but the value.
    void Set(std::string_view key, FormValue value);
    const FormBlock* FindProperty(std::string_view name) const;
    FormBlock* FindProperty(std::string_view name);
    // Replaces or adds.
    void SetProperty(FormBlock block);
    // Takes the key or the nested property of that name away.
    void Remove(std::string_view name);
};

// A line of a block: a key with its value, a nested block, or (with neither key nor block) a comment or an
// empty line.
struct FormEntry
{
    std::string Key;
    FormValue Value;
    std::vector<FormBlock> Block; // one, or none
    std::string Source;           // the line as read, with its end; empty for new ones
    std::size_t ValueAt = 0;      // where in it the value stands
    std::size_t ValueLength = 0;
    int Line = 0;
};

// A whole file: the form and the comments around it.
struct FormDocument
{
    std::vector<std::string> LinesBefore;
    FormBlock Form;
    std::vector<std::string> LinesBehind;
    bool CarriageReturns = false; // new lines end with CR LF
    bool ByteOrderMark = false;
};

bool SameFormName(std::string_view one, std::string_view other);

} // namespace kiv::host
