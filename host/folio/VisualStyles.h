#pragma once

#include <windows.h>

#include <string>

namespace kiv::host
{

// The system's own controls as the user's theme draws them, for windows that the calling thread makes while
// this lives; without it they are drawn as they always were.
class VisualStyles
{
public:
    // program: has the manifest that asks for them, as FolioHost. Throws ComError.
    explicit VisualStyles(const std::wstring& program);
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;
    ~VisualStyles();

private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

} // namespace kiv::host
