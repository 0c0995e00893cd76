#pragma once

#include "tests/com/ControlProperties.h"
#include "tests/com/each/EachTest.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/TestStream.h"

#include <vector>

namespace kiv::test
{

using Names = std::vector<std::wstring>;
using Bytes = std::vector<std::uint8_t>;

// Something that a control keeps, under the name of one of its properties. Its type is the property's.
struct PersistedKey
{
    const wchar_t* Name;
    const char* Default; // as a new control shows it, in a container with the default font
    // Said for what is unusual.
    Variant Other = {};        // the one to store, where it may not be just any other value of the type
    Names Brings = {};         // what is written beside it when the property is set
    bool TakesAnyType = false; // any type that reads as text, and keeps it
    bool Depends = false;      // read and written only while the others have the values that they have here
    bool IsQuiet = false;      // set by program, nothing tells that there is something to be saved
    bool IsMomentary = false;  // takes its default again at once, and so is never written
};

// What a control keeps, in the order in which it reads it: containers keep such lists.
struct PersistedControl
{
    const wchar_t* Class;
    std::vector<PersistedKey> Keys;
    Names AsWritten = {}; // where they are written in another order
};

const PersistedControl& PersistedBy(const PublishedClass& control);
Names NamesOf(const std::vector<PersistedKey>& keys);

// A control on a site that lets it call what it likes.
class EasyControl : public HeldControl
{
public:
    explicit EasyControl(REFCLSID classId, SiteShape shape = {}) : HeldControl(classId, shape)
    {
        Site().Log().AllowAll();
    }
};

HRESULT Load(IUnknown* control, TestPropertyBag* bag, IErrorLog* log = nullptr);
HRESULT Load(IUnknown* control, IStream* stream);
HRESULT Load(IUnknown* control, const Bytes& bytes);
HRESULT Save(IUnknown* control, TestPropertyBag* bag, bool clearDirty = true);
HRESULT Save(IUnknown* control, IStream* stream, bool clearDirty = true);
bool IsDirty(IUnknown* control);

// Base of the tests of what every control keeps. What is unusual is made once a test.
class EachPersisted : public EachTest
{
protected:
    void TearDown() override
    {
        others_.clear();
        EachTest::TearDown();
    }

    static const PersistedControl& Row() { return PersistedBy(GetParam()); }
    static const std::vector<PersistedKey>& Keys() { return Row().Keys; }
    static Names KeysAsWritten();
    static bool Has(const wchar_t* key);

    // Another value than the control has by default.
    const Variant& OtherValue(const PersistedKey& key);
    // A bag in which nothing has its default, and what a control shows and saves that was loaded from it.
    Microsoft::WRL::ComPtr<TestPropertyBag> UnusualBag();
    const ControlState& UnusualState();
    const Bytes& UnusualBytes();
    void MakeUnusual(const HeldControl& control);
    // What a new control shows.
    const ControlState& NewState();
    // Puts another value still, of a property that then has no default either.
    static void Change(IDispatch* control);
    // Of what a control shows, what it keeps.
    static ControlState KeptBy(const HeldControl& control);

    static Microsoft::WRL::ComPtr<TestPropertyBag> SavedBag(const HeldControl& control);
    static Bytes SavedBytes(const HeldControl& control);

private:
    std::map<std::wstring, Variant> others_;
    ControlState unusualState_;
    Bytes unusualBytes_;
    ControlState newState_;
};

} // namespace kiv::test
