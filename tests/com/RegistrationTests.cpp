// What registering writes and unregistering takes away.

#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Registry.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <comcat.h>
#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <iterator>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

const std::wstring ClassKey = L"CLSID\\{3E649237-873E-11D3-BB17-00105A16D8EF}";
const std::wstring LibraryId = L"{3E649255-873E-11D3-BB17-00105A16D8EF}";

// The keys under HKEY_CLASSES_ROOT below which a library's keys lie.
struct ClassesRoot
{
    std::set<std::wstring> ProgIds = RegisteredKeys(L"");
    std::set<std::wstring> Classes = RegisteredKeys(L"CLSID");
    std::set<std::wstring> Libraries = RegisteredKeys(L"TypeLib");
    std::set<std::wstring> Interfaces = RegisteredKeys(L"Interface");
    std::set<std::wstring> Categories = RegisteredKeys(L"Component Categories");
};

std::vector<std::wstring> Added(const std::set<std::wstring>& before, const std::set<std::wstring>& after)
{
    std::vector<std::wstring> added;
    std::ranges::set_difference(after, before, std::back_inserter(added));
    return added;
}

class RegistrationTest : public LibraryTest
{
protected:
    // The library is registered when a test begins, and for whoever runs next.
    void TearDown() override
    {
        EXPECT_HRESULT_SUCCEEDED(TheLibrary().Register());
        LibraryTest::TearDown();
    }
};

struct RegisteredEntry
{
    const wchar_t* Key; // below the class
    const wchar_t* Name;
    std::wstring Text;
};

TEST_F(RegistrationTest, DescribesTheClassAsHostsReadIt)
{
    const RegisteredEntry entries[] = {
        {L"\\InprocServer32", nullptr, TheLibrary().Path()},
        {L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {L"\\ProgID", nullptr, L"KivControls.YesNo.1"},
        {L"\\VersionIndependentProgID", nullptr, L"KivControls.YesNo"},
        {L"\\MiscStatus", nullptr, L"0"},
        {L"\\MiscStatus\\1", nullptr, L"131473"},
        {L"\\ToolboxBitmap32", nullptr, TheLibrary().Path() + L", 30001"},
        {L"\\TypeLib", nullptr, LibraryId},
        {L"\\Version", nullptr, L"1.0"},
    };
    for (const RegisteredEntry& entry : entries)
    {
        const std::wstring key = ClassKey + entry.Key;
        const auto text = RegisteredText(key, entry.Name);
        ASSERT_TRUE(text) << Narrow(key);
        EXPECT_EQ(*text, entry.Text) << Narrow(key);
    }
    // The name that people read.
    EXPECT_NE(RegisteredText(ClassKey).value_or(L""), L"");
    EXPECT_TRUE(IsRegistered(ClassKey + L"\\Control"));
    EXPECT_TRUE(IsRegistered(ClassKey + L"\\Implemented Categories\\" + GuidText(CATID_Control)));
}

TEST_F(RegistrationTest, LeadsFromBothProgrammaticNamesToTheClass)
{
    const std::wstring classId = L"{3E649237-873E-11D3-BB17-00105A16D8EF}";
    EXPECT_EQ(RegisteredText(L"KivControls.YesNo.1\\CLSID"), classId);
    EXPECT_EQ(RegisteredText(L"KivControls.YesNo\\CLSID"), classId);
    EXPECT_EQ(RegisteredText(L"KivControls.YesNo\\CurVer"), L"KivControls.YesNo.1");
    for (const wchar_t* progId : {L"KivControls.YesNo", L"KivControls.YesNo.1"})
    {
        CLSID found = {};
        EXPECT_HRESULT_SUCCEEDED(CLSIDFromProgID(progId, &found)) << Narrow(progId);
        EXPECT_EQ(GuidText(found), classId) << Narrow(progId);
    }
    LPOLESTR name = nullptr;
    ASSERT_HRESULT_SUCCEEDED(ProgIDFromCLSID(CLSID_YesNo, &name));
    EXPECT_STREQ(name, L"KivControls.YesNo.1");
    CoTaskMemFree(name);
}

TEST_F(RegistrationTest, LetsComCreateTheControl)
{
    ComPtr<_YesNo> control;
    ASSERT_HRESULT_SUCCEEDED(
        CoCreateInstance(CLSID_YesNo, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)));
    AnswerEnums value = Yes;
    EXPECT_HRESULT_SUCCEEDED(control->get_Value(&value));
    EXPECT_EQ(value, Neither);
    control.Reset();
    CoFreeUnusedLibraries();
}

TEST_F(RegistrationTest, RegistersTheTypeLibraryWithItsPlainPath)
{
    const std::wstring key = L"TypeLib\\" + LibraryId + L"\\1.0";
    EXPECT_EQ(RegisteredText(key), L"Form Folio Custom Controls");
    const std::wstring platform = sizeof(void*) == 8 ? L"win64" : L"win32";
    EXPECT_EQ(RegisteredText(key + L"\\0\\" + platform), TheLibrary().Path());
}

TEST_F(RegistrationTest, RegistersTheInterfacesForMarshalling)
{
    for (const wchar_t* group : {L"3E649230", L"3E649236", L"3E649239"})
    {
        const std::wstring key = std::wstring(L"Interface\\{") + group + L"-873E-11D3-BB17-00105A16D8EF}";
        EXPECT_EQ(RegisteredText(key + L"\\TypeLib"), LibraryId) << Narrow(key);
        EXPECT_TRUE(RegisteredText(key + L"\\ProxyStubClsid32")) << Narrow(key);
    }
}

TEST_F(RegistrationTest, LeavesNothingBehind)
{
    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    const ClassesRoot without;
    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Register());
    const ClassesRoot with;
    EXPECT_EQ(Added(without.ProgIds, with.ProgIds),
              (std::vector<std::wstring>{L"KivControls.YesNo", L"KivControls.YesNo.1"}));
    EXPECT_EQ(Added(without.Classes, with.Classes),
              (std::vector<std::wstring>{L"{3E649237-873E-11D3-BB17-00105A16D8EF}"}));
    EXPECT_EQ(Added(without.Libraries, with.Libraries), (std::vector<std::wstring>{LibraryId}));
    EXPECT_EQ(Added(without.Interfaces, with.Interfaces),
              (std::vector<std::wstring>{L"{3E649230-873E-11D3-BB17-00105A16D8EF}",
                                         L"{3E649236-873E-11D3-BB17-00105A16D8EF}",
                                         L"{3E649239-873E-11D3-BB17-00105A16D8EF}"}));

    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    const ClassesRoot after;
    EXPECT_EQ(after.ProgIds, without.ProgIds);
    EXPECT_EQ(after.Classes, without.Classes);
    EXPECT_EQ(after.Libraries, without.Libraries);
    EXPECT_EQ(after.Interfaces, without.Interfaces);
    // The category is Windows' own and outlives any control.
    EXPECT_EQ(Added(with.Categories, after.Categories), std::vector<std::wstring>());
    CLSID found = {};
    EXPECT_EQ(Hr(CLSIDFromProgID(L"KivControls.YesNo", &found)), Hr(CO_E_CLASSSTRING));
}

TEST_F(RegistrationTest, MayBeRepeated)
{
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Register());
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Register());
    EXPECT_TRUE(IsRegistered(ClassKey));
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    EXPECT_FALSE(IsRegistered(ClassKey));
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Unregister()) << "nothing left to take away is no failure";
}

// Somebody else's entries under the same roofs stay.
TEST_F(RegistrationTest, TakesOnlyItsOwnAway)
{
    HKEY foreign = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, L"CLSID\\{0D1D1D1D-0000-0000-0000-000000000001}", 0, nullptr,
                              0, KEY_ALL_ACCESS, nullptr, &foreign, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(foreign);
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    EXPECT_TRUE(IsRegistered(L"CLSID\\{0D1D1D1D-0000-0000-0000-000000000001}"));
    RegDeleteKeyW(HKEY_CLASSES_ROOT, L"CLSID\\{0D1D1D1D-0000-0000-0000-000000000001}");
}

} // namespace

} // namespace kiv::test
