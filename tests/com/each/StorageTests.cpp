// A control in a structured storage, through the states of IPersistStorage.

#include "tests/com/each/PersistedControls.h"

#include "tests/support/MemoryStorage.h"
#include "tests/support/Text.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

class EachStorage : public EachPersisted
{
protected:
    ComPtr<IStorage> UnusualStorage()
    {
        const EasyControl control(ClassId());
        MakeUnusual(control);
        ComPtr<IStorage> storage = MakeMemoryStorage();
        SaveInto(control, storage.Get(), FALSE);
        return storage;
    }
    static void SaveInto(const HeldControl& control, IStorage* storage, BOOL sameAsLoad)
    {
        const auto persist = control.Query<IPersistStorage>();
        EXPECT_EQ(Hr(persist->Save(storage, sameAsLoad)), Hr(S_OK));
        EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
    }
    // That what a storage holds is what a control shows.
    static void ExpectLoads(IStorage* storage, const ControlState& state)
    {
        const EasyControl control(ClassId());
        EXPECT_EQ(Hr(control.Query<IPersistStorage>()->Load(storage)), Hr(S_OK));
        EXPECT_EQ(Hr(control.Query<IPersistStorage>()->IsDirty()), Hr(S_FALSE));
        EXPECT_EQ(StateOf(control.Get()), state);
    }
    // That a load of the storage fails and leaves a control that had been in use as a new one.
    void ExpectRefused(IStorage* storage)
    {
        const EasyControl control(ClassId());
        MakeUnusual(control);
        EXPECT_TRUE(FAILED(control.Query<IPersistStorage>()->Load(storage)));
        EXPECT_EQ(StateOf(control.Get()), NewState());
    }
};

TEST_P(EachStorage, KeepsEverything)
{
    const ComPtr<IStorage> storage = UnusualStorage();
    EXPECT_FALSE(ContentOf(storage.Get()).empty());
    ExpectLoads(storage.Get(), UnusualState());
    const EasyControl control(ClassId());
    EXPECT_EQ(Hr(control.Query<IPersistStorage>()->Load(storage.Get())), Hr(S_OK));
    const ComPtr<IStorage> again = MakeMemoryStorage();
    SaveInto(control, again.Get(), FALSE);
    EXPECT_EQ(ContentOf(again.Get()), ContentOf(storage.Get())) << "the second save is the first one";
}

TEST_P(EachStorage, BeginsWithTheDefaults)
{
    const EasyControl control(ClassId());
    MakeUnusual(control);
    EXPECT_EQ(Hr(control.Query<IPersistStorage>()->InitNew(MakeMemoryStorage().Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()), NewState());
}

// The same storage again: the host's "save", not "save as".
TEST_P(EachStorage, IsOverwritten)
{
    const EasyControl control(ClassId());
    const ComPtr<IStorage> storage = MakeMemoryStorage();
    const auto persist = control.Query<IPersistStorage>();
    ASSERT_EQ(Hr(persist->InitNew(storage.Get())), Hr(S_OK));
    MakeUnusual(control);
    Change(control.Get());
    SaveInto(control, storage.Get(), TRUE);
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE));
    ExpectLoads(storage.Get(), StateOf(control.Get()));

    // Shorter than before: nothing of the longer content may be left at its end.
    control.InitNew();
    Change(control.Get());
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_OK));
    SaveInto(control, storage.Get(), TRUE);
    ExpectLoads(storage.Get(), StateOf(control.Get()));
}

TEST_P(EachStorage, IsLetGoOfWhenTold)
{
    const EasyControl control(ClassId());
    const ComPtr<IStorage> storage = MakeMemoryStorage();
    const ULONG before = References(storage.Get());
    const auto persist = control.Query<IPersistStorage>();
    ASSERT_EQ(Hr(persist->InitNew(storage.Get())), Hr(S_OK));
    EXPECT_EQ(Hr(persist->HandsOffStorage()), Hr(S_OK));
    EXPECT_EQ(References(storage.Get()), before);
    const ComPtr<IStorage> next = MakeMemoryStorage();
    EXPECT_EQ(Hr(persist->SaveCompleted(next.Get())), Hr(S_OK)) << "the host hands over another one";
    Change(control.Get());
    SaveInto(control, next.Get(), TRUE);
    ExpectLoads(next.Get(), StateOf(control.Get()));
}

// Save As: saved to another storage, and told to go on with that one.
TEST_P(EachStorage, GivesWayToTheOneThatIsSavedTo)
{
    const EasyControl control(ClassId());
    const ComPtr<IStorage> first = MakeMemoryStorage();
    const ComPtr<IStorage> second = MakeMemoryStorage();
    const auto persist = control.Query<IPersistStorage>();
    ASSERT_EQ(Hr(persist->InitNew(first.Get())), Hr(S_OK));
    Change(control.Get());
    EXPECT_EQ(Hr(persist->Save(second.Get(), FALSE)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->HandsOffStorage()), Hr(S_OK));
    EXPECT_EQ(Hr(persist->SaveCompleted(second.Get())), Hr(S_OK));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE));
    Change(control.Get());
    SaveInto(control, second.Get(), TRUE);
    ExpectLoads(second.Get(), StateOf(control.Get()));
    EXPECT_TRUE(ContentOf(first.Get()).empty());
}

TEST_P(EachStorage, HasToBeThere)
{
    const EasyControl control(ClassId());
    const auto persist = control.Query<IPersistStorage>();
    EXPECT_EQ(Hr(persist->InitNew(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(persist->Load(nullptr)), Hr(E_POINTER));
    control.InitNew();
    EXPECT_EQ(Hr(persist->Save(nullptr, FALSE)), Hr(E_POINTER));
}

TEST_P(EachStorage, IsRefusedWhenItIsOfSomethingElse)
{
    const ComPtr<IStorage> storage = MakeMemoryStorage();
    ComPtr<IStream> foreign;
    ASSERT_HRESULT_SUCCEEDED(
        storage->CreateStream(L"Foreign", STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, &foreign));
    ASSERT_HRESULT_SUCCEEDED(foreign->Write("abc", 3, nullptr));
    foreign.Reset();
    ExpectRefused(storage.Get());
}

TEST_P(EachStorage, IsRefusedWhenItIsDamaged)
{
    const ComPtr<IStorage> storage = UnusualStorage();
    const auto content = ContentOf(storage.Get());
    ASSERT_EQ(content.size(), 1U);
    ComPtr<IStream> stream;
    ASSERT_HRESULT_SUCCEEDED(storage->OpenStream(content[0].first.c_str(), nullptr,
                                                 STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, &stream));
    ULARGE_INTEGER half = {};
    half.QuadPart = content[0].second.size() / 2;
    ASSERT_HRESULT_SUCCEEDED(stream->SetSize(half));
    stream.Reset();
    ExpectRefused(storage.Get());
}

INSTANTIATE_TEST_SUITE_P(Controls, EachStorage, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
