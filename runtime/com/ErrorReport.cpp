#include "runtime/com/ErrorReport.h"

#include "runtime/com/Boundary.h"

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

HRESULT ReportCurrentException(REFIID iid, const wchar_t* source) noexcept
{
    try
    {
        throw;
    }
    catch (const ComError& error)
    {
        if (!error.Report())
            return ReportError(error.Result(), iid, source);
        SetErrorInfo(0, error.Report());
        return error.Result();
    }
    catch (...)
    {
        return ReportError(CurrentExceptionResult(), iid, source);
    }
}

HRESULT RaiseCurrentException(EXCEPINFO* exception, const wchar_t* source) noexcept
{
    try
    {
        throw;
    }
    catch (const ComError& error)
    {
        constexpr HRESULT AllRunTimeErrors = RunTimeError(0);
        const bool isRunTimeError = (error.Result() & ~0xFFFF) == AllRunTimeErrors;
        if (!exception || (!isRunTimeError && !error.Report()))
            return error.Result();
        *exception = {};
        exception->scode = error.Result();
        if (IErrorInfo* const report = error.Report())
        {
            report->GetSource(&exception->bstrSource);
            report->GetDescription(&exception->bstrDescription);
            report->GetHelpFile(&exception->bstrHelpFile);
            report->GetHelpContext(&exception->dwHelpContext);
        }
        else
        {
            exception->bstrSource = SysAllocString(source);
        }
        return DISP_E_EXCEPTION;
    }
    catch (...)
    {
        return CurrentExceptionResult();
    }
}

} // namespace kiv
