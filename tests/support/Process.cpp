#include "tests/support/Process.h"

#include "runtime/com/Errors.h"
#include "tests/support/Files.h"

namespace kiv::test
{

std::wstring Quoted(const std::wstring& path)
{
    return L"\"" + path + L"\"";
}

ProcessOutcome RunProcess(const std::wstring& commandLine, DWORD limitMilliseconds,
                          const std::function<void(DWORD thread)>& started)
{
    // A file, not a pipe: it never fills up, and its reader never waits.
    const TemporaryFile output(L".out");
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const HANDLE file = CreateFileW(output.Path().c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    &inherited, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        ThrowLastError();

    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = file;
    startup.hStdError = file;
    PROCESS_INFORMATION process = {};
    std::wstring writable = commandLine;
    const BOOL created = CreateProcessW(nullptr, writable.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &startup, &process);
    if (!created)
    {
        const HRESULT error = HRESULT_FROM_WIN32(GetLastError());
        CloseHandle(file);
        throw ComError(error);
    }

    if (started)
        started(process.dwThreadId);
    ProcessOutcome outcome;
    outcome.TimedOut = WaitForSingleObject(process.hProcess, limitMilliseconds) == WAIT_TIMEOUT;
    if (outcome.TimedOut)
    {
        TerminateProcess(process.hProcess, ~0U);
        WaitForSingleObject(process.hProcess, INFINITE);
    }
    GetExitCodeProcess(process.hProcess, &outcome.ExitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    CloseHandle(file);
    const auto bytes = ReadWholeFile(output.Path());
    outcome.Output.assign(bytes.begin(), bytes.end());
    return outcome;
}

} // namespace kiv::test
