// The title of the host application, from what its program says about itself.

#include "framework/subclass/HostTitle.h"
#include "tests/support/Process.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

std::string TitleIn(const std::wstring& program)
{
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring build = std::wstring(path, std::wstring_view(path).rfind(L"\\gui\\"));
    const ProcessOutcome outcome = RunProcess(Quoted(build + L"\\module\\" + program));
    EXPECT_EQ(outcome.ExitCode, 0U);
    return outcome.Output;
}

TEST(HostTitleTest, IsTheFileDescription)
{
    EXPECT_EQ(HostTitle(), L"Host of the control tests");
}

TEST(HostTitleTest, IsTheProductNameWhereTheFileIsNotDescribed)
{
    EXPECT_EQ(TitleIn(L"kiv-title-product.exe"), "Steuerberater");
}

TEST(HostTitleTest, IsTheFileNameWhereNothingIsSaid)
{
    EXPECT_EQ(TitleIn(L"kiv-title-untold.exe"), "kiv-title-untold");
}

} // namespace

} // namespace kiv::test
