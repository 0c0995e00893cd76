#include "host/folio/Text.h"

#include <windows.h>

#include <cstdio>

namespace kiv::host
{

std::string Utf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string converted(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, converted.data(), size, nullptr, nullptr);
    return converted;
}

std::wstring Wide(std::string_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring converted(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, converted.data(), size);
    return converted;
}

std::string DescribeResult(long result)
{
    char code[16];
    std::snprintf(code, sizeof(code), "0x%08lX", static_cast<unsigned long>(result));
    wchar_t message[256] = {};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, message,
                                  static_cast<DWORD>(std::size(message)), nullptr);
    while (length > 0 && (message[length - 1] <= L' ' || message[length - 1] == L'.'))
        --length;
    return length == 0 ? code : std::string(code) + " (" + Utf8({message, length}) + ")";
}

} // namespace kiv::host
