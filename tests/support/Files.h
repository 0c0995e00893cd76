#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kiv::test
{

// A variable that `kiv test` sets; throws std::runtime_error when it is missing.
std::wstring RequiredVariable(const wchar_t* name);

// Both throw std::runtime_error.
std::vector<std::uint8_t> ReadWholeFile(const std::wstring& path);
void WriteWholeFile(const std::wstring& path, const std::vector<std::uint8_t>& bytes);

// A file of its own in the temporary folder, a copy of another or empty; deleted at the end where nothing
// holds it any more.
class TemporaryFile
{
public:
    explicit TemporaryFile(const wchar_t* extension);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::wstring& Path() const { return path_; }
    void CopyFrom(const std::wstring& source);

private:
    std::wstring path_;
};

} // namespace kiv::test
