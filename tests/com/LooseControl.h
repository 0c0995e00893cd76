#pragma once

#include "tests/support/AutomationCalls.h"
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
    Microsoft::WRL::ComPtr<IDispatch> Control;
    Microsoft::WRL::ComPtr<IOleObject> Object;
    Microsoft::WRL::ComPtr<IOleInPlaceObject> InPlace;
    HWND Window = nullptr; // null for one that has no property for it

    explicit LooseControl(REFCLSID classId, bool withSite = true)
    {
        Check(Library::UnderTest().Create(classId).As(&Control));
        Check(Control.As(&Object));
        Check(Control.As(&InPlace));
        Site->SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont().Get())));
        Site->Log().AllowAll();
        if (withSite)
            Check(Object->SetClientSite(Site.Get()));
        Microsoft::WRL::ComPtr<IPersistStreamInit> persist;
        Check(Control.As(&persist));
        Check(persist->InitNew());
        const CallOutcome window = Invoke(Control.Get(), DISPID_HWND, DISPATCH_PROPERTYGET);
        if (SUCCEEDED(window.Result))
            Window = static_cast<HWND>(LongToHandle(window.Value.Long()));
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
    // Ends everything, unless that has been done already.
    void TakeDown()
    {
        if (!Control)
            return;
        InPlace->UIDeactivate();
        InPlace->InPlaceDeactivate();
        Object->Close(OLECLOSE_NOSAVE);
        Object->SetClientSite(nullptr);
        Release();
    }
    ULONG SiteReferences() const { return References(static_cast<IOleClientSite*>(Site.Get())); }
    std::ptrdiff_t CallsOf(const char* name) const { return std::ranges::count(Site->Log().Calls(), name); }
};

// No window is left, and the site is free.
inline void ExpectGone(const LooseControl& loose)
{
    loose.Site->LetGo();
    EXPECT_EQ(loose.SiteReferences(), 1U) << "the site is still held";
    EXPECT_FALSE(IsWindow(loose.Window));
    EXPECT_EQ(ControlWindows(), 0);
}

// And whatever was begun has been ended.
inline void ExpectAllOver(const LooseControl& loose)
{
    ExpectGone(loose);
    EXPECT_EQ(loose.CallsOf("OnInPlaceActivate"), loose.CallsOf("OnInPlaceDeactivate"));
    EXPECT_EQ(loose.CallsOf("OnUIActivate"), loose.CallsOf("OnUIDeactivate"));
}

} // namespace kiv::test
