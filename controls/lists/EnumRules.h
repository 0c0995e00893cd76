#pragma once

#include <string>
#include <string_view>

namespace kiv
{

// What an EnumList and its picker ask the host's database for, and how the answers become items of the
// picker's list.

constexpr wchar_t EnumCodeColumn[] = L"Enum Code";
constexpr wchar_t EnumTextColumn[] = L"Enum Text";

// How codes are shown and sorted (DisplayStyleEnums).
constexpr long ByCode = 0;
constexpr long ByDescription = 1;

// The row of one code. The values are put in as they are: a quote in one makes a query that no database
// understands, and the control then says that it could not read the table.
std::wstring LabelQuery(std::wstring_view stateCode, std::wstring_view tableName, std::wstring_view enumCode);

// All rows of a table, sorted by description or by code. Codes sort as numbers do: padded with zeros to ten
// characters, of a longer one the last ten.
std::wstring ListQuery(std::wstring_view stateCode, std::wstring_view tableName, long sortBy);

// Takes the first line off a description. There is at least one, and none after a line break that ends the
// text: what is empty then is at its end.
std::wstring_view TakeLine(std::wstring_view& text);

// A line of the picker's list: the code in front of the tab when codes are shown, else behind it and out of
// sight. Lines after an entry's first have no code.
std::wstring ItemText(bool showCodes, std::wstring_view code, std::wstring_view line);

// The code in such a line. A tab within a code, or with codes hidden in a description, counts as the first
// one: the code then comes back wrong, as it always has.
std::wstring ItemCode(bool showCodes, std::wstring_view item);

// The line as it is read to those who cannot see the list: the code and the description, whichever are shown.
std::wstring SpokenItem(bool showCodes, std::wstring_view item);

// The greatest width in twips that the picker keeps of a line: a 16-bit whole number.
constexpr short GreatestTextWidth = 32767;
short WidestLine(short widestSoFar, double twips);

} // namespace kiv
