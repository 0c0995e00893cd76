// Writes sources with what might be wrong in them, for ./kiv mutate:
//
//   kiv-mutate switched <folder> <list> [-<file>:<line> ...] <file> ...
//       each file into the folder, its mutants behind switches but for those of the lines that are named, and
//       the list of all mutants: number, file, line, what it is
//   kiv-mutate plain <folder> <number> <file> ...
//       the one file that this mutant is of, with nothing else in it
#include "tools/mutate/Site.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace
{

using namespace kiv::mutate;

std::string Read(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file)
        throw std::runtime_error("cannot read " + path);
    return content;
}

// What is as it should be stays untouched, so that it is not compiled again.
void Write(const std::filesystem::path& path, const std::string& content)
{
    if (std::filesystem::exists(path) && Read(path.string()) == content)
        return;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
}

std::string Applied(std::string source, std::vector<Edit> edits)
{
    // What is inserted at a place comes before what is replaced there, in the order of the sites.
    std::ranges::stable_sort(edits, {},
                             [](const Edit& edit) { return std::pair(edit.Offset, edit.Length > 0); });
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit)
        source.replace(edit->Offset, edit->Length, edit->Text);
    return source;
}

std::vector<Edit> Numbered(std::vector<Edit> edits, std::size_t number)
{
    for (Edit& edit : edits)
        if (const std::size_t place = edit.Text.find('#'); place != std::string::npos)
            edit.Text.replace(place, 1, std::to_string(number));
    return edits;
}

using Left = std::set<std::string>;

// The number of the first mutant of the next file.
std::size_t WriteSwitched(const std::filesystem::path& folder, std::ostream& list, const Left& left,
                          const std::string& file, std::size_t number)
{
    const std::string source = Read(file);
    std::vector<Edit> edits;
    for (const Site& site : FindSites(source, Tokenize(source)))
    {
        const std::size_t line = site.Mutants.front().Line;
        if (!left.contains("-" + file + ":" + std::to_string(line)))
            std::ranges::move(Numbered(site.Switched, number), std::back_inserter(edits));
        for (const Mutant& mutant : site.Mutants)
            list << number++ << '\t' << file << '\t' << mutant.Line << '\t' << mutant.What << '\n';
    }
    Write(folder / file, Applied(source, edits));
    return number;
}

int Switched(const std::filesystem::path& folder, const std::string& listPath,
             const std::vector<std::string>& rest)
{
    std::ofstream list(listPath);
    Left left;
    std::size_t number = 1;
    for (const std::string& word : rest)
    {
        if (word.starts_with('-'))
            left.insert(word);
        else
            number = WriteSwitched(folder, list, left, word, number);
    }
    return 0;
}

int Plain(const std::filesystem::path& folder, std::size_t wanted, const std::vector<std::string>& files)
{
    std::size_t number = 1;
    for (const std::string& file : files)
    {
        const std::string source = Read(file);
        for (const Site& site : FindSites(source, Tokenize(source)))
            for (const Mutant& mutant : site.Mutants)
            {
                if (number++ != wanted)
                    continue;
                if (mutant.Plain.empty())
                    return 3;
                Write(folder / file, Applied(source, mutant.Plain));
                return 0;
            }
    }
    throw std::runtime_error("there is no mutant " + std::to_string(wanted));
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    try
    {
        if (words.size() > 3 && words[0] == "switched")
            return Switched(words[1], words[2], {words.begin() + 3, words.end()});
        if (words.size() > 3 && words[0] == "plain")
            return Plain(words[1], std::stoul(words[2]), {words.begin() + 3, words.end()});
        std::cerr << "usage: kiv-mutate switched <folder> <list> [-<file>:<line> ...] <file> ...\n"
                     "       kiv-mutate plain <folder> <number> <file> ...\n";
        return 2;
    }
    catch (const std::exception& error)
    {
        std::cerr << "kiv-mutate: " << error.what() << '\n';
        return 1;
    }
}
