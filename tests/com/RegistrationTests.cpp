// What registering writes and unregistering takes away.

#include "tests/com/PublishedClasses.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/RedirectedClasses.h"
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

const std::wstring LibraryId = GuidText(Id(0x3E649255));
constexpr unsigned long MessageInterface = 0x3E649230;

std::wstring ClassKey(const PublishedClass& each)
{
    return L"CLSID\\" + GuidText(Id(each.Class));
}

// The keys under HKEY_CLASSES_ROOT below which a library's keys lie.
struct ClassesRoot
{
    std::set<std::wstring> ProgIds = RegisteredKeys(L"");
    std::set<std::wstring> Classes = RegisteredKeys(L"CLSID");
    std::set<std::wstring> Libraries = RegisteredKeys(L"TypeLib");
    std::set<std::wstring> Interfaces = RegisteredKeys(L"Interface");
    std::set<std::wstring> Categories = RegisteredKeys(L"Component Categories");
};

std::set<std::wstring> Added(const std::set<std::wstring>& before, const std::set<std::wstring>& after)
{
    std::set<std::wstring> added;
    std::ranges::set_difference(after, before, std::inserter(added, added.end()));
    return added;
}

class RegistrationTest : public LibraryTest
{
protected:
    std::vector<PublishedClass> Classes() const
    {
        ComPtr<ITypeLib> library;
        Check(LoadTypeLibEx(TheLibrary().Path().c_str(), REGKIND_NONE, &library));
        return ClassesIn(library.Get());
    }
    // Registered by this very library when a test begins, and for whoever runs next.
    void SetUp() override
    {
        LibraryTest::SetUp();
        {
            const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
            RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"TypeLib\\" + LibraryId).c_str());
        }
        // What an earlier library has written must not stand in for what this one writes.
        ASSERT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
        ASSERT_HRESULT_SUCCEEDED(TheLibrary().Register());
    }
    void TearDown() override
    {
        {
            // What a test has registered there.
            const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
            EXPECT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
        }
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

void ExpectDescribed(const std::vector<PublishedClass>& classes)
{
    const std::wstring& path = Library::UnderTest().Path();
    for (const PublishedClass& each : classes)
    {
        const std::wstring progId = std::wstring(L"KivControls.") + each.Name;
        const RegisteredEntry entries[] = {
            {L"\\InprocServer32", nullptr, path},
            {L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
            {L"\\ProgID", nullptr, progId + L".1"},
            {L"\\VersionIndependentProgID", nullptr, progId},
            {L"\\MiscStatus", nullptr, L"0"},
            {L"\\MiscStatus\\1", nullptr, L"131473"},
            {L"\\ToolboxBitmap32", nullptr, path + L", " + std::to_wstring(each.ToolboxBitmap)},
            {L"\\TypeLib", nullptr, LibraryId},
            {L"\\Version", nullptr, L"1.0"},
        };
        for (const RegisteredEntry& entry : entries)
        {
            const std::wstring key = ClassKey(each) + entry.Key;
            EXPECT_EQ(RegisteredText(key, entry.Name), entry.Text) << Narrow(key);
        }
        // The name that people read.
        EXPECT_NE(RegisteredText(ClassKey(each)).value_or(L""), L"");
        EXPECT_TRUE(IsRegistered(ClassKey(each) + L"\\Control"));
        EXPECT_TRUE(IsRegistered(ClassKey(each) + L"\\Implemented Categories\\" + GuidText(CATID_Control)));
    }
}

TEST_F(RegistrationTest, DescribesTheClassesAsHostsReadThem)
{
    ExpectDescribed(Classes());
}

TEST_F(RegistrationTest, LeadsFromBothProgrammaticNamesToTheClass)
{
    for (const PublishedClass& each : Classes())
    {
        const std::wstring classId = GuidText(Id(each.Class));
        const std::wstring progId = std::wstring(L"KivControls.") + each.Name;
        EXPECT_EQ(RegisteredText(progId + L".1\\CLSID"), classId);
        EXPECT_EQ(RegisteredText(progId + L"\\CLSID"), classId);
        EXPECT_EQ(RegisteredText(progId + L"\\CurVer"), progId + L".1");
        for (const std::wstring& name : {progId, progId + L".1"})
        {
            CLSID found = {};
            EXPECT_HRESULT_SUCCEEDED(CLSIDFromProgID(name.c_str(), &found)) << Narrow(name);
            EXPECT_EQ(GuidText(found), classId) << Narrow(name);
        }
        LPOLESTR name = nullptr;
        ASSERT_HRESULT_SUCCEEDED(ProgIDFromCLSID(Id(each.Class), &name));
        EXPECT_EQ(name, progId + L".1");
        CoTaskMemFree(name);
    }
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
    std::vector<unsigned long> interfaces = {MessageInterface};
    for (const PublishedClass& each : Classes())
        interfaces.insert(interfaces.end(), {each.Properties, each.Events});
    for (const unsigned long group : interfaces)
    {
        const std::wstring key = L"Interface\\" + GuidText(Id(group));
        EXPECT_EQ(RegisteredText(key + L"\\TypeLib"), LibraryId) << Narrow(key);
        EXPECT_TRUE(RegisteredText(key + L"\\ProxyStubClsid32")) << Narrow(key);
    }
}

TEST_F(RegistrationTest, LeavesNothingBehind)
{
    std::set<std::wstring> progIds;
    std::set<std::wstring> classIds;
    std::set<std::wstring> interfaces = {GuidText(Id(MessageInterface))};
    for (const PublishedClass& each : Classes())
    {
        progIds.insert(
            {std::wstring(L"KivControls.") + each.Name, std::wstring(L"KivControls.") + each.Name + L".1"});
        classIds.insert(GuidText(Id(each.Class)));
        interfaces.insert({GuidText(Id(each.Properties)), GuidText(Id(each.Events))});
    }

    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    const ClassesRoot without;
    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Register());
    const ClassesRoot with;
    EXPECT_EQ(Added(without.ProgIds, with.ProgIds), progIds);
    EXPECT_EQ(Added(without.Classes, with.Classes), classIds);
    EXPECT_EQ(Added(without.Libraries, with.Libraries), std::set<std::wstring>{LibraryId});
    EXPECT_EQ(Added(without.Interfaces, with.Interfaces), interfaces);

    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    const ClassesRoot after;
    EXPECT_EQ(after.ProgIds, without.ProgIds);
    EXPECT_EQ(after.Classes, without.Classes);
    EXPECT_EQ(after.Libraries, without.Libraries);
    EXPECT_EQ(after.Interfaces, without.Interfaces);
    // The category is Windows' own and outlives any control.
    EXPECT_EQ(after.Categories, with.Categories);
    CLSID found = {};
    EXPECT_EQ(Hr(CLSIDFromProgID(L"KivControls.YesNo", &found)), Hr(CO_E_CLASSSTRING));
}

TEST_F(RegistrationTest, MayBeRepeated)
{
    const std::wstring key = L"CLSID\\" + GuidText(CLSID_YesNo);
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Register());
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Register());
    EXPECT_TRUE(IsRegistered(key));
    EXPECT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    EXPECT_FALSE(IsRegistered(key));
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

bool AllAreRegistered(const std::vector<PublishedClass>& classes)
{
    return std::ranges::all_of(classes, [](const PublishedClass& each) {
        return IsRegistered(ClassKey(each)) && IsRegistered(std::wstring(L"KivControls.") + each.Name);
    });
}

bool AnyIsRegistered(const std::vector<PublishedClass>& classes)
{
    return std::ranges::any_of(classes, [](const PublishedClass& each) {
        return IsRegistered(ClassKey(each)) || IsRegistered(std::wstring(L"KivControls.") + each.Name) ||
               IsRegistered(std::wstring(L"KivControls.") + each.Name + L".1");
    });
}

// Who may not write for all users registers for himself.
TEST_F(RegistrationTest, RegistersForTheCurrentUserWhereAllUsersAreRefused)
{
    const std::vector<PublishedClass> classes = Classes();
    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    {
        const RefusingClasses refusing(LibraryId);
        EXPECT_EQ(Hr(TheLibrary().Register()), Hr(S_OK));
        EXPECT_FALSE(AnyIsRegistered(classes)) << "nothing stays half registered for all";
    }
    {
        const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
        ExpectDescribed(classes);
        EXPECT_TRUE(AllAreRegistered(classes));
        KnownPlatformGap("RegisterTypeLibForUser registers for all users",
                         [] { return IsRegistered(L"TypeLib\\" + LibraryId + L"\\1.0"); });
    }
    EXPECT_EQ(Hr(TheLibrary().Unregister()), Hr(S_OK));
    EXPECT_FALSE(AnyIsRegistered(classes));
    const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
    EXPECT_FALSE(AnyIsRegistered(classes));
    EXPECT_FALSE(IsRegistered(L"TypeLib\\" + LibraryId));
}

TEST_F(RegistrationTest, TakesAwayWhatThereIsForTheCurrentUserAndForAll)
{
    const std::vector<PublishedClass> classes = Classes();
    {
        const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
        EXPECT_EQ(Hr(TheLibrary().Register()), Hr(S_OK));
        EXPECT_TRUE(AllAreRegistered(classes));
    }
    {
        const RedirectedClasses all = RedirectedClasses::OfAllUsers();
        EXPECT_TRUE(AllAreRegistered(classes));
    }
    EXPECT_EQ(Hr(TheLibrary().Unregister()), Hr(S_OK));
    {
        const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
        EXPECT_FALSE(AnyIsRegistered(classes));
    }
    const RedirectedClasses all = RedirectedClasses::OfAllUsers();
    EXPECT_FALSE(AnyIsRegistered(classes));
}

// They would go on leading to wherever the user's library was.
TEST_F(RegistrationTest, LeavesNothingOfTheCurrentUserInFrontOfWhatIsForAll)
{
    const std::vector<PublishedClass> classes = Classes();
    {
        const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
        ASSERT_EQ(Hr(TheLibrary().Register()), Hr(S_OK));
    }
    EXPECT_EQ(Hr(TheLibrary().Register()), Hr(S_OK));
    const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
    EXPECT_FALSE(AnyIsRegistered(classes));
}

// What the user has registered may have been deleted without a word.
TEST_F(RegistrationTest, GetsOverATypeLibraryOfTheUsersThatIsGone)
{
    const std::wstring platform = sizeof(void*) == 8 ? L"win64" : L"win32";
    const std::wstring key = L"TypeLib\\" + LibraryId + L"\\1.0\\0\\" + platform;
    {
        const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
        HKEY gone = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                  &gone, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExW(gone, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"C:\\gone"),
                       8 * sizeof(wchar_t));
        RegCloseKey(gone);
    }
    EXPECT_EQ(Hr(TheLibrary().Register()), Hr(S_OK));
    const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
    EXPECT_FALSE(IsRegistered(key));
}

// The library of all users is only an administrator's to take away.
TEST_F(RegistrationTest, TakesTheUsersOwnAwayWhereAllUsersAreRefused)
{
    const std::vector<PublishedClass> classes = Classes();
    {
        const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
        ASSERT_EQ(Hr(TheLibrary().Register()), Hr(S_OK));
    }
    {
        const RefusingClasses refusing(LibraryId);
        EXPECT_EQ(Hr(TheLibrary().Unregister()), Hr(S_OK));
        EXPECT_EQ(Hr(TheLibrary().Unregister()), Hr(SELFREG_E_CLASS)) << "there was nothing of the user's";
    }
    EXPECT_TRUE(AllAreRegistered(classes));
    const RedirectedClasses user = RedirectedClasses::OfCurrentUser();
    EXPECT_FALSE(AnyIsRegistered(classes));
}

} // namespace

} // namespace kiv::test
