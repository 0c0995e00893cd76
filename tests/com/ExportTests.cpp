// The library's file as a loader sees it: what it offers and what it needs.

#include "tests/support/Files.h"
#include "tests/support/Library.h"
#include "tests/support/PortableExecutable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kiv::test
{

namespace
{

PortableExecutable FileUnderTest()
{
    return ReadPortableExecutable(ReadWholeFile(Library::UnderTest().Path()));
}

TEST(ExportTest, OffersTheFourFunctionsOfAServerAndNothingElse)
{
    const PortableExecutable file = FileUnderTest();
    EXPECT_EQ(file.Exports, (std::vector<std::string>{"DllCanUnloadNow", "DllGetClassObject",
                                                      "DllRegisterServer", "DllUnregisterServer"}));
    EXPECT_EQ(file.UnnamedExports, 0U);
}

TEST(ExportTest, NeedsNothingThatWindowsDoesNotBring)
{
    const std::vector<std::string> windows = {"advapi32.dll", "comctl32.dll", "gdi32.dll",  "kernel32.dll",
                                              "msvcrt.dll",   "ole32.dll",    "oleacc.dll", "oleaut32.dll",
                                              "olepro32.dll", "shell32.dll",  "user32.dll", "uxtheme.dll",
                                              "version.dll"};
    const PortableExecutable file = FileUnderTest();
    EXPECT_FALSE(file.Imports.empty());
    for (const std::string& import : file.Imports)
        EXPECT_TRUE(std::ranges::find(windows, import) != windows.end()) << import;
}

TEST(ExportTest, IsBuiltForTheProcessorOfItsHost)
{
    EXPECT_EQ(FileUnderTest().Is64Bit, sizeof(void*) == 8);
}

} // namespace

} // namespace kiv::test
