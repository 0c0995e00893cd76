#include "tests/com/MaskedControl.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/Library.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <ocidl.h>
#include <olectl.h>

#include <sstream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

MaskedControl::MaskedControl(REFCLSID classId) : site_(MakeCom<RecordingSite>(SiteShape()))
{
    site_->SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont().Get())));
    Check(Library::UnderTest().Create(classId).As(&control_));
    Check(Query<IOleObject>()->SetClientSite(site_.Get()));
}

MaskedControl::~MaskedControl()
{
    const auto object = Query<IOleObject>();
    EXPECT_HRESULT_SUCCEEDED(object->Close(OLECLOSE_NOSAVE));
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(nullptr));
    site_->LetGo();
    site_->Log().Close();
    EXPECT_EQ(References(static_cast<IOleClientSite*>(site_.Get())), 1U)
        << "the control still holds its site";
}

void MaskedControl::InitNew() const
{
    Check(Query<IPersistStreamInit>()->InitNew());
}

Variant MaskedControl::Property(const wchar_t* name) const
{
    const CallOutcome outcome = GetByName(Get(), name);
    EXPECT_EQ(Hr(outcome.Result), Hr(S_OK)) << Narrow(name);
    return outcome.Value;
}

void MaskedControl::Put(const wchar_t* name, const Variant& value) const
{
    const bool isObject = value.Type() == VT_DISPATCH;
    const CallOutcome outcome = isObject ? PutRefByName(Get(), name, value) : PutByName(Get(), name, value);
    EXPECT_EQ(Hr(outcome.Result), Hr(S_OK)) << Narrow(name);
}

std::wstring MaskedControl::BoxText() const
{
    const auto box = static_cast<HWND>(LongToHandle(Property(L"hwnd").Long()));
    wchar_t text[256] = {};
    GetWindowTextW(box, text, ARRAYSIZE(text));
    return text;
}

std::string MaskedControl::Shown(const wchar_t* name) const
{
    return Show(Property(name));
}

MaskedState StateOf(const MaskedControl& control)
{
    MaskedState state;
    for (const wchar_t* name : {L"AllowVarious", L"BackColor", L"ForeColor", L"Enabled", L"Style",
                                L"MaxLength", L"MaxDate", L"MinDate"})
    {
        if (IdOfName(control.Get(), name) != DISPID_UNKNOWN)
            state[name] = control.Shown(name);
    }
    std::ostringstream font;
    font << FactsOf(control.Property(L"Font").Object());
    state[L"Font"] = font.str();
    return state;
}

} // namespace kiv::test
