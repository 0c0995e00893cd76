#include "controls/lists/EnumRules.h"

#include "runtime/core/Units.h"

#include <algorithm>

namespace kiv
{

namespace
{

constexpr std::wstring_view LineBreak = L"\r\n";
constexpr wchar_t Tab = L'\t';

// Two blanks in front of WHERE: hosts' databases know the query by its text.
std::wstring TableQuery(std::wstring_view stateCode, std::wstring_view tableName)
{
    std::wstring query = L"SELECT * FROM [Enum Tables]  WHERE [State Code] = '";
    query.append(stateCode).append(L"' AND [Table Name] = '").append(tableName).append(L"'");
    return query;
}

} // namespace

std::wstring LabelQuery(std::wstring_view stateCode, std::wstring_view tableName, std::wstring_view enumCode)
{
    return TableQuery(stateCode, tableName).append(L" AND [Enum Code] = '").append(enumCode).append(L"'");
}

std::wstring ListQuery(std::wstring_view stateCode, std::wstring_view tableName, long sortBy)
{
    return TableQuery(stateCode, tableName)
        .append(L" ORDER BY ")
        .append(sortBy == ByDescription ? L"[Enum Text]" : L"RIGHT('0000000000' & [Enum Code], 10)");
}

std::wstring_view TakeLine(std::wstring_view& text)
{
    const std::size_t end = std::min(text.find(LineBreak), text.size());
    const std::wstring_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + LineBreak.size(), text.size()));
    return line;
}

std::wstring ItemText(bool showCodes, std::wstring_view code, std::wstring_view line)
{
    std::wstring text(showCodes ? code : line);
    text.push_back(Tab);
    text.append(showCodes ? line : code);
    return text;
}

std::wstring ItemCode(bool showCodes, std::wstring_view item)
{
    const std::size_t tab = std::min(item.find(Tab), item.size());
    return std::wstring(showCodes ? item.substr(0, tab) : item.substr(std::min(tab + 1, item.size())));
}

std::wstring SpokenItem(bool showCodes, std::wstring_view item)
{
    const std::size_t tab = item.find(L'\t');
    const std::wstring first(item.substr(0, tab));
    const std::wstring second(tab == item.npos || !showCodes ? L"" : item.substr(tab + 1));
    return first.empty() || second.empty() ? first + second : first + L", " + second;
}

short WidestLine(short widestSoFar, double twips)
{
    const double limited = std::min<double>(twips, GreatestTextWidth);
    return std::max(widestSoFar, static_cast<short>(RoundHalfEven(limited)));
}

} // namespace kiv
