// A control in a structured storage, through the states of IPersistStorage.

#include "tests/com/ControlState.h"
#include "tests/com/SitedControl.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MemoryStorage.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

ControlState Unusual()
{
    ControlState state;
    state.BackColor = 0x00000001;
    state.Enabled = false;
    state.Font.Underline = true;
    state.YesText = L"oui";
    state.NoText = L"non";
    state.Value = 1;
    return state;
}

class StoragePersistenceTest : public LibraryTest
{
protected:
    static ComPtr<IStorage> SavedUnusual()
    {
        const SitedControl control;
        control.InitNew();
        Apply(Unusual(), control.Get());
        ComPtr<IStorage> storage = MakeMemoryStorage();
        const auto persist = control.Query<IPersistStorage>();
        EXPECT_EQ(Hr(persist->Save(storage.Get(), FALSE)), Hr(S_OK));
        EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
        return storage;
    }
};

TEST_F(StoragePersistenceTest, KeepsEverything)
{
    const ComPtr<IStorage> storage = SavedUnusual();
    const SitedControl control;
    const auto persist = control.Query<IPersistStorage>();
    EXPECT_EQ(Hr(persist->Load(storage.Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()), Unusual());
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE));

    const ComPtr<IStorage> again = MakeMemoryStorage();
    EXPECT_EQ(Hr(persist->Save(again.Get(), FALSE)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
    EXPECT_FALSE(ContentOf(storage.Get()).empty());
    EXPECT_EQ(ContentOf(again.Get()), ContentOf(storage.Get())) << "the second save is the first one";
}

TEST_F(StoragePersistenceTest, BeginsWithTheDefaults)
{
    const SitedControl control;
    const ComPtr<IStorage> storage = MakeMemoryStorage();
    EXPECT_EQ(Hr(control.Query<IPersistStorage>()->InitNew(storage.Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()), ControlState());
}

// The same storage again: the host's "save", not "save as".
TEST_F(StoragePersistenceTest, OverwritesWhatItHadWritten)
{
    const SitedControl control;
    const ComPtr<IStorage> storage = MakeMemoryStorage();
    const auto persist = control.Query<IPersistStorage>();
    ASSERT_EQ(Hr(persist->InitNew(storage.Get())), Hr(S_OK));
    Apply(Unusual(), control.Get());
    EXPECT_EQ(Hr(persist->Save(storage.Get(), TRUE)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE));

    // Shorter than before: nothing of the longer content may be left at its end.
    EXPECT_HRESULT_SUCCEEDED(control->put_YesText(Bstr(L"Y").Get()));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_OK));
    EXPECT_EQ(Hr(persist->Save(storage.Get(), TRUE)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
    const SitedControl second;
    EXPECT_EQ(Hr(second.Query<IPersistStorage>()->Load(storage.Get())), Hr(S_OK));
    ControlState expected = Unusual();
    expected.YesText = L"Y";
    EXPECT_EQ(StateOf(second.Get()), expected);
}

TEST_F(StoragePersistenceTest, LetsGoOfItsStorageWhenTold)
{
    const SitedControl control;
    ComPtr<IStorage> storage = MakeMemoryStorage();
    const ULONG before = References(storage.Get());
    const auto persist = control.Query<IPersistStorage>();
    ASSERT_EQ(Hr(persist->InitNew(storage.Get())), Hr(S_OK));
    EXPECT_EQ(Hr(persist->HandsOffStorage()), Hr(S_OK));
    EXPECT_EQ(References(storage.Get()), before);
    const ComPtr<IStorage> next = MakeMemoryStorage();
    EXPECT_EQ(Hr(persist->SaveCompleted(next.Get())), Hr(S_OK)) << "the host hands over another one";
    Apply(Unusual(), control.Get());
    EXPECT_EQ(Hr(persist->Save(next.Get(), TRUE)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
    EXPECT_FALSE(ContentOf(next.Get()).empty());
}

// Save As: saved to another storage, and told to go on with that one.
TEST_F(StoragePersistenceTest, GoesOnWithTheStorageThatItWasSavedTo)
{
    const SitedControl control;
    const ComPtr<IStorage> first = MakeMemoryStorage();
    const ComPtr<IStorage> second = MakeMemoryStorage();
    const auto persist = control.Query<IPersistStorage>();
    ASSERT_EQ(Hr(persist->InitNew(first.Get())), Hr(S_OK));
    Apply(Unusual(), control.Get());
    EXPECT_EQ(Hr(persist->Save(second.Get(), FALSE)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->HandsOffStorage()), Hr(S_OK));
    EXPECT_EQ(Hr(persist->SaveCompleted(second.Get())), Hr(S_OK));
    EXPECT_EQ(Hr(persist->IsDirty()), Hr(S_FALSE));
    EXPECT_HRESULT_SUCCEEDED(control->put_Value(No));
    EXPECT_EQ(Hr(persist->Save(second.Get(), TRUE)), Hr(S_OK));
    EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
    const SitedControl loaded;
    EXPECT_EQ(Hr(loaded.Query<IPersistStorage>()->Load(second.Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(loaded.Get()).Value, 2);
    EXPECT_TRUE(ContentOf(first.Get()).empty());
}

TEST_F(StoragePersistenceTest, RefusesToWorkWithoutAStorage)
{
    const SitedControl control;
    const auto persist = control.Query<IPersistStorage>();
    EXPECT_EQ(Hr(persist->InitNew(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(persist->Load(nullptr)), Hr(E_POINTER));
    control.InitNew();
    EXPECT_EQ(Hr(persist->Save(nullptr, FALSE)), Hr(E_POINTER));
}

TEST_F(StoragePersistenceTest, RefusesAStorageOfSomethingElse)
{
    const ComPtr<IStorage> storage = MakeMemoryStorage();
    ComPtr<IStream> foreign;
    ASSERT_HRESULT_SUCCEEDED(
        storage->CreateStream(L"Foreign", STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, &foreign));
    ASSERT_HRESULT_SUCCEEDED(foreign->Write("abc", 3, nullptr));
    foreign.Reset();
    const SitedControl control;
    EXPECT_TRUE(FAILED(control.Query<IPersistStorage>()->Load(storage.Get())));
    EXPECT_EQ(StateOf(control.Get()), ControlState());
}

TEST_F(StoragePersistenceTest, RefusesADamagedStorage)
{
    const ComPtr<IStorage> storage = SavedUnusual();
    const auto content = ContentOf(storage.Get());
    ASSERT_EQ(content.size(), 1U);
    ComPtr<IStream> stream;
    ASSERT_HRESULT_SUCCEEDED(storage->OpenStream(content[0].first.c_str(), nullptr,
                                                 STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, &stream));
    ULARGE_INTEGER half = {};
    half.QuadPart = content[0].second.size() / 2;
    ASSERT_HRESULT_SUCCEEDED(stream->SetSize(half));
    stream.Reset();
    const SitedControl control;
    EXPECT_TRUE(FAILED(control.Query<IPersistStorage>()->Load(storage.Get())));
    EXPECT_EQ(StateOf(control.Get()), ControlState());
}

} // namespace

} // namespace kiv::test
