#pragma once

#include <windows.h>

#include <exception>

namespace kiv
{

// A failed COM call, or an error to be handed to the caller: what Boundary turns back into its HRESULT.
class ComError : public std::exception
{
public:
    explicit ComError(HRESULT result) : result_(result) {}

    HRESULT Result() const { return result_; }
    const char* what() const noexcept override { return "COM error"; }

private:
    HRESULT result_;
};

// The HRESULT of a numbered run-time error, as scripts and forms hosts show it (380 is
// CTL_E_INVALIDPROPERTYVALUE).
constexpr HRESULT RunTimeError(int number)
{
    return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

constexpr HRESULT Overflow = RunTimeError(6);
constexpr HRESULT TypeMismatch = RunTimeError(13);
constexpr HRESULT InvalidPropertyValue = RunTimeError(380);
constexpr HRESULT InvalidPropertyIndex = RunTimeError(381);
constexpr HRESULT GetNotSupportedAtDesignTime = RunTimeError(383);
constexpr HRESULT NotPermittedAtDesignTime = RunTimeError(387);

inline void Check(HRESULT result)
{
    if (FAILED(result))
        throw ComError(result);
}

// For Windows calls that report through GetLastError.
[[noreturn]] inline void ThrowLastError()
{
    const DWORD error = GetLastError();
    throw ComError(error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error));
}

} // namespace kiv
