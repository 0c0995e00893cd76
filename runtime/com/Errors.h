#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <exception>
#include <utility>

namespace kiv
{

// A failed COM call, or an error to be handed to the caller: what Boundary turns back into its HRESULT.
class ComError : public std::exception
{
public:
    explicit ComError(HRESULT result) : result_(result) {}
    // An error of an object of the host's, with what that said about it.
    ComError(HRESULT result, Microsoft::WRL::ComPtr<IErrorInfo> report) :
        result_(result), report_(std::move(report))
    {
    }

    HRESULT Result() const { return result_; }
    // Null for an error of the library's own.
    IErrorInfo* Report() const { return report_.Get(); }
    const char* what() const noexcept override { return "COM error"; }

private:
    HRESULT result_;
    Microsoft::WRL::ComPtr<IErrorInfo> report_;
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
constexpr HRESULT ObjectRequired = RunTimeError(424);
constexpr HRESULT ObjectLacksMember = RunTimeError(438);
constexpr HRESULT WrongNumberOfArguments = RunTimeError(450);

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
