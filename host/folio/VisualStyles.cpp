#include "host/folio/VisualStyles.h"

#include "host/folio/ManifestId.h"
#include "runtime/com/Errors.h"

namespace kiv::host
{

namespace
{

HANDLE ContextOf(const std::wstring& program)
{
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.lpSource = program.c_str();
    description.lpResourceName = MAKEINTRESOURCEW(FOLIO_THEMED_MANIFEST);
    const HANDLE context = CreateActCtxW(&description);
    if (context == INVALID_HANDLE_VALUE)
        ThrowLastError();
    return context;
}

} // namespace

VisualStyles::VisualStyles(const std::wstring& program) : context_(ContextOf(program))
{
    if (ActivateActCtx(context_, &cookie_))
        return;
    const DWORD error = GetLastError();
    ReleaseActCtx(context_);
    SetLastError(error);
    ThrowLastError();
}

VisualStyles::~VisualStyles()
{
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
}

} // namespace kiv::host
