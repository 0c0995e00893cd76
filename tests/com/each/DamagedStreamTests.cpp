// Streams that are cut off, changed or made up: loaded or refused, and never half of it.

#include "tests/com/each/PersistedControls.h"

#include "tests/support/Text.h"

#include "runtime/core/PropertyStream.h"

#include <olectl.h>

#include <cstring>
#include <limits>
#include <random>

namespace kiv::test
{

namespace
{

// Rounds of random damage for each class.
constexpr int Rounds = 150;

// Whether a stream holds a font of thousands of points: Wine's own drawing of one that is slanted as well
// ends the process.
bool HoldsGiantFont(const Bytes& bytes)
{
    // In a saved font: behind its class, a version, a character set, a style and a weight.
    constexpr std::size_t SizePlace = sizeof(CLSID) + 1 + 2 + 1 + 2;
    constexpr std::uint32_t Giant = 2000 * 10000;
    try
    {
        for (const StoredProperty& each : DecodePropertyStream(bytes).Properties)
        {
            std::uint32_t size = 0;
            if (each.Name != "Font" || each.Value.size() < SizePlace + sizeof size)
                continue;
            std::memcpy(&size, each.Value.data() + SizePlace, sizeof size);
            return size > Giant;
        }
    }
    catch (const DamagedStream&)
    {
    }
    return false;
}

class EachDamagedStream : public EachPersisted
{
protected:
    void SetUp() override
    {
        EachPersisted::SetUp();
        const EasyControl fresh(ClassId());
        fresh.InitNew();
        newBytes_ = SavedBytes(fresh);
    }

    // Loads into a control that has been in use, and holds it to be wholly as new if that fails. Tells
    // whether it succeeded.
    bool Loads(const HeldControl& control, const Bytes& bytes)
    {
        EXPECT_EQ(Hr(Load(control.Get(), UnusualBytes())), Hr(S_OK));
        if (SUCCEEDED(Load(control.Get(), bytes)))
        {
            SavedBytes(control);
            return true;
        }
        EXPECT_EQ(StateOf(control.Get()), NewState());
        EXPECT_EQ(SavedBytes(control), newBytes_);
        return false;
    }
    // How many of so many streams with random bytes in their bodies are loaded, their checksums being right.
    int LoadedOf(const Bytes& whole, int rounds, unsigned mostChanges)
    {
        const EasyControl control(ClassId());
        std::mt19937 random(32);
        int loaded = 0;
        for (int round = 0; round < rounds; ++round)
        {
            SCOPED_TRACE(round);
            Bytes bytes = whole;
            const std::size_t body = bytes.size() - PropertyStreamHeaderSize;
            for (unsigned i = 0; i <= random() % mostChanges; ++i)
                bytes[PropertyStreamHeaderSize + random() % body] = static_cast<std::uint8_t>(random());
            ResealPropertyStream(bytes);
            if (HoldsGiantFont(bytes))
                continue;
            loaded += Loads(control, bytes) ? 1 : 0;
        }
        return loaded;
    }

private:
    Bytes newBytes_;
};

TEST_P(EachDamagedStream, CutOffAnywhereIsRefused)
{
    const EasyControl control(ClassId());
    const Bytes whole = UnusualBytes();
    for (std::size_t size = 0; size < whole.size(); ++size)
    {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(Loads(control, part)) << "cut off at " << size;
    }
    EXPECT_TRUE(Loads(control, whole)) << "and still can be loaded";
    EXPECT_EQ(StateOf(control.Get()), UnusualState());
}

TEST_P(EachDamagedStream, UnreadableAnywhereIsRefused)
{
    const EasyControl control(ClassId());
    const Bytes whole = UnusualBytes();
    for (std::size_t size = 0; size < whole.size(); size += 7)
    {
        MakeUnusual(control);
        const auto stream = MakeCom<TestStream>(whole);
        stream->FailReadsPast(size);
        EXPECT_EQ(Hr(Load(control.Get(), stream.Get())), Hr(STG_E_READFAULT)) << size;
        EXPECT_EQ(StateOf(control.Get()), NewState()) << size;
    }
}

TEST_P(EachDamagedStream, ChangedAnywhereIsRefused)
{
    const EasyControl control(ClassId());
    const Bytes whole = UnusualBytes();
    std::mt19937 random(31);
    for (int round = 0; round < Rounds; ++round)
    {
        Bytes bytes = whole;
        for (unsigned i = 0; i <= random() % 3; ++i)
            bytes[random() % bytes.size()] ^= static_cast<std::uint8_t>(1 + random() % 255);
        // Two changes may cancel each other out.
        EXPECT_EQ(Loads(control, bytes), bytes == whole) << round;
    }
}

// Behind a checksum that holds, only sense is left to check: loaded or refused, never half of it.
TEST_P(EachDamagedStream, ChangedBehindTheChecksumIsLoadedOrRefused)
{
    const int loaded = LoadedOf(UnusualBytes(), Rounds, 5);
    EXPECT_GT(loaded, 0);
    EXPECT_LT(loaded, Rounds);
}

// The same where there is little but structure.
TEST_P(EachDamagedStream, ChangedInItsStructureIsLoadedOrRefused)
{
    const EasyControl control(ClassId());
    control.InitNew();
    Change(control.Get());
    const int loaded = LoadedOf(SavedBytes(control), Rounds, 1);
    EXPECT_GT(loaded, 0);
    EXPECT_LT(loaded, Rounds);
}

struct ForeignValue
{
    const char* What;
    std::uint16_t Type;
    Bytes Value;
};

// Values that no control writes under a key of the type.
std::vector<ForeignValue> ForeignValues(const ControlProperty& property)
{
    std::vector<ForeignValue> values = {
        {"an unknown type", 0x7777, {1, 0, 0, 0}},    {"a pointer", VT_BYREF | VT_I4, {1, 0, 0, 0}},
        {"an array", VT_ARRAY | VT_I4, {1, 0, 0, 0}}, {"a variant", VT_VARIANT, {1, 0, 0, 0}},
        {"half a character", VT_BSTR, {'x'}},         {"a short number", VT_I4, {1, 0}},
        {"a long number", VT_I4, {1, 0, 0, 0, 0}}};
    if (property.Type == VT_DISPATCH)
    {
        values.push_back({"a number for an object", VT_I4, {1, 0, 0, 0}});
        values.push_back({"an object without a class", VT_UNKNOWN, {1, 2, 3}});
        values.push_back({"an object of a foreign class", VT_UNKNOWN, Bytes(64, 0x11)});
    }
    else if (property.Type != VT_BSTR)
        values.push_back({"words for a number", VT_BSTR, {'x', 0}});
    return values;
}

TEST_P(EachDamagedStream, OfValuesThatNobodyWritesIsRefused)
{
    const EasyControl control(ClassId());
    PropertyStream stream;
    stream.WidthHimetric = 1000;
    stream.HeightHimetric = 500;
    for (const PersistedKey& key : Keys())
    {
        if (key.Depends)
            continue;
        for (const ForeignValue& each : ForeignValues(PropertyOf(control.Get(), key.Name)))
        {
            stream.Properties = {{Narrow(key.Name), each.Type, each.Value}};
            EXPECT_FALSE(Loads(control, EncodePropertyStream(stream)))
                << Narrow(key.Name) << " as " << each.What;
        }
    }
    stream.Properties = {{"Unheard", VT_BSTR, {'x', 0}}};
    EXPECT_TRUE(Loads(control, EncodePropertyStream(stream))) << "a property of a later version";
}

TEST_P(EachDamagedStream, OfImpossibleSizesLeavesAPossibleOne)
{
    for (const std::int32_t size :
         {0, -1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()})
    {
        PropertyStream stream;
        stream.WidthHimetric = size;
        stream.HeightHimetric = size;
        const EasyControl control(ClassId());
        static_cast<void>(Load(control.Get(), EncodePropertyStream(stream)));
        SIZEL extent = {};
        EXPECT_HRESULT_SUCCEEDED(control.Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
        EXPECT_GE(extent.cx, 0) << size;
        EXPECT_GE(extent.cy, 0) << size;
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, EachDamagedStream, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
