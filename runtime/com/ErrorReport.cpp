#include "runtime/com/ErrorReport.h"

#include <oleauto.h>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

namespace kiv
{

HRESULT ReportError(HRESULT result, REFIID iid, const wchar_t* source) noexcept
{
    ComPtr<ICreateErrorInfo> report;
    if (SUCCEEDED(CreateErrorInfo(&report)))
    {
        report->SetGUID(iid);
        report->SetSource(const_cast<wchar_t*>(source));
        ComPtr<IErrorInfo> info;
        if (SUCCEEDED(report.As(&info)))
            SetErrorInfo(0, info.Get());
    }
    return result;
}

} // namespace kiv
