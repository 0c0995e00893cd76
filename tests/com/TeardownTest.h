#pragma once

#include "tests/support/LibraryTest.h"
#include "tests/support/RecordingSite.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>

namespace kiv::test
{

// A control whose references are in the test's own hands.
struct LooseControl
{
    Microsoft::WRL::ComPtr<RecordingSite> Site = MakeCom<RecordingSite>();
    Microsoft::WRL::ComPtr<_YesNo> Control;
    Microsoft::WRL::ComPtr<IOleObject> Object;
    Microsoft::WRL::ComPtr<IOleInPlaceObject> InPlace;
    HWND Window = nullptr;

    explicit LooseControl(bool withSite = true)
    {
        Check(Library::UnderTest().Create(CLSID_YesNo).As(&Control));
        Check(Control.As(&Object));
        Check(Control.As(&InPlace));
        Site->SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont().Get())));
        Site->Log().AllowAll();
        if (withSite)
            Check(Object->SetClientSite(Site.Get()));
        Microsoft::WRL::ComPtr<IPersistStreamInit> persist;
        Check(Control.As(&persist));
        Check(persist->InitNew());
        long handle = 0;
        Check(Control->get_hwnd(&handle));
        Window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle));
    }

    HRESULT Activate(LONG verb = OLEIVERB_UIACTIVATE) const
    {
        return Object->DoVerb(verb, nullptr, Site.Get(), 0, Site->Window().Handle(), &Site->Position());
    }
    void Release()
    {
        Object.Reset();
        InPlace.Reset();
        Control.Reset();
    }
    ULONG SiteReferences() const { return References(static_cast<IOleClientSite*>(Site.Get())); }
    std::ptrdiff_t CallsOf(const char* name) const { return std::ranges::count(Site->Log().Calls(), name); }
};

class TeardownTest : public LibraryTest
{
protected:
    // Whatever was begun has been ended, and the site is free.
    static void ExpectAllOver(const LooseControl& loose)
    {
        loose.Site->LetGo();
        EXPECT_EQ(loose.SiteReferences(), 1U) << "the site is still held";
        EXPECT_EQ(loose.CallsOf("OnInPlaceActivate"), loose.CallsOf("OnInPlaceDeactivate"));
        EXPECT_EQ(loose.CallsOf("OnUIActivate"), loose.CallsOf("OnUIDeactivate"));
        EXPECT_FALSE(IsWindow(loose.Window));
        EXPECT_EQ(ControlWindows(), 0);
    }
};

} // namespace kiv::test
