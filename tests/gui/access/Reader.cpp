#include "tests/gui/access/Reader.h"

#include "runtime/com/Errors.h"
#include "tests/support/Process.h"
#include "tests/support/Text.h"

#include <array>

namespace kiv::test
{

namespace
{

constexpr ULONGLONG LimitMs = 20000;
constexpr char End[] = "\n.\n";

std::wstring ProgramPath()
{
    std::array<wchar_t, MAX_PATH> path = {};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring own = path.data();
    return own.substr(0, own.find_last_of(L'\\') + 1) + L"kiv-access-reader.exe";
}

} // namespace

// It ends by itself when this process does, and its pipe with it.
Reader& Reader::TheOne()
{
    static Reader reader;
    return reader;
}

Reader::Reader()
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE itsRequests = nullptr;
    HANDLE itsAnswers = nullptr;
    if (!CreatePipe(&itsRequests, &requests_, &inherited, 0) ||
        !CreatePipe(&answers_, &itsAnswers, &inherited, 0))
        ThrowLastError();
    // The other ends are the reader's alone.
    SetHandleInformation(requests_, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(answers_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = itsRequests;
    startup.hStdOutput = itsAnswers;
    startup.hStdError = itsAnswers;
    PROCESS_INFORMATION process = {};
    std::wstring command = Quoted(ProgramPath());
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        ThrowLastError();
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    CloseHandle(itsRequests);
    CloseHandle(itsAnswers);
}

std::vector<std::wstring> Reader::ReadingsOf(HWND window, const std::function<void()>& meanwhile)
{
    const std::string request = std::to_string(reinterpret_cast<ULONG_PTR>(window)) + "\n";
    DWORD done = 0;
    if (!WriteFile(requests_, request.data(), static_cast<DWORD>(request.size()), &done, nullptr))
        return {L"the reader is gone"};
    std::string answer;
    for (const ULONGLONG end = GetTickCount64() + LimitMs; !answer.ends_with(End) && GetTickCount64() < end;)
    {
        meanwhile();
        DWORD waiting = 0;
        std::array<char, 4096> buffer = {};
        if (!PeekNamedPipe(answers_, nullptr, 0, nullptr, &waiting, nullptr))
            return {L"the reader is gone"};
        if (waiting == 0)
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 2, QS_ALLINPUT);
        else if (ReadFile(answers_, buffer.data(), static_cast<DWORD>(buffer.size()), &done, nullptr))
            answer.append(buffer.data(), done);
    }
    std::vector<std::wstring> lines;
    std::size_t from = 0;
    for (std::size_t line = answer.find('\n'); line != answer.npos; line = answer.find('\n', from))
    {
        lines.push_back(Widen(answer.substr(from, line - from)));
        from = line + 1;
    }
    if (lines.empty() || lines.back() != L".")
        return {L"the reader did not answer"};
    lines.pop_back();
    return lines;
}

} // namespace kiv::test
