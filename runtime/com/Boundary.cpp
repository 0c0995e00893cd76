#include "runtime/com/Boundary.h"

#include "runtime/core/PropertyStream.h"

#include <new>

namespace kiv
{

HRESULT CurrentExceptionResult() noexcept
{
    try
    {
        throw;
    }
    catch (const ComError& error)
    {
        return error.Result();
    }
    catch (const std::bad_alloc&)
    {
        return E_OUTOFMEMORY;
    }
    catch (const DamagedStream&)
    {
        return STG_E_DOCFILECORRUPT;
    }
    catch (...)
    {
        return E_UNEXPECTED;
    }
}

} // namespace kiv
