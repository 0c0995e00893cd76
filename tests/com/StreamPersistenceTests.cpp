// A control in a stream, and on a medium that fails.

#include "tests/com/StreamPersistenceTest.h"

#include "runtime/core/PropertyStream.h"

#include <iterator>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

TEST_F(StreamPersistenceTest, KeepsEverything)
{
    const Bytes bytes = SavedUnusual();
    const SitedControl control;
    EXPECT_EQ(Hr(Load(control.Get(), bytes)), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()), UnusualState());
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
    EXPECT_EQ(StateOf(first.Get()), UnusualState());
    const SitedControl second;
    EXPECT_EQ(Hr(Load(second.Get(), stream.Get())), Hr(S_OK));
    EXPECT_EQ(stream->Position(), both.size());
}

TEST_F(StreamPersistenceTest, TellsItsLargestSize)
{
    const SitedControl control;
    control.InitNew();
    Apply(UnusualState(), control.Get());
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

TEST_F(StreamPersistenceTest, TellsWhenTheMediumIsFull)
{
    const std::size_t size = SavedUnusual().size();
    for (std::size_t capacity = 0; capacity < size; capacity += 5)
    {
        const SitedControl control;
        control.InitNew();
        Apply(UnusualState(), control.Get());
        const auto stream = MakeCom<TestStream>();
        stream->FailPast(capacity);
        EXPECT_EQ(Hr(Save(control.Get(), stream.Get())), Hr(STG_E_MEDIUMFULL)) << capacity;
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->IsDirty()), Hr(S_OK)) << "still to be saved";
        EXPECT_EQ(StateOf(control.Get()), UnusualState()) << capacity;
    }
}

TEST_F(StreamPersistenceTest, TellsWhenNotAllWasWritten)
{
    const std::size_t size = SavedUnusual().size();
    for (std::size_t capacity = 0; capacity < size; capacity += 5)
    {
        const SitedControl control;
        control.InitNew();
        Apply(UnusualState(), control.Get());
        const auto stream = MakeCom<TestStream>();
        stream->WriteShortPast(capacity);
        EXPECT_TRUE(FAILED(Save(control.Get(), stream.Get()))) << capacity;
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->IsDirty()), Hr(S_OK)) << "still to be saved";
    }
}

} // namespace

} // namespace kiv::test
