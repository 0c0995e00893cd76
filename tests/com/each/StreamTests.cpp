// A control in a stream, and on a medium that fails.

#include "tests/com/each/PersistedControls.h"

#include "tests/support/Text.h"

#include "runtime/core/PropertyStream.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

SIZEL ExtentOf(const HeldControl& control)
{
    SIZEL extent = {};
    EXPECT_HRESULT_SUCCEEDED(control.Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
    return extent;
}

class EachStream : public EachPersisted
{
protected:
    // Saves an unusual control that has a change to save, onto a medium that fails.
    void ExpectUnsaved(TestStream* stream, std::optional<HRESULT> result)
    {
        const EasyControl control(ClassId());
        MakeUnusual(control);
        Change(control.Get());
        const ControlState state = StateOf(control.Get());
        const HRESULT saved = Save(control.Get(), stream);
        EXPECT_TRUE(FAILED(saved));
        if (result)
        {
            EXPECT_EQ(Hr(saved), Hr(*result));
        }
        EXPECT_TRUE(IsDirty(control.Get())) << "still to be saved";
        EXPECT_EQ(StateOf(control.Get()), state);
    }
};

TEST_P(EachStream, KeepsEverything)
{
    const Bytes bytes = UnusualBytes();
    const EasyControl control(ClassId());
    EXPECT_EQ(Hr(Load(control.Get(), bytes)), Hr(S_OK));
    EXPECT_FALSE(IsDirty(control.Get()));
    EXPECT_EQ(StateOf(control.Get()), UnusualState());
    EXPECT_EQ(SavedBytes(control), bytes) << "the second save is the first one, byte for byte";
}

TEST_P(EachStream, KeepsTheDefaults)
{
    const EasyControl first(ClassId());
    first.InitNew();
    const Bytes bytes = SavedBytes(first);
    const EasyControl second(ClassId());
    MakeUnusual(second);
    EXPECT_EQ(Hr(Load(second.Get(), bytes)), Hr(S_OK));
    EXPECT_EQ(StateOf(second.Get()), NewState());
    EXPECT_EQ(SavedBytes(second), bytes);
}

TEST_P(EachStream, HoldsOnlyWhatDiffersFromTheDefaults)
{
    const EasyControl fresh(ClassId());
    fresh.InitNew();
    EXPECT_TRUE(DecodePropertyStream(SavedBytes(fresh)).Properties.empty());
    Names stored;
    for (const StoredProperty& each : DecodePropertyStream(UnusualBytes()).Properties)
        stored.push_back(Widen(each.Name));
    EXPECT_EQ(stored, KeysAsWritten());
}

TEST_P(EachStream, KeepsTheSize)
{
    const EasyControl first(ClassId());
    first.InitNew();
    const SIZEL before = ExtentOf(first);
    SIZEL size = {5292, 1323};
    ASSERT_HRESULT_SUCCEEDED(first.Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size));
    const SIZEL given = ExtentOf(first);
    EXPECT_NE(given.cx, before.cx);
    const EasyControl second(ClassId());
    ASSERT_EQ(Hr(Load(second.Get(), SavedBytes(first))), Hr(S_OK));
    EXPECT_EQ(ExtentOf(second).cx, given.cx);
    EXPECT_EQ(ExtentOf(second).cy, given.cy);
}

// A host may keep several controls in one stream.
TEST_P(EachStream, GivesUpNoMoreThanTheControlsBytes)
{
    const Bytes one = UnusualBytes();
    const EasyControl fresh(ClassId());
    fresh.InitNew();
    const Bytes other = SavedBytes(fresh);
    Bytes both = {1, 2, 3};
    both.insert(both.end(), one.begin(), one.end());
    both.insert(both.end(), other.begin(), other.end());
    const auto stream = MakeCom<TestStream>(both);
    char front[3] = {};
    ASSERT_HRESULT_SUCCEEDED(stream->Read(front, sizeof front, nullptr));
    const EasyControl first(ClassId());
    EXPECT_EQ(Hr(Load(first.Get(), stream.Get())), Hr(S_OK));
    EXPECT_EQ(stream->Position(), 3 + one.size());
    EXPECT_EQ(StateOf(first.Get()), UnusualState());
    const EasyControl second(ClassId());
    EXPECT_EQ(Hr(Load(second.Get(), stream.Get())), Hr(S_OK));
    EXPECT_EQ(stream->Position(), both.size());
    EXPECT_EQ(StateOf(second.Get()), NewState());
}

TEST_P(EachStream, IsNoLongerThanTold)
{
    const EasyControl control(ClassId());
    MakeUnusual(control);
    ULARGE_INTEGER size = {};
    const HRESULT result = control.Query<IPersistStreamInit>()->GetSizeMax(&size);
    if (result == E_NOTIMPL)
        return;
    EXPECT_EQ(Hr(result), Hr(S_OK));
    EXPECT_GE(size.QuadPart, SavedBytes(control).size());
}

TEST_P(EachStream, IsOfTheControlsClassAsABagAndAStorageAre)
{
    const EasyControl control(ClassId());
    const ComPtr<IPersist> all[] = {control.Query<IPersistStreamInit>(), control.Query<IPersistStorage>(),
                                    control.Query<IPersistPropertyBag>()};
    for (const ComPtr<IPersist>& each : all)
    {
        CLSID clsid = {};
        EXPECT_HRESULT_SUCCEEDED(each->GetClassID(&clsid));
        EXPECT_EQ(GuidText(clsid), GuidText(ClassId()));
        EXPECT_EQ(Hr(each->GetClassID(nullptr)), Hr(E_POINTER));
    }
}

TEST_P(EachStream, IsWantedFromAChangeUntilASave)
{
    const EasyControl control(ClassId());
    ASSERT_EQ(Hr(Load(control.Get(), UnusualBytes())), Hr(S_OK));
    EXPECT_FALSE(IsDirty(control.Get())) << "just loaded";
    Change(control.Get());
    EXPECT_TRUE(IsDirty(control.Get()));
    const auto stream = MakeCom<TestStream>();
    EXPECT_EQ(Hr(Save(control.Get(), stream.Get(), false)), Hr(S_OK));
    EXPECT_TRUE(IsDirty(control.Get())) << "saved as a copy";
    EXPECT_EQ(Hr(Save(control.Get(), stream.Get(), true)), Hr(S_OK));
    EXPECT_FALSE(IsDirty(control.Get()));
}

TEST_P(EachStream, HasToBeThere)
{
    const EasyControl control(ClassId());
    IStream* const none = nullptr;
    EXPECT_EQ(Hr(Load(control.Get(), none)), Hr(E_POINTER));
    control.InitNew();
    EXPECT_EQ(Hr(Save(control.Get(), none)), Hr(E_POINTER));
}

TEST_P(EachStream, FailsTheSaveWhenTheMediumIsFull)
{
    const std::size_t size = UnusualBytes().size();
    for (std::size_t capacity = 0; capacity < size; capacity += 11)
    {
        SCOPED_TRACE(capacity);
        const auto stream = MakeCom<TestStream>();
        stream->FailPast(capacity);
        ExpectUnsaved(stream.Get(), STG_E_MEDIUMFULL);
    }
}

TEST_P(EachStream, FailsTheSaveWhenNotAllIsWritten)
{
    const std::size_t size = UnusualBytes().size();
    for (std::size_t capacity = 0; capacity < size; capacity += 11)
    {
        SCOPED_TRACE(capacity);
        const auto stream = MakeCom<TestStream>();
        stream->WriteShortPast(capacity);
        ExpectUnsaved(stream.Get(), std::nullopt);
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, EachStream, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
