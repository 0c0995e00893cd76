#include "tests/support/PortableExecutable.h"

#include <windows.h>

#include <delayimp.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <stdexcept>

namespace kiv::test
{

namespace
{

class Image
{
public:
    explicit Image(const std::vector<std::uint8_t>& file) : file_(file)
    {
        const auto dos = At<IMAGE_DOS_HEADER>(0);
        if (dos.e_magic != IMAGE_DOS_SIGNATURE)
            throw std::runtime_error("no executable");
        const std::size_t headers = static_cast<std::size_t>(dos.e_lfanew);
        if (At<DWORD>(headers) != IMAGE_NT_SIGNATURE)
            throw std::runtime_error("no Windows executable");
        const auto fileHeader = At<IMAGE_FILE_HEADER>(headers + sizeof(DWORD));
        const std::size_t optional = headers + sizeof(DWORD) + sizeof fileHeader;
        is64Bit_ = At<WORD>(optional) == IMAGE_NT_OPTIONAL_HDR64_MAGIC;
        directories_ = optional + (is64Bit_ ? offsetof(IMAGE_OPTIONAL_HEADER64, DataDirectory)
                                            : offsetof(IMAGE_OPTIONAL_HEADER32, DataDirectory));
        for (std::size_t i = 0; i < fileHeader.NumberOfSections; ++i)
            sections_.push_back(At<IMAGE_SECTION_HEADER>(optional + fileHeader.SizeOfOptionalHeader +
                                                         i * sizeof(IMAGE_SECTION_HEADER)));
    }

    bool Is64Bit() const { return is64Bit_; }

    IMAGE_DATA_DIRECTORY Directory(std::size_t number) const
    {
        return At<IMAGE_DATA_DIRECTORY>(directories_ + number * sizeof(IMAGE_DATA_DIRECTORY));
    }

    // What lies at an address relative to the loaded image.
    template<class T>
    T Loaded(DWORD address) const
    {
        return At<T>(OffsetOf(address));
    }

    std::string Text(DWORD address) const
    {
        std::string text;
        for (std::size_t offset = OffsetOf(address); At<char>(offset) != '\0'; ++offset)
            text += At<char>(offset);
        return text;
    }

private:
    template<class T>
    T At(std::size_t offset) const
    {
        if (offset > file_.size() || file_.size() - offset < sizeof(T))
            throw std::runtime_error("the executable ends early");
        T value;
        std::memcpy(&value, file_.data() + offset, sizeof value);
        return value;
    }

    std::size_t OffsetOf(DWORD address) const
    {
        for (const IMAGE_SECTION_HEADER& section : sections_)
        {
            if (address >= section.VirtualAddress && address - section.VirtualAddress < section.SizeOfRawData)
                return section.PointerToRawData + (address - section.VirtualAddress);
        }
        throw std::runtime_error("an address outside all sections");
    }

    const std::vector<std::uint8_t>& file_;
    bool is64Bit_ = false;
    std::size_t directories_ = 0;
    std::vector<IMAGE_SECTION_HEADER> sections_;
};

std::string LowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

} // namespace

PortableExecutable ReadPortableExecutable(const std::vector<std::uint8_t>& file)
{
    const Image image(file);
    PortableExecutable read;
    read.Is64Bit = image.Is64Bit();

    if (const auto directory = image.Directory(IMAGE_DIRECTORY_ENTRY_EXPORT); directory.Size != 0)
    {
        const auto exports = image.Loaded<IMAGE_EXPORT_DIRECTORY>(directory.VirtualAddress);
        for (DWORD i = 0; i < exports.NumberOfNames; ++i)
            read.Exports.push_back(image.Text(
                image.Loaded<DWORD>(exports.AddressOfNames + i * static_cast<DWORD>(sizeof(DWORD)))));
        std::ranges::sort(read.Exports);
        read.UnnamedExports = exports.NumberOfFunctions - exports.NumberOfNames;
    }
    if (const auto directory = image.Directory(IMAGE_DIRECTORY_ENTRY_IMPORT); directory.Size != 0)
    {
        for (DWORD address = directory.VirtualAddress;;
             address += static_cast<DWORD>(sizeof(IMAGE_IMPORT_DESCRIPTOR)))
        {
            const auto import = image.Loaded<IMAGE_IMPORT_DESCRIPTOR>(address);
            if (import.Name == 0)
                break;
            read.Imports.push_back(LowerCase(image.Text(import.Name)));
        }
    }
    if (const auto directory = image.Directory(IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT); directory.Size != 0)
    {
        for (DWORD address = directory.VirtualAddress;;
             address += static_cast<DWORD>(sizeof(IMAGE_DELAYLOAD_DESCRIPTOR)))
        {
            const auto import = image.Loaded<IMAGE_DELAYLOAD_DESCRIPTOR>(address);
            if (import.DllNameRVA == 0)
                break;
            read.Imports.push_back(LowerCase(image.Text(import.DllNameRVA)));
        }
    }
    return read;
}

} // namespace kiv::test
