#pragma once

#include "tests/com/ControlState.h"
#include "tests/com/SitedControl.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <ocidl.h>

namespace kiv::test
{

using Bytes = std::vector<std::uint8_t>;

// A control in which nothing has its default.
inline ControlState UnusualState()
{
    ControlState state;
    state.BackColor = 0x00ABCDEF;
    state.ForeColor = 0x80000005;
    state.Enabled = false;
    state.Font.Italic = true;
    state.YesText = L"Yes, \u00E9";
    state.NoText = std::wstring(300, L'n');
    state.Value = 5;
    return state;
}

// Base of the tests with IPersistStreamInit.
class StreamPersistenceTest : public LibraryTest
{
protected:
    static HRESULT Load(_YesNo* control, IStream* stream)
    {
        Microsoft::WRL::ComPtr<IPersistStreamInit> persist;
        Check(control->QueryInterface(IID_PPV_ARGS(&persist)));
        return persist->Load(stream);
    }
    static HRESULT Load(_YesNo* control, const Bytes& bytes)
    {
        return Load(control, MakeCom<TestStream>(bytes).Get());
    }
    static HRESULT Save(_YesNo* control, IStream* stream, bool clearDirty = true)
    {
        Microsoft::WRL::ComPtr<IPersistStreamInit> persist;
        Check(control->QueryInterface(IID_PPV_ARGS(&persist)));
        return persist->Save(stream, clearDirty);
    }
    static Bytes Saved(_YesNo* control)
    {
        const auto stream = MakeCom<TestStream>();
        EXPECT_EQ(Hr(Save(control, stream.Get(), false)), Hr(S_OK));
        return stream->Bytes();
    }
    static Bytes SavedUnusual()
    {
        const SitedControl control;
        control.InitNew();
        Apply(UnusualState(), control.Get());
        return Saved(control.Get());
    }

    // A control without a site, which has the system's font by default.
    Microsoft::WRL::ComPtr<_YesNo> NewControl() const
    {
        Microsoft::WRL::ComPtr<_YesNo> control = CreateYesNo();
        Microsoft::WRL::ComPtr<IPersistStreamInit> persist;
        Check(control.As(&persist));
        Check(persist->InitNew());
        return control;
    }
};

} // namespace kiv::test
