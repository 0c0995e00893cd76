#pragma once

#include "runtime/com/Errors.h"

#include <stdexcept>
#include <string>

namespace kiv::host
{

// What a data object fails with: a numbered run-time error and its description, as they arrive at the caller.
class DataError : public std::runtime_error
{
public:
    DataError(HRESULT result, std::wstring description);

    HRESULT Result() const { return result_; }
    const std::wstring& Description() const { return description_; }

private:
    HRESULT result_;
    std::wstring description_;
};

// The numbers that programs know from data access by objects.
constexpr HRESULT InvalidDataArgument = RunTimeError(3001);
constexpr HRESULT NoCurrentRecord = RunTimeError(3021);
constexpr HRESULT DatabaseInUse = RunTimeError(3045);
constexpr HRESULT QueryNotUnderstood = RunTimeError(3075);
constexpr HRESULT OdbcCallFailed = RunTimeError(3146);
constexpr HRESULT OdbcConnectionFailed = RunTimeError(3151);
constexpr HRESULT NoSuchItem = RunTimeError(3265);
constexpr HRESULT DataObjectClosed = RunTimeError(3420);

} // namespace kiv::host
