// Objects of a script's own classes, as the library calls those that a script hands to it.

#include "runtime/com/ComObject.h"
#include "runtime/com/Errors.h"
#include "runtime/com/LateBound.h"
#include "runtime/com/MakeCom.h"
#include "tests/support/KnownPlatformGap.h"
#include "tests/support/LibraryTest.h"

#include <activscp.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// All that a script asks of its host when it is given nothing to talk to.
class SilentSite final : public ComObject<IActiveScriptSite>
{
public:
    HRESULT STDMETHODCALLTYPE GetLCID(LCID*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) noexcept override
    {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) noexcept override
    {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError*) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnEnterScript() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() noexcept override { return S_OK; }
};

class ScriptClassTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        CLSID engine = {};
        Check(CLSIDFromProgID(L"VBScript", &engine));
        Check(CoCreateInstance(engine, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&script_)));
        Check(script_->SetScriptSite(site_.Get()));
        ComPtr<IActiveScriptParse> parser;
        Check(script_.As(&parser));
        Check(parser->InitNew());
        Check(parser->ParseScriptText(L"Class Sample\n"
                                      L"    Public Name\n"
                                      L"    Public Property Get Length\n"
                                      L"        Length = Len(Name)\n"
                                      L"    End Property\n"
                                      L"    Public Function Joined(left, right)\n"
                                      L"        Joined = left & Name & right\n"
                                      L"    End Function\n"
                                      L"    Public Sub Refuse\n"
                                      L"        Err.Raise 3061\n"
                                      L"    End Sub\n"
                                      L"End Class\n"
                                      L"Function Made()\n"
                                      L"    Set Made = New Sample\n"
                                      L"    Made.Name = \"Pears\"\n"
                                      L"End Function\n",
                                      nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE, nullptr,
                                      nullptr));
        Check(script_->SetScriptState(SCRIPTSTATE_STARTED));
        ComPtr<IDispatch> script;
        Check(script_->GetScriptDispatch(nullptr, &script));
        sample_ = ObjectOf(CallMember(script.Get(), MemberOf(script.Get(), L"Made")));
        ASSERT_TRUE(sample_);
    }
    void TearDown() override
    {
        sample_.Reset();
        if (script_)
            script_->Close();
        script_.Reset();
        LibraryTest::TearDown();
    }

    Variant Call(const wchar_t* name, std::initializer_list<Variant> arguments = {}) const
    {
        return CallMember(sample_.Get(), MemberOf(sample_.Get(), name), arguments);
    }

    ComPtr<SilentSite> site_ = MakeCom<SilentSite>();
    ComPtr<IActiveScript> script_;
    ComPtr<IDispatch> sample_;
};

TEST_F(ScriptClassTest, HasMembersOfAllKinds)
{
    EXPECT_EQ(Call(L"Name").Text(), L"Pears");
    EXPECT_EQ(Call(L"length").Long(), 5) << "the case of a name does not matter";
    EXPECT_EQ(Call(L"Joined", {Variant(L"<"), Variant(L">")}).Text(), L"<Pears>");
    EXPECT_THROW(Call(L"Weight"), ComError);
    EXPECT_THROW(Call(L"Refuse"), ComError);
}

TEST_F(ScriptClassTest, FindsItsMembersByThePlainCall)
{
    KnownPlatformGap("VBScript finds the members of a class by IDispatchEx only", [this] {
        const wchar_t* name = L"Name";
        DISPID member = DISPID_UNKNOWN;
        return SUCCEEDED(
            sample_->GetIDsOfNames(IID_NULL, const_cast<wchar_t**>(&name), 1, LOCALE_USER_DEFAULT, &member));
    });
}

} // namespace

} // namespace kiv::test
