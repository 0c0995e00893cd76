#include "host/data/DataError.h"

namespace kiv::host
{

namespace
{

std::string Narrow(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

} // namespace

DataError::DataError(HRESULT result, std::wstring description) :
    std::runtime_error(Narrow(description)), result_(result), description_(std::move(description))
{
}

} // namespace kiv::host
