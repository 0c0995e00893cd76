#pragma once

#include "runtime/com/Errors.h"

#include <type_traits>
#include <utility>

namespace kiv
{

// The HRESULT of the exception being handled.
HRESULT CurrentExceptionResult() noexcept;

// The edge of the library: runs a body that may throw and answers with an HRESULT. The body returns nothing
// (S_OK) or an HRESULT of its own.
template<class Body>
HRESULT Boundary(Body&& body) noexcept
{
    try
    {
        if constexpr (std::is_void_v<std::invoke_result_t<Body>>)
        {
            std::forward<Body>(body)();
            return S_OK;
        }
        else
        {
            return std::forward<Body>(body)();
        }
    }
    catch (...)
    {
        return CurrentExceptionResult();
    }
}

} // namespace kiv
