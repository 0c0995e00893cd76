#include "tests/gui/host/HostProcess.h"

#include "tests/support/Library.h"
#include "tests/support/Text.h"

#include <filesystem>
#include <fstream>

namespace kiv::test
{

std::wstring HostProgram()
{
    const std::wstring& library = Library::UnderTest().Path();
    return library.substr(0, library.find_last_of(L'\\') + 1) + L"FolioHost.exe";
}

ProcessOutcome HostProcess::Play(const std::wstring& options)
{
    return Run(L"--script " + Quoted(script_.Path()) + L" " + options + L" " + Quoted(form_.Path()));
}

ProcessOutcome HostProcess::Run(const std::wstring& arguments)
{
    return RunProcess(Quoted(HostProgram()) + L" " + arguments);
}

std::string HostProcess::ReadOf(const std::wstring& path)
{
    const auto bytes = ReadWholeFile(path);
    return {bytes.begin(), bytes.end()};
}

void HostProcess::Write(const std::wstring& path, const std::string& text)
{
    std::ofstream(std::filesystem::path(path), std::ios::binary) << text;
}

std::string HostProcess::FormPath() const
{
    return Narrow(form_.Path());
}

std::string HostProcess::ScriptPath() const
{
    return Narrow(script_.Path());
}

std::wstring HostProcess::Example(const wchar_t* name)
{
    return Quoted(RequiredVariable(L"KIV_SOURCE") + L"\\examples\\" + name);
}

std::string Lines(std::string text)
{
    std::erase(text, '\r');
    return text;
}

std::string OkButton()
{
    return "    Begin Button cmdOK\n"
           "        Caption = \"OK\"\n"
           "        Default = True\n"
           "        Left = 120\n"
           "        Top = 900\n"
           "        Width = 1170\n"
           "        Height = 360\n"
           "    End\n";
}

const std::string OnePage = "' A page with one question.\n"
                            "Begin Form page\n"
                            "    Caption = \"Page\"\n"
                            "    ClientWidth = 3000\n"
                            "    ClientHeight = 1500\n"
                            "    Begin KivControls.YesNo ynOne\n"
                            "        Left   = 120 ' a little to the right\n"
                            "        Top = 120\n"
                            "        Width = 1800\n"
                            "        Height = 300\n"
                            "        Stranger = \"kept\"\n"
                            "    End\n" +
                            OkButton() + "End\n";

} // namespace kiv::test
