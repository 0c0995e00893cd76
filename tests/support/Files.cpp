#include "tests/support/Files.h"

#include "runtime/com/Errors.h"
#include "tests/support/Text.h"

#include <atomic>
#include <stdexcept>

namespace kiv::test
{

std::wstring RequiredVariable(const wchar_t* name)
{
    std::wstring value(32768, L'\0');
    const DWORD length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    if (length == 0)
        throw std::runtime_error(Narrow(name) + " is not set: run the tests with ./kiv test");
    value.resize(length);
    return value;
}

std::vector<std::uint8_t> ReadWholeFile(const std::wstring& path)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::runtime_error("cannot open " + Narrow(path));
    std::vector<std::uint8_t> bytes(GetFileSize(file, nullptr));
    DWORD read = 0;
    const BOOL done = ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    if (!done || read != bytes.size())
        throw std::runtime_error("cannot read " + Narrow(path));
    return bytes;
}

void WriteWholeFile(const std::wstring& path, const std::vector<std::uint8_t>& bytes)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::runtime_error("cannot write " + Narrow(path));
    DWORD written = 0;
    const BOOL done = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    if (!done || written != bytes.size())
        throw std::runtime_error("cannot write " + Narrow(path));
}

TemporaryFile::TemporaryFile(const wchar_t* extension)
{
    static std::atomic<int> number = 0;
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(ARRAYSIZE(folder), folder);
    path_ = std::wstring(folder) + L"kiv-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
            std::to_wstring(++number) + extension;
}

TemporaryFile::~TemporaryFile()
{
    DeleteFileW(path_.c_str());
}

void TemporaryFile::CopyFrom(const std::wstring& source)
{
    if (!CopyFileW(source.c_str(), path_.c_str(), FALSE))
        ThrowLastError();
}

} // namespace kiv::test
