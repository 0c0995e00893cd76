// regsvr32, as an installer or a person runs it.

#include "tests/support/Library.h"
#include "tests/support/Process.h"
#include "tests/support/Registry.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

const std::wstring ClassKey = L"CLSID\\{3E649237-873E-11D3-BB17-00105A16D8EF}";
const std::wstring LibraryKey = L"TypeLib\\{3E649255-873E-11D3-BB17-00105A16D8EF}";

DWORD Regsvr32(const std::wstring& options)
{
    return RunProcess(L"regsvr32.exe " + options + L" " + Quoted(Library::UnderTest().Path())).ExitCode;
}

class RegsvrTest : public testing::Test
{
protected:
    // Registered for whoever runs next.
    void TearDown() override { EXPECT_EQ(Regsvr32(L"/s"), 0U); }
};

TEST_F(RegsvrTest, TakesTheLibraryAwayAndBringsItBack)
{
    EXPECT_EQ(Regsvr32(L"/u /s"), 0U);
    EXPECT_FALSE(IsRegistered(ClassKey));
    EXPECT_FALSE(IsRegistered(LibraryKey));
    EXPECT_FALSE(IsRegistered(L"KivControls.YesNo"));
    EXPECT_FALSE(IsRegistered(L"KivControls.YesNo.1"));

    EXPECT_EQ(Regsvr32(L"/s"), 0U);
    EXPECT_EQ(RegisteredText(ClassKey + L"\\InprocServer32"), Library::UnderTest().Path());
    EXPECT_TRUE(IsRegistered(LibraryKey));
    EXPECT_TRUE(IsRegistered(L"KivControls.YesNo"));
}

TEST_F(RegsvrTest, MayBeRunTwiceEitherWay)
{
    EXPECT_EQ(Regsvr32(L"/s"), 0U);
    EXPECT_EQ(Regsvr32(L"/s"), 0U);
    EXPECT_TRUE(IsRegistered(ClassKey));
    EXPECT_EQ(Regsvr32(L"/u /s"), 0U);
    EXPECT_EQ(Regsvr32(L"/u /s"), 0U);
    EXPECT_FALSE(IsRegistered(ClassKey));
}

} // namespace

} // namespace kiv::test
