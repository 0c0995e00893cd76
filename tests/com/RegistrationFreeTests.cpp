// A host that brings the library with it: its manifest names the library's, and nothing is registered.

#include "tests/com/PublishedClasses.h"
#include "tests/support/Files.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr std::string_view HostManifest =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <dependency>
    <dependentAssembly>
      <assemblyIdentity type="win32" name="KivCtls" version="1.0.0.0" processorArchitecture="*"/>
    </dependentAssembly>
  </dependency>
</assembly>
)";

// What a program that has such a manifest beside it sees, as long as this object lives.
class HostContext
{
public:
    explicit HostContext(const std::wstring& folder) : manifest_(folder + L"\\RegistrationFreeHost.manifest")
    {
        WriteWholeFile(manifest_, {HostManifest.begin(), HostManifest.end()});
        ACTCTXW description = {};
        description.cbSize = sizeof description;
        description.lpSource = manifest_.c_str();
        context_ = CreateActCtxW(&description);
        if (context_ == INVALID_HANDLE_VALUE)
            ThrowLastError();
        ActivateActCtx(context_, &cookie_);
    }
    HostContext(const HostContext&) = delete;
    HostContext& operator=(const HostContext&) = delete;
    ~HostContext()
    {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
        DeleteFileW(manifest_.c_str());
    }

private:
    const std::wstring manifest_;
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
};

bool HasInterface(REFIID iid)
{
    ACTCTX_SECTION_KEYED_DATA data = {};
    data.cbSize = sizeof data;
    return FindActCtxSectionGuid(0, nullptr, ACTIVATION_CONTEXT_SECTION_COM_INTERFACE_REDIRECTION, &iid,
                                 &data) != FALSE;
}

class RegistrationFreeTest : public LibraryTest
{
protected:
    // Registered for whoever runs next.
    void SetUp() override
    {
        LibraryTest::SetUp();
        ComPtr<ITypeLib> library;
        Check(LoadTypeLibEx(TheLibrary().Path().c_str(), REGKIND_NONE, &library));
        classes_ = ClassesIn(library.Get());
        ASSERT_FALSE(classes_.empty());
        ASSERT_HRESULT_SUCCEEDED(TheLibrary().Unregister());
    }
    void TearDown() override
    {
        EXPECT_HRESULT_SUCCEEDED(TheLibrary().Register());
        LibraryTest::TearDown();
    }

    std::wstring Folder() const { return std::filesystem::path(TheLibrary().Path()).parent_path().wstring(); }

    std::vector<PublishedClass> classes_;
};

TEST_F(RegistrationFreeTest, CreatesEveryClassByItsNames)
{
    CLSID found = {};
    ASSERT_EQ(Hr(CLSIDFromProgID(L"KivControls.YesNo", &found)), Hr(CO_E_CLASSSTRING));
    const HostContext context(Folder());
    for (const PublishedClass& each : classes_)
    {
        const std::wstring progId = std::wstring(L"KivControls.") + each.Name;
        for (const std::wstring& name : {progId, progId + L".1"})
        {
            // A name leads to a class of the context's own, which is another name of the library's.
            EXPECT_EQ(Hr(CLSIDFromProgID(name.c_str(), &found)), Hr(S_OK)) << Narrow(name);
            for (const CLSID& clsid : {found, CLSID(Id(each.Class))})
            {
                ComPtr<IDispatch> control;
                EXPECT_EQ(Hr(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, Id(each.Properties),
                                              reinterpret_cast<void**>(control.GetAddressOf()))),
                          Hr(S_OK))
                    << Narrow(name);
            }
        }
    }
    CoFreeUnusedLibraries();
}

TEST_F(RegistrationFreeTest, SaysOfEveryClassWhatRegistrationDoes)
{
    const HostContext context(Folder());
    for (const PublishedClass& each : classes_)
    {
        DWORD status = 0;
        EXPECT_EQ(Hr(OleRegGetMiscStatus(Id(each.Class), DVASPECT_CONTENT, &status)), Hr(S_OK));
        EXPECT_EQ(status, 131473U) << Narrow(each.Name);
        LPOLESTR name = nullptr;
        ASSERT_EQ(Hr(ProgIDFromCLSID(Id(each.Class), &name)), Hr(S_OK)) << Narrow(each.Name);
        EXPECT_EQ(name, std::wstring(L"KivControls.") + each.Name + L".1");
        CoTaskMemFree(name);
    }
}

TEST_F(RegistrationFreeTest, HasTheTypeLibraryAndItsInterfaces)
{
    ComPtr<ITypeLib> library;
    EXPECT_TRUE(FAILED(LoadRegTypeLib(LIBID_KivControls, 1, 0, LOCALE_NEUTRAL, &library)));
    const HostContext context(Folder());
    EXPECT_EQ(Hr(LoadRegTypeLib(LIBID_KivControls, 1, 0, LOCALE_NEUTRAL, &library)), Hr(S_OK));
    EXPECT_TRUE(HasInterface(__uuidof(ISubClass)));
    for (const PublishedClass& each : classes_)
    {
        EXPECT_TRUE(HasInterface(Id(each.Properties))) << Narrow(each.Name);
        EXPECT_TRUE(HasInterface(Id(each.Events))) << Narrow(each.Name);
    }
}

} // namespace

} // namespace kiv::test
