#include "tools/typelib/Publish.h"

#include "tools/typelib/NameTable.h"

#include <map>
#include <set>

namespace kiv::typelib
{
namespace
{
// A variable's record as the compiler writes it ends before the optional fields help context and help string.
constexpr std::size_t PlainVariableSize = 20;
constexpr std::size_t HelpStringField = 24;
constexpr std::size_t HelpedVariableSize = 28;

// A function's record ends with twelve bytes for each parameter.
constexpr std::size_t ParameterCountField = 20;
constexpr std::size_t ParameterSize = 12;
constexpr std::size_t ParameterNameField = 4;

void SetHelpString(Member& member, std::uint32_t stringOffset, const std::string& name)
{
    if (member.Record.size() != PlainVariableSize)
        throw TypeLibraryError("the record of '" + name + "' is not that of a plain member");
    member.Record.resize(HelpedVariableSize);
    Write16(member.Record, 0, HelpedVariableSize);
    Write32(member.Record, HelpStringField, stringOffset);
}

// How many members and parameters bear each name. A name is held once for all its uses: renaming one that is
// used twice would rename both.
std::map<std::uint32_t, std::size_t> CountNameUses(const TypeLibrary& library)
{
    std::map<std::uint32_t, std::size_t> uses;
    for (const Type& type : library.Types())
    {
        for (std::size_t i = 0; i < type.Members.size(); ++i)
        {
            const Member& member = type.Members[i];
            ++uses[member.NameOffset];
            if (i >= type.FunctionCount)
                continue;
            const std::size_t size = ParameterSize * Read16(member.Record, ParameterCountField);
            if (size > member.Record.size())
                throw TypeLibraryError("a function has more parameters than its record holds");
            for (std::size_t at = member.Record.size() - size; at < member.Record.size(); at += ParameterSize)
                ++uses[Read32(member.Record, at + ParameterNameField)];
        }
    }
    return uses;
}
} // namespace

void Publish(TypeLibrary& library, const PublishedNames& names)
{
    NameTable table(library);
    std::map<std::uint32_t, std::size_t> uses = CountNameUses(library);
    std::set<std::string> found;
    for (Type& type : library.Types())
    {
        if (!type.IsEnumeration)
            continue;
        for (Member& member : type.Members)
        {
            std::string name = table.At(member.NameOffset);
            if (const auto row = names.find(name); row != names.end())
            {
                if (uses[member.NameOffset] != 1)
                    throw TypeLibraryError("the placeholder '" + name + "' is used more than once");
                found.insert(name);
                table.Rename(member.NameOffset, row->second);
                name = row->second;
            }
            SetHelpString(member, library.AddString(name), name);
        }
    }
    for (const auto& [placeholder, published] : names)
    {
        if (!found.contains(placeholder))
            throw TypeLibraryError("no enumeration has a member '" + placeholder + "'");
    }
    table.Store(library);
}
} // namespace kiv::typelib
