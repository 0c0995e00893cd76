#include "tests/com/HeldControl.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/Library.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <ocidl.h>
#include <olectl.h>

namespace kiv::test
{

HeldControl::HeldControl(REFCLSID classId, SiteShape shape) : site_(MakeCom<RecordingSite>(shape))
{
    site_->SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont().Get())));
    Check(Library::UnderTest().Create(classId).As(&control_));
    Check(Query<IOleObject>()->SetClientSite(site_.Get()));
}

HeldControl::~HeldControl()
{
    const auto object = Query<IOleObject>();
    EXPECT_HRESULT_SUCCEEDED(object->Close(OLECLOSE_NOSAVE));
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(nullptr));
    site_->LetGo();
    site_->Log().Close();
    EXPECT_EQ(References(static_cast<IOleClientSite*>(site_.Get())), 1U)
        << "the control still holds its site";
}

void HeldControl::InitNew() const
{
    Check(Query<IPersistStreamInit>()->InitNew());
}

Variant HeldControl::Property(const wchar_t* name) const
{
    const CallOutcome outcome = GetByName(Get(), name);
    EXPECT_EQ(Hr(outcome.Result), Hr(S_OK)) << Narrow(name);
    return outcome.Value;
}

void HeldControl::Put(const wchar_t* name, const Variant& value) const
{
    const bool isObject = value.Type() == VT_DISPATCH;
    const CallOutcome outcome = isObject ? PutRefByName(Get(), name, value) : PutByName(Get(), name, value);
    EXPECT_EQ(Hr(outcome.Result), Hr(S_OK)) << Narrow(name);
}

std::string HeldControl::Shown(const wchar_t* name) const
{
    return Show(Property(name));
}

} // namespace kiv::test
