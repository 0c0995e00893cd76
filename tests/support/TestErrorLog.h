#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"

#include <oaidl.h>
#include <ocidl.h>

#include <string>
#include <vector>

namespace kiv::test
{

// What a control could not read, as it told the container.
class TestErrorLog final : public ComObject<IErrorLog>
{
public:
    struct Entry
    {
        std::wstring Property;
        HRESULT Code = S_OK;
        std::wstring Source;
    };

    const std::vector<Entry>& Entries() const { return entries_; }

    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR property, EXCEPINFO* exception) noexcept override;

private:
    std::vector<Entry> entries_;
};

} // namespace kiv::test
