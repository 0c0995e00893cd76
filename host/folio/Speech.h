#pragma once

#include "host/files/LogFile.h"

#include <windows.h>

#include <oleacc.h>

#include <filesystem>

namespace kiv::host
{

// Writes what a screen reader would say, line by line, when the focus in this process goes to something, or
// to another part of it: all by what the system's accessibility interface tells any client. One at a time.
class Speech
{
public:
    // Throws FileError when the file cannot be written.
    explicit Speech(const std::filesystem::path& file);
    Speech(const Speech&) = delete;
    Speech& operator=(const Speech&) = delete;
    ~Speech();

    // Throws FileError when not all could be written.
    void Finish() { file_.Finish(); }

private:
    static void CALLBACK Heard(HWINEVENTHOOK hook, DWORD event, HWND window, LONG object, LONG part,
                               DWORD thread, DWORD time) noexcept;

    LogFile file_;
    HWINEVENTHOOK hook_;
};

// What a screen reader says of it: name, value, role, states, description and key, in this order.
std::wstring Spoken(IAccessible& object, long part);

} // namespace kiv::host
