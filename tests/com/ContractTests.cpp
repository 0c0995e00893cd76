// The contract as hosts read it out of the library's file, compared with the one that is published.

#include "tests/com/ContractText.h"
#include "tests/com/TypeLibraryTest.h"
#include "tests/support/Files.h"
#include "tests/support/LineDifference.h"

namespace kiv::test
{

namespace
{

class ContractTest : public TypeLibraryTest
{
protected:
    static std::wstring Path()
    {
        return RequiredVariable(L"KIV_SOURCE") + L"\\tests\\com\\KivControls.contract";
    }
    // Whether whoever runs the test wants the file to be written anew: see CONTRIBUTING.
    static bool IsToBeWritten() { return GetEnvironmentVariableW(L"KIV_WRITE_CONTRACT", nullptr, 0) != 0; }
};

TEST_F(ContractTest, IsThePublishedOne)
{
    const std::string contract = ContractText(library_.Get());
    if (IsToBeWritten())
        WriteWholeFile(Path(), {contract.begin(), contract.end()});
    const std::vector<std::uint8_t> published = ReadWholeFile(Path());
    const std::string difference = LineDifference(std::string(published.begin(), published.end()), contract);
    if (!difference.empty())
        ADD_FAILURE() << "Not as published; CONTRIBUTING tells how to publish a change that is meant.\n"
                      << difference;
}

TEST(LineDifferenceTest, TellsWhatIsMissingAndWhatIsThereInstead)
{
    const std::string published = "enum A\n    x = 0\n    y = 1\n\nenum B\n    z = 0\n";
    EXPECT_EQ(LineDifference(published, published), "");
    EXPECT_EQ(LineDifference(published, "enum A\r\n    x = 0\r\n    y = 1\r\n\r\nenum B\r\n    z = 0\r\n"),
              "");
    EXPECT_EQ(LineDifference(published, "enum A\n    x = 0\n    y = 1\n\nenum B\n    z = 5\n"),
              "  enum B\n-     z = 0\n+     z = 5\n");
    EXPECT_EQ(LineDifference(published, "enum A\n    y = 1\n    x = 0\n\nenum B\n    z = 0\n"),
              "  enum A\n-     x = 0\n+     x = 0\n");
    EXPECT_EQ(LineDifference(published, "enum A\n    x = 0\n    y = 1\n"), "- \n- enum B\n-     z = 0\n");
    EXPECT_EQ(LineDifference("", "enum B\n"), "+ enum B\n");
}

} // namespace

} // namespace kiv::test
