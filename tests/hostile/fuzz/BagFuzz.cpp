// Property bags that answer with whatever automation has.

#include "tests/hostile/HostObjects.h"
#include "tests/hostile/fuzz/Attack.h"
#include "tests/hostile/fuzz/AttackTest.h"
#include "tests/hostile/fuzz/Exercise.h"
#include "tests/hostile/fuzz/OddValues.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/Text.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// Answers like a good bag, but for a few of its answers.
class OddBag final : public ComObject<IPropertyBag>
{
public:
    OddBag(const TestPropertyBag& good, OddValues& values, Random& random) :
        good_(good), values_(values), random_(random), oddness_(1 + random.Below(12))
    {
    }

    std::string Told() const { return told_; }

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override
    {
        if (!random_.OneIn(oddness_))
        {
            const Variant good = good_.Find(name);
            return good.Type() == VT_EMPTY ? E_INVALIDARG : VariantCopy(value, good.Borrow());
        }
        const VARIANT odd = values_.Any(random_);
        told_ += " " + Narrow(name) + " = " + OddValues::Show(odd) + ";";
        switch (random_.Below(8))
        {
        case 0:
            return E_FAIL;
        case 1:
            return S_FALSE; // and nothing given
        case 2:
            // As a reference, which a bag is not to answer, but to what stays.
            *value = odd;
            return (V_VT(&odd) & VT_BYREF) != 0 ? S_OK : Copy(value, odd);
        default:
            return Copy(value, odd);
        }
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) noexcept override
    {
        return random_.OneIn(oddness_) ? E_FAIL : S_OK;
    }

private:
    static HRESULT Copy(VARIANT* value, VARIANT odd)
    {
        VARIANT copy = {};
        if (FAILED(VariantCopyInd(&copy, &odd)))
            return E_FAIL;
        *value = copy;
        return S_OK;
    }

    const TestPropertyBag& good_;
    OddValues& values_;
    Random& random_;
    const std::size_t oddness_;
    std::string told_;
};

class BagFuzzer : public Fuzzer
{
public:
    void Begin(Host& host) override
    {
        good_ = MakeCom<TestPropertyBag>();
        host.Control<IPersistPropertyBag>()->Save(good_.Get(), FALSE, TRUE);
    }
    void End(Host&) override
    {
        good_.Reset();
        values_.Clear();
    }

    std::string Try(Host& host, Random& random, const Tell& tell) override
    {
        values_.Clear();
        tell("a bag");
        const auto control = host.Control<IPersistPropertyBag>();
        const auto bag = MakeCom<OddBag>(*good_.Get(), values_, random);
        const HRESULT loaded = control->Load(bag.Get(), random.OneIn(2) ? host.Objects().Log.Get() : nullptr);
        tell("a bag that answered" + bag->Told());
        if (random.OneIn(2))
            ReadEveryProperty(host);
        if (random.OneIn(4))
            DrawOnce(host);
        control->Save(bag.Get(), random.OneIn(2), random.OneIn(2));
        const std::vector<std::uint8_t> saved = SavedBytes(host);
        if (saved.empty())
            return " it can not be saved after a load (" + Hr(loaded) + ") from a bag with" + bag->Told();
        if (!random.OneIn(8))
            return "";
        if (const HRESULT again = LoadBytes(host, saved); FAILED(again))
            return " it does not load what it saved: " + Hr(again) + " after a bag with" + bag->Told();
        const HRESULT good = control->Load(good_.Get(), nullptr);
        return SUCCEEDED(good) ? "" : " it does not load any longer: " + Hr(good) + " after" + bag->Told();
    }

private:
    ComPtr<TestPropertyBag> good_;
    OddValues values_;
};

using FuzzBags = AttackTest;

TEST_F(FuzzBags, LeaveTheControlWhole)
{
    BagFuzzer fuzzer;
    RunAttack("FuzzBags", fuzzer);
}

} // namespace

} // namespace kiv::test
