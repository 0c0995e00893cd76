// Saved controls that came to harm, in the streams and storages that hosts keep them in.

#include "tests/hostile/fuzz/Attack.h"
#include "tests/hostile/fuzz/AttackTest.h"
#include "tests/hostile/fuzz/Exercise.h"
#include "tests/hostile/fuzz/OddStorage.h"
#include "tests/hostile/fuzz/SavedStates.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include <optional>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// A control that loads from something is whole afterwards, whatever that was: it can be read, drawn and
// saved. Now and then it also loads what it saved, and is what it was once it has loaded what it was.
std::string ExpectWhole(Host& host, Random& random, HRESULT loaded, const SavedStates& states)
{
    if (random.OneIn(2))
        ReadEveryProperty(host);
    if (random.OneIn(4))
        DrawOnce(host);
    const std::vector<std::uint8_t> saved = SavedBytes(host);
    if (saved.empty())
        return " it can not be saved after a load (" + Hr(loaded) + ");";
    if (!random.OneIn(8))
        return "";
    if (const HRESULT again = LoadBytes(host, saved); FAILED(again))
        return " it does not load what it saved: " + Hr(again) + ";";
    if (const HRESULT good = LoadBytes(host, states.Good()); FAILED(good))
        return " it does not load any longer: " + Hr(good) + ";";
    return SavedBytes(host) == states.Good() ? "" : " it is not what it was;";
}

class StreamFuzzer : public Fuzzer
{
public:
    void Begin(Host& host) override { states_.emplace(host); }
    void End(Host&) override { states_.reset(); }

    std::string Try(Host& host, Random& random, const Tell& tell) override
    {
        const SavedStates::Damaged damaged = states_->Damage(random);
        const auto stream = MakeCom<TestStream>(damaged.Bytes);
        const bool fails = random.OneIn(8);
        if (fails)
            stream->FailReadsPast(random.Below(damaged.Bytes.size() + 1));
        tell("a stream, " + damaged.What + (fails ? ", that fails: " : ": ") + Hex(damaged.Bytes));
        const HRESULT loaded = host.Control<IPersistStreamInit>()->Load(stream.Get());
        if (random.OneIn(8))
            SaveShort(host, random);
        return ExpectWhole(host, random, loaded, *states_);
    }

private:
    // To a stream without the room for it.
    static void SaveShort(Host& host, Random& random)
    {
        const auto stream = MakeCom<TestStream>();
        const std::size_t room = random.Below(500);
        if (random.OneIn(2))
            stream->FailPast(room);
        else
            stream->WriteShortPast(room);
        host.Control<IPersistStreamInit>()->Save(stream.Get(), random.OneIn(2));
    }

    std::optional<SavedStates> states_;
};

class StorageFuzzer : public Fuzzer
{
public:
    void Begin(Host& host) override { states_.emplace(host); }
    void End(Host&) override { states_.reset(); }

    std::string Try(Host& host, Random& random, const Tell& tell) override
    {
        const auto control = host.Control<IPersistStorage>();
        const SavedStates::Damaged damaged = states_->Damage(random);
        const OddStorageManners manners = AnyManners(random);
        const ComPtr<IStorage> storage = MakeOddStorage(damaged.Bytes, manners);
        tell("a storage, " + manners.Describe() + ", with a stream, " + damaged.What + ": " +
             Hex(damaged.Bytes));
        HRESULT loaded = S_OK;
        for (std::size_t steps = 1 + random.Below(4); steps > 0; --steps)
        {
            switch (random.Below(7))
            {
            case 0:
                control->Save(storage.Get(), random.OneIn(2));
                break;
            case 1:
                control->SaveCompleted(random.OneIn(2) ? storage.Get() : nullptr);
                break;
            case 2:
                control->HandsOffStorage();
                break;
            case 3:
                control->InitNew(storage.Get());
                break;
            case 4:
                control->IsDirty();
                break;
            default:
                loaded = control->Load(storage.Get());
                break;
            }
        }
        return ExpectWhole(host, random, loaded, *states_);
    }

private:
    std::optional<SavedStates> states_;
};

using FuzzStreams = AttackTest;
using FuzzStorages = AttackTest;

TEST_F(FuzzStreams, LeaveTheControlWhole)
{
    StreamFuzzer fuzzer;
    RunAttack("FuzzStreams", fuzzer);
}

TEST_F(FuzzStorages, LeaveTheControlWhole)
{
    StorageFuzzer fuzzer;
    RunAttack("FuzzStorages", fuzzer);
}

} // namespace

} // namespace kiv::test
