// A showing of a form whose control cannot say whether its answer is valid.

#include "host/folio/Session.h"
#include "host/folio/Text.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Wine.h"
#include "tests/gui/host/HostProcess.h"
#include "tests/support/Library.h"
#include "tests/support/Text.h"

#include <KivControls.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr wchar_t ClassText[] = L"{5B0A5E0C-6C0F-4C0B-9A53-0B6B2E1F7D41}";
constexpr DISPID IsValidInput = 30000;

// A YesNo with a method that fails.
class Judge final : public IDispatch
{
public:
    Judge()
    {
        ComPtr<IClassFactory> factory;
        Check(Library::UnderTest().GetClassObject(CLSID_YesNo, IID_IClassFactory,
                                                  reinterpret_cast<void**>(factory.GetAddressOf())));
        Check(factory->CreateInstance(this, IID_IUnknown, reinterpret_cast<void**>(inner_.GetAddressOf())));
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        if (iid != IID_IUnknown && iid != IID_IDispatch)
            return inner_->QueryInterface(iid, object);
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = --references_;
        if (left == 0)
        {
            // What the inner one holds of this one meanwhile is not to end it again.
            references_ = 1;
            delete this;
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        return Inner()->GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override
    {
        return Inner()->GetTypeInfo(index, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override
    {
        if (count != 1 || _wcsicmp(names[0], L"IsValidInput") != 0)
            return Inner()->GetIDsOfNames(reserved, names, count, locale, ids);
        ids[0] = IsValidInput;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentInError) noexcept override
    {
        return member == IsValidInput ? E_ACCESSDENIED
                                      : Inner()->Invoke(member, reserved, locale, flags, arguments, result,
                                                        exception, argumentInError);
    }

private:
    ~Judge() = default;

    ComPtr<_YesNo> Inner() const
    {
        // The inner one's interfaces count on this one.
        ComPtr<_YesNo> inner;
        inner_.As(&inner);
        return inner;
    }

    ULONG references_ = 1;
    ComPtr<IUnknown> inner_;
};

class JudgeFactory final : public ComObject<IClassFactory>
{
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override
    {
        if (outer)
            return CLASS_E_NOAGGREGATION;
        auto* const judge = new Judge;
        const HRESULT result = judge->QueryInterface(iid, object);
        judge->Release();
        return result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) noexcept override { return S_OK; }
};

class FailingJudge : public HostProcess
{
protected:
    void SetUp() override
    {
        ASSERT_HRESULT_SUCCEEDED(OleInitialize(nullptr));
        ASSERT_EQ(RegSetKeyValueW(Root(), Key, nullptr, REG_SZ, ClassText, sizeof ClassText), ERROR_SUCCESS);
        CLSID classId = {};
        ASSERT_HRESULT_SUCCEEDED(CLSIDFromString(ClassText, &classId));
        const auto factory = MakeCom<JudgeFactory>();
        ASSERT_HRESULT_SUCCEEDED(CoRegisterClassObject(classId, factory.Get(), CLSCTX_INPROC_SERVER,
                                                       REGCLS_MULTIPLEUSE, &cookie_));
    }
    void TearDown() override
    {
        EXPECT_HRESULT_SUCCEEDED(CoRevokeClassObject(cookie_));
        EXPECT_EQ(RegDeleteTreeW(Root(), L"Software\\Classes\\FolioTest.Judge"), ERROR_SUCCESS);
        OleUninitialize();
    }

private:
    // Wine's COM does not look for the user's own classes.
    static HKEY Root() { return RunsOnWine() ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

    static constexpr wchar_t Key[] = L"Software\\Classes\\FolioTest.Judge\\CLSID";

    DWORD cookie_ = 0;
};

TEST_F(FailingJudge, KeepsTheFormOpen)
{
    WriteForm("Begin Form page\n"
              "    ClientWidth = 3000\n"
              "    ClientHeight = 1500\n"
              "    Begin FolioTest.Judge jOne\n"
              "        Left = 120\n"
              "        Top = 120\n"
              "        Width = 1800\n"
              "        Height = 300\n"
              "    End\n" +
              OkButton() + "End\n");
    WriteScript("key y\n"
                "click cmdOK\n"
                "answer messagebox \"jOne cannot tell whether its answer is valid: " +
                host::DescribeError(ComError(E_ACCESSDENIED)) +
                "\" OK\n"
                "expect focus jOne\n"
                "expect jOne.Value = 1\n");
    const TemporaryFile log(L".jsonl");
    const host::CommandLine line =
        host::ReadCommandLine({"--script", ScriptPath(), "--log", Narrow(log.Path()), FormPath()});
    EXPECT_EQ(host::Session(line).Run(), std::vector<std::string>());
}

} // namespace

} // namespace kiv::test
