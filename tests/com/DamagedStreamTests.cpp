// Streams that are cut off, changed or made up: loaded or refused, and never half of it.

#include "tests/com/StreamPersistenceTest.h"

#include "runtime/core/PropertyStream.h"

#include <limits>
#include <random>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

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

    // Loads into a control that has been in use, and holds it to be wholly as new if that fails. Tells
    // whether it succeeded.
    bool Loads(const Bytes& bytes, const std::string& what) const
    {
        const ComPtr<_YesNo> control = NewControl();
        EXPECT_HRESULT_SUCCEEDED(control->put_YesText(Bstr(L"used").Get()));
        EXPECT_HRESULT_SUCCEEDED(control->put_BackColor(1));
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
    ControlState state = UnusualState();
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

TEST_F(DamagedStreamTest, LeavesAControlThatStillCanBeLoaded)
{
    const ComPtr<_YesNo> control = CreateYesNo();
    EXPECT_TRUE(FAILED(Load(control.Get(), Bytes{1, 2, 3})));
    EXPECT_EQ(Hr(Load(control.Get(), SavedUnusual())), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()).YesText, UnusualState().YesText);
}

TEST_F(DamagedStreamTest, OfImpossibleSizes)
{
    for (const std::int32_t size :
         {0, -1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()})
    {
        PropertyStream stream;
        stream.WidthHimetric = size;
        stream.HeightHimetric = size;
        const ComPtr<_YesNo> control = CreateYesNo();
        static_cast<void>(Load(control.Get(), EncodePropertyStream(stream)));
        ComPtr<IOleObject> object;
        SIZEL extent = {};
        ASSERT_HRESULT_SUCCEEDED(control.As(&object));
        EXPECT_HRESULT_SUCCEEDED(object->GetExtent(DVASPECT_CONTENT, &extent));
        EXPECT_GE(extent.cx, 0) << size;
        EXPECT_GE(extent.cy, 0) << size;
    }
}

} // namespace

} // namespace kiv::test
