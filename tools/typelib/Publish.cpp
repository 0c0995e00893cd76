#include "tools/typelib/Publish.h"

#include "tools/typelib/NameTable.h"

#include <map>
#include <set>

namespace kiv::typelib
{
namespace
{
// A variable's record as the compiler writes it ends before the optional fields help context and help string.
constexpr std::size_t plainVariableSize = 20;
constexpr std::size_t helpStringField = 24;
constexpr std::size_t helpedVariableSize = 28;

// A function's record ends with twelve bytes for each parameter.
constexpr std::size_t parameterCountField = 20;
constexpr std::size_t parameterSize = 12;
constexpr std::size_t parameterNameField = 4;

void setHelpString(Member& member, std::uint32_t stringOffset, const std::string& name)
{
    if (member.record.size() != plainVariableSize)
        throw TypeLibraryError("the record of '" + name + "' is not that of a plain member");
    member.record.resize(helpedVariableSize);
    write16(member.record, 0, helpedVariableSize);
    write32(member.record, helpStringField, stringOffset);
}

// How many members and parameters bear each name. A name is held once for all its uses: renaming one that is
// used twice would rename both.
std::map<std::uint32_t, std::size_t> countNameUses(const TypeLibrary& library)
{
    std::map<std::uint32_t, std::size_t> uses;
    for (const Type& type : library.types())
    {
        for (std::size_t i = 0; i < type.members.size(); ++i)
        {
            const Member& member = type.members[i];
            ++uses[member.nameOffset];
            if (i >= type.functionCount)
                continue;
            const std::size_t size = parameterSize * read16(member.record, parameterCountField);
            if (size > member.record.size())
                throw TypeLibraryError("a function has more parameters than its record holds");
            for (std::size_t at = member.record.size() - size; at < member.record.size(); at += parameterSize)
                ++uses[read32(member.record, at + parameterNameField)];
        }
    }
    return uses;
}
} // namespace

void publish(TypeLibrary& library, const PublishedNames& names)
{
    NameTable table(library);
    std::map<std::uint32_t, std::size_t> uses = countNameUses(library);
    std::set<std::string> found;
    for (Type& type : library.types())
    {
        if (!type.isEnumeration)
            continue;
        for (Member& member : type.members)
        {
            std::string name = table.at(member.nameOffset);
            if (const auto row = names.find(name); row != names.end())
            {
                if (uses[member.nameOffset] != 1)
                    throw TypeLibraryError("the placeholder '" + name + "' is used more than once");
                found.insert(name);
                table.rename(member.nameOffset, row->second);
                name = row->second;
            }
            setHelpString(member, library.addString(name), name);
        }
    }
    for (const auto& [placeholder, published] : names)
    {
        if (!found.contains(placeholder))
            throw TypeLibraryError("no enumeration has a member '" + placeholder + "'");
    }
    table.store(library);
}
} // namespace kiv::typelib
