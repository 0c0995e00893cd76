#pragma once

#include "tools/mutate/Token.h"

#include <string>
#include <vector>

namespace kiv::mutate
{

// What stands in the place of a part of a source.
struct Edit
{
    std::size_t Offset;
    std::size_t Length;
    std::string Text;
};

struct Mutant
{
    std::size_t Line;
    std::string What;
    // By itself, in a source that is otherwise as it was; none where only the switched form can say it.
    std::vector<Edit> Plain;
};

// One place of a source with what may be wrong there. Its switched form, for tests/mutants/Switch.h, holds
// all of that and the source as it was; '#' in it stands for the number of the first mutant.
struct Site
{
    std::vector<Mutant> Mutants;
    std::vector<Edit> Switched;
};

// In an order in which edits at the same place fit together.
std::vector<Site> FindSites(std::string_view source, const std::vector<Token>& tokens);

// Statements that can be left out, for FindSites.
std::vector<Site> FindStatements(std::string_view source, const std::vector<Token>& tokens);

} // namespace kiv::mutate
