// A control in a stream: whole, cut off, damaged, and on a medium that fails.

#include "tests/com/ControlState.h"
#include "tests/com/SitedControl.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/core/PropertyStream.h"

#include <algorithm>
#include <random>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using Bytes = std::vector<std::uint8_t>;

ControlState Unusual()
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

class StreamPersistenceTest : public LibraryTest
{
protected:
    static HRESULT Load(_YesNo* control, IStream* stream)
    {
        ComPtr<IPersistStreamInit> persist;
        Check(control->QueryInterface(IID_PPV_ARGS(&persist)));
        return persist->Load(stream);
    }
    static HRESULT Load(_YesNo* control, const Bytes& bytes)
    {
        return Load(control, MakeCom<TestStream>(bytes).Get());
    }
    static HRESULT Save(_YesNo* control, IStream* stream, bool clearDirty = true)
    {
        ComPtr<IPersistStreamInit> persist;
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
        Apply(Unusual(), control.Get());
        return Saved(control.Get());
    }

    // A control without a site, which has the system's font by default.
    ComPtr<_YesNo> NewControl() const
    {
        ComPtr<_YesNo> control = CreateYesNo();
        ComPtr<IPersistStreamInit> persist;
        Check(control.As(&persist));
        Check(persist->InitNew());
        return control;
    }
};

TEST_F(StreamPersistenceTest, KeepsEverything)
{
    const Bytes bytes = SavedUnusual();
    const SitedControl control;
    EXPECT_EQ(Hr(Load(control.Get(), bytes)), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()), Unusual());
    EXPECT_EQ(Saved(control.Get()), bytes) << "the second save is the first one, byte for byte";
}

TEST_F(StreamPersistenceTest, KeepsTheDefaults)
{
    const ComPtr<_YesNo> first = NewControl();
    const Bytes bytes = Saved(first.Get());
    const ComPtr<_YesNo> second = CreateYesNo();
    EXPECT_EQ(Hr(Load(second.Get(), bytes)), Hr(S_OK));
    EXPECT_EQ(StateOf(second.Get()), StateOf(first.Get()));
    EXPECT_EQ(Saved(second.Get()), bytes);
}

TEST_F(StreamPersistenceTest, HoldsOnlyWhatDiffersFromTheDefaults)
{
    const SitedControl control;
    control.InitNew();
    EXPECT_TRUE(DecodePropertyStream(Saved(control.Get())).Properties.empty());
    EXPECT_HRESULT_SUCCEEDED(control->put_Value(Yes));
    const auto properties = DecodePropertyStream(Saved(control.Get())).Properties;
    ASSERT_EQ(properties.size(), 1U);
    EXPECT_EQ(properties[0], (StoredProperty{"Value", VT_I4, {1, 0, 0, 0}}));
}

TEST_F(StreamPersistenceTest, KeepsTheSize)
{
    const ComPtr<_YesNo> first = NewControl();
    ComPtr<IOleObject> object;
    ASSERT_HRESULT_SUCCEEDED(first.As(&object));
    SIZEL size = {5292, 1323};
    ASSERT_HRESULT_SUCCEEDED(object->SetExtent(DVASPECT_CONTENT, &size));
    const Bytes bytes = Saved(first.Get());
    const ComPtr<_YesNo> second = CreateYesNo();
    ASSERT_EQ(Hr(Load(second.Get(), bytes)), Hr(S_OK));
    SIZEL loaded = {};
    ASSERT_HRESULT_SUCCEEDED(second.As(&object));
    EXPECT_HRESULT_SUCCEEDED(object->GetExtent(DVASPECT_CONTENT, &loaded));
    EXPECT_EQ(loaded.cx, size.cx);
    EXPECT_EQ(loaded.cy, size.cy);
}

// A host may keep several controls in one stream.
TEST_F(StreamPersistenceTest, TakesNoMoreThanItsOwnBytes)
{
    const Bytes one = SavedUnusual();
    const Bytes other = Saved(NewControl().Get());
    Bytes both = {1, 2, 3};
    both.insert(both.end(), one.begin(), one.end());
    both.insert(both.end(), other.begin(), other.end());
    const auto stream = MakeCom<TestStream>(both);
    char front[3] = {};
    ASSERT_HRESULT_SUCCEEDED(stream->Read(front, sizeof front, nullptr));
    const SitedControl first;
    EXPECT_EQ(Hr(Load(first.Get(), stream.Get())), Hr(S_OK));
    EXPECT_EQ(stream->Position(), 3 + one.size());
    EXPECT_EQ(StateOf(first.Get()), Unusual());
    const SitedControl second;
    EXPECT_EQ(Hr(Load(second.Get(), stream.Get())), Hr(S_OK));
    EXPECT_EQ(stream->Position(), both.size());
}

TEST_F(StreamPersistenceTest, TellsItsLargestSize)
{
    const SitedControl control;
    control.InitNew();
    Apply(Unusual(), control.Get());
    ULARGE_INTEGER size = {};
    const HRESULT result = control.Query<IPersistStreamInit>()->GetSizeMax(&size);
    if (result == E_NOTIMPL)
        return;
    EXPECT_EQ(Hr(result), Hr(S_OK));
    EXPECT_GE(size.QuadPart, Saved(control.Get()).size());
}

TEST_F(StreamPersistenceTest, NamesItsClassThroughEveryInterface)
{
    const SitedControl control;
    CLSID clsid = {};
    EXPECT_HRESULT_SUCCEEDED(control.Query<IPersistStreamInit>()->GetClassID(&clsid));
    EXPECT_EQ(GuidText(clsid), GuidText(CLSID_YesNo));
    clsid = {};
    EXPECT_HRESULT_SUCCEEDED(control.Query<IPersistStorage>()->GetClassID(&clsid));
    EXPECT_EQ(GuidText(clsid), GuidText(CLSID_YesNo));
    clsid = {};
    EXPECT_HRESULT_SUCCEEDED(control.Query<IPersistPropertyBag>()->GetClassID(&clsid));
    EXPECT_EQ(GuidText(clsid), GuidText(CLSID_YesNo));
    EXPECT_EQ(Hr(control.Query<IPersistPropertyBag>()->GetClassID(nullptr)), Hr(E_POINTER));
}

TEST_F(StreamPersistenceTest, IsDirtyFromAChangeUntilItIsSaved)
{
    const SitedControl control;
    ASSERT_EQ(Hr(Load(control.Get(), Saved(NewControl().Get()))), Hr(S_OK));
    const auto persist = control.Query<IPersistStreamInit>();
    const auto stream = MakeCom<TestStream>();
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE)) << "just loaded";
    EXPECT_HRESULT_SUCCEEDED(control->put_Value(Neither));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE)) << "the value that it had";
    EXPECT_HRESULT_SUCCEEDED(control->put_Value(Yes));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_OK));
    EXPECT_EQ(Hr(Save(control.Get(), stream.Get(), false)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_OK)) << "saved as a copy";
    EXPECT_EQ(Hr(Save(control.Get(), stream.Get(), true)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE));
}

using Change = HRESULT (*)(_YesNo* control);

TEST_F(StreamPersistenceTest, IsDirtyAfterAChangeOfAnyProperty)
{
    const Change changes[] = {
        [](_YesNo* control) { return control->put_BackColor(1); },
        [](_YesNo* control) { return control->put_ForeColor(1); },
        [](_YesNo* control) { return control->put_Enabled(VARIANT_FALSE); },
        [](_YesNo* control) { return control->putref_Font(MakeFont().Get()); },
        [](_YesNo* control) { return control->put_YesText(Bstr(L"J").Get()); },
        [](_YesNo* control) { return control->put_NoText(Bstr(L"J").Get()); },
        [](_YesNo* control) { return control->put_Text(Variant(L"N").Get()); },
    };
    for (std::size_t i = 0; i < std::size(changes); ++i)
    {
        const SitedControl control;
        ASSERT_EQ(Hr(Load(control.Get(), Saved(NewControl().Get()))), Hr(S_OK));
        EXPECT_HRESULT_SUCCEEDED(changes[i](control.Get()));
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->IsDirty()), Hr(S_OK)) << "change " << i;
    }
}

TEST_F(StreamPersistenceTest, RefusesToWorkWithoutAStream)
{
    const ComPtr<_YesNo> control = CreateYesNo();
    EXPECT_EQ(Hr(Load(control.Get(), static_cast<IStream*>(nullptr))), Hr(E_POINTER));
    EXPECT_EQ(Hr(Save(NewControl().Get(), nullptr)), Hr(E_POINTER));
}

// --- Damage ---

class DamagedStreamTest : public StreamPersistenceTest
{
protected:
    void SetUp() override
    {
        StreamPersistenceTest::SetUp();
        const ComPtr<_YesNo> fresh = NewControl();
        freshState_ = StateOf(fresh.Get());
        freshBytes_ = Saved(fresh.Get());
    }

    // Loads into a new control, and holds it to be wholly as new if that fails. Tells whether it succeeded.
    bool Loads(const Bytes& bytes, const std::string& what) const
    {
        const ComPtr<_YesNo> control = CreateYesNo();
        const HRESULT result = Load(control.Get(), bytes);
        if (SUCCEEDED(result))
        {
            Saved(control.Get());
            return true;
        }
        EXPECT_EQ(StateOf(control.Get()), freshState_) << what;
        EXPECT_EQ(Saved(control.Get()), freshBytes_) << what;
        return false;
    }

    ControlState freshState_;
    Bytes freshBytes_;
};

TEST_F(DamagedStreamTest, CutOffAnywhereIsRefused)
{
    const Bytes whole = SavedUnusual();
    for (std::size_t size = 0; size < whole.size(); ++size)
    {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(Loads(part, "cut off at " + std::to_string(size))) << size;
    }
}

TEST_F(DamagedStreamTest, UnreadableAnywhereIsRefused)
{
    const Bytes whole = SavedUnusual();
    for (std::size_t size = 0; size < whole.size(); size += 7)
    {
        const auto stream = MakeCom<TestStream>(whole);
        stream->FailReadsPast(size);
        const ComPtr<_YesNo> control = CreateYesNo();
        EXPECT_EQ(Hr(Load(control.Get(), stream.Get())), Hr(STG_E_READFAULT)) << size;
        EXPECT_EQ(StateOf(control.Get()), freshState_) << size;
    }
}

TEST_F(DamagedStreamTest, ChangedAnywhereIsRefused)
{
    const Bytes whole = SavedUnusual();
    std::mt19937 random(31);
    for (int round = 0; round < 1500; ++round)
    {
        Bytes bytes = whole;
        for (unsigned i = 0; i <= random() % 3; ++i)
            bytes[random() % bytes.size()] ^= static_cast<std::uint8_t>(1 + random() % 255);
        // Two changes may cancel each other out.
        EXPECT_EQ(Loads(bytes, "round " + std::to_string(round)), bytes == whole) << round;
    }
}

// Behind a checksum that holds, only sense is left to check: loaded or refused, never half of it.
TEST_F(DamagedStreamTest, ChangedBehindTheChecksumIsLoadedOrRefused)
{
    const Bytes whole = SavedUnusual();
    std::mt19937 random(32);
    int loaded = 0;
    for (int round = 0; round < 2500; ++round)
    {
        Bytes bytes = whole;
        for (unsigned i = 0; i <= random() % 4; ++i)
        {
            const std::size_t body = bytes.size() - PropertyStreamHeaderSize;
            bytes[PropertyStreamHeaderSize + random() % body] = static_cast<std::uint8_t>(random());
        }
        ResealPropertyStream(bytes);
        loaded += Loads(bytes, "round " + std::to_string(round)) ? 1 : 0;
    }
    EXPECT_GT(loaded, 0);
    EXPECT_LT(loaded, 2500);
}

// The same on the short part in front of the long text, where the structure is.
TEST_F(DamagedStreamTest, ChangedInItsStructureIsLoadedOrRefused)
{
    ControlState state = Unusual();
    state.NoText = L"n";
    const SitedControl control;
    control.InitNew();
    Apply(state, control.Get());
    const Bytes whole = Saved(control.Get());
    std::mt19937 random(33);
    for (int round = 0; round < 1500; ++round)
    {
        Bytes bytes = whole;
        const std::size_t body = bytes.size() - PropertyStreamHeaderSize;
        bytes[PropertyStreamHeaderSize + random() % body] = static_cast<std::uint8_t>(random());
        ResealPropertyStream(bytes);
        Loads(bytes, "round " + std::to_string(round));
    }
}

struct ForeignProperty
{
    const char* What;
    StoredProperty Property;
    bool Loads;
};

TEST_F(DamagedStreamTest, OfPropertiesThatNobodyWrites)
{
    const ForeignProperty rows[] = {
        {"a property of a later version", {"Caption", VT_BSTR, {'x', 0}}, true},
        {"half a character", {"YesText", VT_BSTR, {'x'}}, false},
        {"a short number", {"Value", VT_I4, {1, 0}}, false},
        {"a long number", {"Value", VT_I4, {1, 0, 0, 0, 0}}, false},
        {"an unknown type", {"Value", 0x7777, {1, 0, 0, 0}}, false},
        {"a pointer", {"Value", VT_BYREF | VT_I4, {1, 0, 0, 0}}, false},
        {"an array", {"Value", VT_ARRAY | VT_I4, {1, 0, 0, 0}}, false},
        {"a variant", {"Value", VT_VARIANT, {1, 0, 0, 0}}, false},
        {"words for a number", {"Value", VT_BSTR, {'x', 0}}, false},
        {"a number for the font", {"Font", VT_I4, {1, 0, 0, 0}}, false},
        {"an object without a class", {"Font", VT_UNKNOWN, {1, 2, 3}}, false},
        {"an object of a foreign class", {"Font", VT_UNKNOWN, Bytes(64, 0x11)}, false},
    };
    for (const ForeignProperty& row : rows)
    {
        PropertyStream stream;
        stream.WidthHimetric = 1000;
        stream.HeightHimetric = 500;
        stream.Properties = {{"Value", VT_I4, {2, 0, 0, 0}}, row.Property};
        EXPECT_EQ(Loads(EncodePropertyStream(stream), row.What), row.Loads) << row.What;
    }
}

TEST_F(DamagedStreamTest, OfImpossibleSizes)
{
    for (const std::int32_t size :
         {0, -1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()})
    {
        PropertyStream stream;
        stream.WidthHimetric = size;
        stream.HeightHimetric = size;
        Loads(EncodePropertyStream(stream), "size " + std::to_string(size));
    }
}

TEST_F(DamagedStreamTest, LeavesAControlThatStillCanBeLoaded)
{
    const ComPtr<_YesNo> control = CreateYesNo();
    EXPECT_TRUE(FAILED(Load(control.Get(), Bytes{1, 2, 3})));
    EXPECT_EQ(Hr(Load(control.Get(), SavedUnusual())), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()).YesText, Unusual().YesText);
}

// --- Media that fail ---

TEST_F(StreamPersistenceTest, TellsWhenTheMediumIsFull)
{
    const std::size_t size = SavedUnusual().size();
    for (std::size_t capacity = 0; capacity < size; capacity += 5)
    {
        const SitedControl control;
        control.InitNew();
        Apply(Unusual(), control.Get());
        const auto stream = MakeCom<TestStream>();
        stream->FailPast(capacity);
        EXPECT_EQ(Hr(Save(control.Get(), stream.Get())), Hr(STG_E_MEDIUMFULL)) << capacity;
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->IsDirty()), Hr(S_OK)) << "still to be saved";
        EXPECT_EQ(StateOf(control.Get()), Unusual()) << capacity;
    }
}

TEST_F(StreamPersistenceTest, TellsWhenNotAllWasWritten)
{
    const std::size_t size = SavedUnusual().size();
    for (std::size_t capacity = 0; capacity < size; capacity += 5)
    {
        const SitedControl control;
        control.InitNew();
        Apply(Unusual(), control.Get());
        const auto stream = MakeCom<TestStream>();
        stream->WriteShortPast(capacity);
        EXPECT_TRUE(FAILED(Save(control.Get(), stream.Get()))) << capacity;
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->IsDirty()), Hr(S_OK)) << "still to be saved";
    }
}

} // namespace

} // namespace kiv::test
