// Turns the compiled type library into the published one: see Publish.h.
#include "tools/typelib/Publish.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace
{
using namespace kiv::typelib;

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file)
        throw TypeLibraryError("cannot read it");
    return content;
}

// Under another name until it is whole: the build takes whatever bears the right name for finished.
void WriteFile(const std::string& path, const Bytes& content)
{
    const std::string unfinished = path + ".part";
    std::ofstream file(unfinished, std::ios::binary);
    std::copy(content.begin(), content.end(), std::ostreambuf_iterator<char>(file));
    file.close();
    if (!file)
        throw TypeLibraryError("cannot write it");
    std::filesystem::rename(unfinished, path);
}
} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 4)
    {
        std::cerr << "usage: kiv-names <compiled.tlb> <names file> <published.tlb>\n";
        return 2;
    }
    const std::string compiledPath = arguments[1];
    const std::string namesPath = arguments[2];
    const std::string publishedPath = arguments[3];
    std::string current = namesPath;
    try
    {
        const PublishedNames names = ParsePublishedNames(ReadFile(namesPath));
        current = compiledPath;
        const std::string compiled = ReadFile(compiledPath);
        TypeLibrary library = TypeLibrary::Read(Bytes(compiled.begin(), compiled.end()));
        Publish(library, names);
        current = publishedPath;
        WriteFile(publishedPath, library.Write());
        return 0;
    }
    catch (const std::exception& error)
    {
        std::cerr << "kiv-names: " << current << ": " << error.what() << '\n';
        return 1;
    }
}
