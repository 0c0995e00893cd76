// Values of the wrong type in a form file: coerced where they can be, else reported and replaced by the
// default.

#include "tests/com/BagPersistenceTest.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <ole2.h>

#include <limits>
#include <optional>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct OddValue
{
    const char* What;
    Variant Value;
};

Variant Array()
{
    VARIANT array = {};
    V_VT(&array) = VT_ARRAY | VT_I4;
    V_ARRAY(&array) = SafeArrayCreateVector(VT_I4, 0, 2);
    const Variant copy(array);
    VariantClear(&array);
    return copy;
}

Variant Of(VARTYPE type, double number)
{
    Variant converted;
    Check(VariantChangeType(converted.Receive(), Variant(number).Borrow(), 0, type));
    return converted;
}

std::vector<OddValue> OddValues()
{
    Variant notANumber(0.0);
    V_R8(notANumber.Borrow()) = std::numeric_limits<double>::quiet_NaN();
    return {
        {"Null", Variant::Null()},
        {"an error", Missing()},
        {"short", Of(VT_I2, 1)},
        {"long", Variant(2L)},
        {"hyper", Of(VT_I8, 5000000000)},
        {"byte", Of(VT_UI1, 1)},
        {"single", Of(VT_R4, 1.5)},
        {"double", Variant(2.5)},
        {"large double", Variant(1e300)},
        {"not a number", notANumber},
        {"currency", Of(VT_CY, 1.5)},
        {"date", Of(VT_DATE, 2)},
        {"decimal", Of(VT_DECIMAL, 3)},
        {"True", Variant(true)},
        {"words", Variant(L"words")},
        {"number as text", Variant(L"7")},
        {"truth as text", Variant(L"True")},
        {"empty text", Variant(L"")},
        {"an array", Array()},
        {"a font", Variant(static_cast<IDispatch*>(MakeFont().Get()))},
        {"nothing", Variant(static_cast<IDispatch*>(nullptr))},
        {"nothing unknown", Variant(static_cast<IUnknown*>(nullptr))},
    };
}

// What a scalar property becomes: the value as the property's type, or nothing when it cannot be that.
std::optional<Variant> Coerced(const Variant& value, VARTYPE type)
{
    Variant converted;
    const bool isObject = value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN;
    if (isObject || FAILED(VariantChangeType(converted.Receive(), value.Borrow(), VARIANT_ALPHABOOL, type)))
        return std::nullopt;
    return converted;
}

class OddValueTest : public BagPersistenceTest, public testing::WithParamInterface<TestPropertyBag::Manner>
{
protected:
    // Loads a bag with the one value under a key, and tells how often it was reported.
    static std::ptrdiff_t LoadWith(const SitedControl& control, const std::wstring& key, const Variant& value)
    {
        const auto bag = MakeCom<TestPropertyBag>(GetParam());
        const auto log = MakeCom<TestErrorLog>();
        bag->Put(key, value);
        EXPECT_EQ(Hr(Load(control, bag.Get(), log.Get())), Hr(S_OK));
        for (const TestErrorLog::Entry& entry : log->Entries())
        {
            EXPECT_EQ(entry.Property, key);
            EXPECT_TRUE(FAILED(entry.Code)) << Hr(entry.Code);
        }
        return static_cast<std::ptrdiff_t>(log->Entries().size());
    }
};

struct ScalarKey
{
    const wchar_t* Name;
    VARTYPE Type;
    void (*Set)(ControlState& state, const Variant& value);
};

TEST_P(OddValueTest, IsCoercedOrReportedAndReplacedByTheDefault)
{
    const ScalarKey keys[] = {
        {L"BackColor", VT_I4,
         [](ControlState& state, const Variant& value) {
             state.BackColor = static_cast<OLE_COLOR>(value.Long());
         }},
        {L"ForeColor", VT_I4,
         [](ControlState& state, const Variant& value) {
             state.ForeColor = static_cast<OLE_COLOR>(value.Long());
         }},
        {L"Enabled", VT_BOOL,
         [](ControlState& state, const Variant& value) { state.Enabled = value.Bool(); }},
        {L"YesText", VT_BSTR,
         [](ControlState& state, const Variant& value) { state.YesText = value.Text(); }},
        {L"NoText", VT_BSTR, [](ControlState& state, const Variant& value) { state.NoText = value.Text(); }},
        {L"Value", VT_I4, [](ControlState& state, const Variant& value) { state.Value = value.Long(); }},
    };
    for (const ScalarKey& key : keys)
    {
        for (const OddValue& odd : OddValues())
        {
            ControlState expected;
            const auto coerced = Coerced(odd.Value, key.Type);
            if (coerced)
                key.Set(expected, *coerced);
            const SitedControl control;
            const std::ptrdiff_t reports = LoadWith(control, key.Name, odd.Value);
            EXPECT_EQ(StateOf(control.Get()), expected) << Narrow(key.Name) << " as " << odd.What;
            EXPECT_EQ(reports, coerced ? 0 : 1) << Narrow(key.Name) << " as " << odd.What;
        }
    }
}

TEST_P(OddValueTest, AsFontIsReportedAndReplacedByTheContainersFont)
{
    for (const OddValue& odd : OddValues())
    {
        const SitedControl control;
        const std::ptrdiff_t reports = LoadWith(control, L"Font", odd.Value);
        EXPECT_EQ(StateOf(control.Get()), ControlState()) << odd.What;
        // No object at all may be taken for no font, which is no mistake.
        const bool isNothing = odd.Value.Type() == VT_DISPATCH || odd.Value.Type() == VT_UNKNOWN;
        if (!isNothing)
        {
            EXPECT_EQ(reports, 1) << odd.What;
        }
    }
}

TEST_P(OddValueTest, AnotherObjectAsFontIsReported)
{
    const SitedControl control;
    const SitedControl noFont;
    EXPECT_EQ(LoadWith(control, L"Font", Variant(static_cast<IDispatch*>(noFont.Get()))), 1);
    EXPECT_EQ(StateOf(control.Get()), ControlState());
}

TEST_P(OddValueTest, NeedsNoErrorLog)
{
    const SitedControl control;
    const auto bag = MakeCom<TestPropertyBag>(GetParam());
    for (const wchar_t* key : {L"BackColor", L"Enabled", L"Font", L"YesText", L"NoText", L"Value"})
        bag->Put(key, Missing());
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()), ControlState());
}

// Whatever a bag put there, the control can be saved again everywhere.
TEST_P(OddValueTest, AsNoTextCanBeSavedAgain)
{
    for (const OddValue& odd : OddValues())
    {
        const SitedControl control;
        LoadWith(control, L"NoText", odd.Value);
        const ControlState state = StateOf(control.Get());
        const auto bag = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK)) << odd.What;
        const SitedControl second;
        EXPECT_EQ(Hr(Load(second, bag.Get())), Hr(S_OK)) << odd.What;
        EXPECT_EQ(StateOf(second.Get()), state) << odd.What;

        ComPtr<IStream> stream;
        ASSERT_HRESULT_SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK)) << odd.What;
        EXPECT_HRESULT_SUCCEEDED(stream->Seek({}, STREAM_SEEK_SET, nullptr));
        const SitedControl third;
        EXPECT_EQ(Hr(third.Query<IPersistStreamInit>()->Load(stream.Get())), Hr(S_OK)) << odd.What;
        EXPECT_EQ(StateOf(third.Get()), state) << odd.What;
    }
}

// Whatever the type that a form file gives it, the text of a Boolean is a word.
TEST_P(OddValueTest, AsTextsOfBooleansAreWords)
{
    const SitedControl control;
    LoadWith(control, L"NoText", Variant(true));
    EXPECT_EQ(StateOf(control.Get()).NoText, L"True");
    EXPECT_EQ(Hr(PutByName(control.Get(), L"Text", Variant(true)).Result), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()).Value, 2);
    const SitedControl other;
    LoadWith(other, L"YesText", Variant(false));
    EXPECT_EQ(StateOf(other.Get()).YesText, L"False");
}

// A text put by program matches a NoText of another type when both read alike.
TEST_P(OddValueTest, AsNoTextIsComparedAsText)
{
    const SitedControl control;
    LoadWith(control, L"NoText", Variant(0L));
    EXPECT_EQ(Hr(PutByName(control.Get(), L"Text", Variant(L"0")).Result), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()).Value, 2);
}

INSTANTIATE_TEST_SUITE_P(Bags, OddValueTest,
                         testing::Values(TestPropertyBag::Manner::AsStored,
                                         TestPropertyBag::Manner::Converting),
                         [](const auto& row) {
                             return row.param == TestPropertyBag::Manner::AsStored ? "AsStored"
                                                                                   : "Converting";
                         });

} // namespace

} // namespace kiv::test
