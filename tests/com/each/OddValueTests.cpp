// Values of the wrong type in a form file: coerced where they can be, else reported and replaced by the
// default.

#include "tests/com/each/PersistedControls.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <limits>
#include <optional>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// The first and the last day that an automation date can name.
constexpr double FirstDay = -657434;
constexpr double LastDay = 2958465;

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

std::vector<OddValue> OddValues(IDispatch* control)
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
        {"very negative double", Variant(-1e9)},
        {"not a number", notANumber},
        {"currency", Of(VT_CY, 1.5)},
        {"date", Of(VT_DATE, 2)},
        {"decimal", Of(VT_DECIMAL, 3)},
        {"True", Variant(true)},
        {"words", Variant(L"words")},
        {"number as text", Variant(L"7")},
        {"fraction as text", Variant(L"2.5")},
        {"truth as text", Variant(L"True")},
        {"empty text", Variant(L"")},
        {"an array", Array()},
        {"a font", Variant(static_cast<IDispatch*>(MakeFont().Get()))},
        {"a control", Variant(control)},
        {"nothing", Variant(static_cast<IDispatch*>(nullptr))},
        {"nothing unknown", Variant(static_cast<IUnknown*>(nullptr))},
    };
}

// What a property becomes: the value as the property's type, or nothing when it cannot be that.
std::optional<Variant> Coerced(const Variant& value, const ControlProperty& property,
                               TestPropertyBag::Manner manner)
{
    // A day is no amount, unless the bag says so.
    if (property.Type == VT_CY && value.Type() == VT_DATE && manner == TestPropertyBag::Manner::AsStored)
        return std::nullopt;
    const bool isObject = value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN;
    Variant converted;
    if (isObject || property.Type == VT_DISPATCH ||
        FAILED(VariantChangeType(converted.Receive(), value.Borrow(), VARIANT_ALPHABOOL, property.Type)))
        return std::nullopt;
    if (property.Type == VT_DATE &&
        !(V_DATE(&converted.Get()) >= FirstDay && V_DATE(&converted.Get()) < LastDay + 1))
        return std::nullopt;
    return converted;
}

class EachOddValue : public EachPersisted
{
protected:
    // Loads a bag with the one value under a key, and tells how often it was reported.
    static std::size_t LoadWith(const HeldControl& control, const PersistedKey& key, const Variant& value,
                                TestPropertyBag::Manner manner)
    {
        const auto bag = MakeCom<TestPropertyBag>(manner);
        const auto log = MakeCom<TestErrorLog>();
        bag->Put(key.Name, value);
        EXPECT_EQ(Hr(Load(control.Get(), bag.Get(), log.Get())), Hr(S_OK));
        for (const TestErrorLog::Entry& entry : log->Entries())
        {
            EXPECT_EQ(entry.Property, key.Name);
            EXPECT_TRUE(FAILED(entry.Code)) << Hr(entry.Code);
        }
        return log->Entries().size();
    }
    // What a control shows that is loaded with what the value means.
    ControlState StateWith(const HeldControl& control, const PersistedKey& key,
                           const std::optional<Variant>& coerced)
    {
        if (!coerced)
            return NewState();
        control.InitNew();
        EXPECT_EQ(LoadWith(control, key, *coerced, TestPropertyBag::Manner::AsStored), 0U);
        if (!key.IsMomentary)
        {
            EXPECT_EQ(ShowExactly(control.Property(key.Name)), ShowExactly(*coerced));
        }
        return StateOf(control.Get());
    }
};

TEST_P(EachOddValue, IsCoercedOrReportedAndReplacedByTheDefault)
{
    const EasyControl control(ClassId());
    const EasyControl meant(ClassId());
    for (const PersistedKey& key : Keys())
    {
        const ControlProperty property = PropertyOf(control.Get(), key.Name);
        for (const OddValue& odd : OddValues(meant.Get()))
        {
            // Read only of a control that is unusual otherwise; and a font is none for a font.
            if (key.Depends || (property.IsFont && odd.What == std::string_view("a font")))
                continue;
            SCOPED_TRACE(Narrow(key.Name) + " as " + odd.What);
            const bool isNothing = odd.Value.Type() == VT_DISPATCH && !odd.Value.Object();
            for (const auto manner : {TestPropertyBag::Manner::AsStored, TestPropertyBag::Manner::Converting})
            {
                const std::optional<Variant> coerced = Coerced(odd.Value, property, manner);
                control.InitNew();
                const std::size_t reports = LoadWith(control, key, odd.Value, manner);
                EXPECT_EQ(StateOf(control.Get()), StateWith(meant, key, coerced));
                // No object at all may be taken for none, which is no mistake.
                if (property.Type != VT_DISPATCH || !isNothing)
                {
                    EXPECT_EQ(reports, coerced ? 0U : 1U);
                }
            }
        }
    }
}

// Whatever a bag put there, the control can be saved again everywhere.
TEST_P(EachOddValue, CanBeSavedAgain)
{
    const EasyControl first(ClassId());
    const EasyControl second(ClassId());
    const EasyControl third(ClassId());
    for (const PersistedKey& key : Keys())
    {
        for (const OddValue& odd : OddValues(second.Get()))
        {
            SCOPED_TRACE(Narrow(key.Name) + " as " + odd.What);
            LoadWith(first, key, odd.Value, TestPropertyBag::Manner::AsStored);
            const ControlState state = StateOf(first.Get());
            EXPECT_EQ(Hr(Load(second.Get(), SavedBag(first).Get())), Hr(S_OK));
            EXPECT_EQ(StateOf(second.Get()), state);
            EXPECT_EQ(Hr(Load(third.Get(), SavedBytes(first))), Hr(S_OK));
            EXPECT_EQ(StateOf(third.Get()), state);
        }
    }
}

TEST_P(EachOddValue, NeedsNoErrorLog)
{
    for (const auto manner : {TestPropertyBag::Manner::AsStored, TestPropertyBag::Manner::Converting})
    {
        const EasyControl control(ClassId());
        const auto bag = MakeCom<TestPropertyBag>(manner);
        for (const PersistedKey& key : Keys())
            bag->Put(key.Name, Missing());
        EXPECT_EQ(Hr(Load(control.Get(), bag.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(control.Get()), NewState());
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, EachOddValue, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
