#include "tests/com/SitedControl.h"

#include "runtime/com/Errors.h"
#include "tests/support/Library.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestFont.h"

#include <ocidl.h>
#include <olectl.h>

namespace kiv::test
{

SitedControl::SitedControl(SiteShape shape) : site_(MakeCom<RecordingSite>(shape))
{
    site_->SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont().Get())));
    Check(Library::UnderTest().Create(CLSID_YesNo).As(&control_));
    Check(Query<IOleObject>()->SetClientSite(site_.Get()));
}

SitedControl::~SitedControl()
{
    TearDown();
}

void SitedControl::InitNew() const
{
    Check(Query<IPersistStreamInit>()->InitNew());
}

void SitedControl::TearDown()
{
    if (!control_)
        return;
    const auto object = Query<IOleObject>();
    EXPECT_HRESULT_SUCCEEDED(object->Close(OLECLOSE_NOSAVE));
    EXPECT_HRESULT_SUCCEEDED(object->SetClientSite(nullptr));
    site_->LetGo();
    site_->Log().Close();
    EXPECT_EQ(References(static_cast<IOleClientSite*>(site_.Get())), 1U)
        << "the control still holds its site";
    control_.Reset();
}

} // namespace kiv::test
