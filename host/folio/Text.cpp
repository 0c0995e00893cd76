#include "host/folio/Text.h"

#include "host/container/Automation.h"

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
    switch (result)
    {
    case InvalidPropertyValue:
        return "the property does not take this value";
    case InvalidPropertyIndex:
        return "there is no such index";
    case GetNotSupportedAtDesignTime:
        return "it cannot be read while the form is designed";
    case NotPermittedAtDesignTime:
        return "it cannot be done while the form is designed";
    case ObjectRequired:
        return "an object is expected";
    // Not every system has a text for these.
    case DISP_E_TYPEMISMATCH:
    case TypeMismatch:
        return "a value of another type is expected";
    case DISP_E_OVERFLOW:
    case Overflow:
        return "the number is out of range";
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
        return "there is no such member";
    case DISP_E_BADPARAMCOUNT:
        return "the number of arguments is wrong";
    default:
        break;
    }
    wchar_t message[256] = {};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, message,
                                  static_cast<DWORD>(std::size(message)), nullptr);
    while (length > 0 && (message[length - 1] <= L' ' || message[length - 1] == L'.'))
        --length;
    if (length > 0)
        return Utf8({message, length});
    char text[64];
    if (HRESULT_FACILITY(result) == FACILITY_CONTROL)
        std::snprintf(text, sizeof(text), "run-time error %u", static_cast<unsigned>(HRESULT_CODE(result)));
    else
        std::snprintf(text, sizeof(text), "the error 0x%08lX, of which the system knows no text",
                      static_cast<unsigned long>(result));
    return text;
}

std::string DescribeError(const ComError& error)
{
    if (const auto* raised = dynamic_cast<const RaisedError*>(&error);
        raised && !raised->Description().empty())
        return Utf8(raised->Description());
    return DescribeResult(error.Result());
}

} // namespace kiv::host
