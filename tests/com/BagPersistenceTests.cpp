// A control in a form file: what it reads from and writes to its container's property bag.

#include "tests/com/ControlState.h"
#include "tests/com/SitedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

#include <algorithm>
#include <limits>
#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using Names = std::vector<std::wstring>;

class BagPersistenceTest : public LibraryTest
{
protected:
    static HRESULT Load(const SitedControl& control, TestPropertyBag* bag, IErrorLog* log = nullptr)
    {
        return control.Query<IPersistPropertyBag>()->Load(bag, log);
    }
    static HRESULT Save(const SitedControl& control, TestPropertyBag* bag, bool clearDirty = true,
                        bool allProperties = false)
    {
        return control.Query<IPersistPropertyBag>()->Save(bag, clearDirty, allProperties);
    }
};

ControlState Unusual()
{
    ControlState state;
    state.BackColor = 0x00123456;
    state.ForeColor = 0x80000008;
    state.Enabled = false;
    state.Font.Size.int64 = 142500;
    state.Font.Weight = 700;
    state.YesText = L"Ja\u00DF \u65E5";
    state.NoText = L"";
    state.Value = 2;
    return state;
}

TEST_F(BagPersistenceTest, NewControlHasTheDefaults)
{
    const SitedControl control;
    EXPECT_HRESULT_SUCCEEDED(control.Query<IPersistPropertyBag>()->InitNew());
    EXPECT_EQ(StateOf(control.Get()), ControlState()) << "the font is the container's";
}

TEST_F(BagPersistenceTest, ReadsItsPropertiesInOrder)
{
    const SitedControl control;
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(bag->NamesRead(),
              (Names{L"BackColor", L"ForeColor", L"Enabled", L"Font", L"YesText", L"NoText", L"Value"}));
    EXPECT_EQ(bag->NamesWritten(), Names());
}

// A bag over a text file knows no types but those that it is asked for.
TEST_F(BagPersistenceTest, TellsTheBagWhichTypesItWants)
{
    const SitedControl control;
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    const std::map<std::wstring, std::vector<VARTYPE>> wanted = {
        {L"BackColor", {VT_I4, VT_UI4}},
        {L"ForeColor", {VT_I4, VT_UI4}},
        {L"Enabled", {VT_BOOL}},
        {L"Font", {VT_UNKNOWN, VT_DISPATCH}},
        {L"YesText", {VT_BSTR}},
        // Any value that reads as text may stand there.
        {L"NoText", {VT_BSTR, VT_EMPTY}},
        {L"Value", {VT_I4}}};
    for (const auto& [name, type] : bag->Reads())
        EXPECT_TRUE(std::ranges::count(wanted.at(name), type)) << Narrow(name) << " as VT " << type;
}

TEST_F(BagPersistenceTest, AnEmptyBagGivesTheDefaults)
{
    for (const bool failing : {false, true})
    {
        const SitedControl control;
        const auto bag = MakeCom<TestPropertyBag>();
        if (failing)
            bag->FailAllReads();
        EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(control.Get()), ControlState());
    }
}

TEST_F(BagPersistenceTest, ReadsWhatTheBagHolds)
{
    const SitedControl control;
    const ControlState state = Unusual();
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"BackColor", Variant(static_cast<long>(state.BackColor)));
    bag->Put(L"ForeColor", Variant(static_cast<long>(state.ForeColor)));
    bag->Put(L"Enabled", Variant(false));
    bag->Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont(state.Font).Get())));
    bag->Put(L"YesText", Variant(state.YesText));
    bag->Put(L"NoText", Variant(state.NoText));
    bag->Put(L"Value", Variant(2L));
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()), state);
}

TEST_F(BagPersistenceTest, WritesNothingThatIsDefault)
{
    const SitedControl control;
    control.InitNew();
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(bag->NamesWritten(), Names());
}

TEST_F(BagPersistenceTest, WritesItsPropertiesInOrder)
{
    const SitedControl control;
    control.InitNew();
    Apply(Unusual(), control.Get());
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(bag->NamesWritten(),
              (Names{L"BackColor", L"ForeColor", L"Enabled", L"YesText", L"NoText", L"Value", L"Font"}));
    EXPECT_EQ(Show(bag->Find(L"BackColor")), "VT 3 1193046");
    EXPECT_EQ(Show(bag->Find(L"ForeColor")), "VT 3 -2147483640");
    EXPECT_EQ(Show(bag->Find(L"Enabled")), "VT 11 False");
    EXPECT_EQ(bag->Find(L"YesText").Text(), Unusual().YesText);
    EXPECT_EQ(Show(bag->Find(L"NoText")), "VT 8 \"\"");
    EXPECT_EQ(Show(bag->Find(L"Value")), "VT 3 2");
    ASSERT_NE(bag->Find(L"Font").Object(), nullptr);
    EXPECT_EQ(FactsOf(bag->Find(L"Font").Object()), Unusual().Font);
}

// One property at a time: nothing else is written beside it.
struct OneProperty
{
    const wchar_t* Name;
    void (*Change)(ControlState& state);

    friend std::ostream& operator<<(std::ostream& out, const OneProperty& row)
    {
        return out << Narrow(row.Name);
    }
};

class OnePropertyTest : public BagPersistenceTest, public testing::WithParamInterface<OneProperty>
{
};

TEST_P(OnePropertyTest, IsWrittenAloneAndReadBack)
{
    ControlState state;
    GetParam().Change(state);
    const SitedControl first;
    first.InitNew();
    Apply(state, first.Get());
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(first, bag.Get())), Hr(S_OK));
    EXPECT_EQ(bag->NamesWritten(), Names{GetParam().Name});

    const SitedControl second;
    EXPECT_EQ(Hr(Load(second, bag.Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(second.Get()), state);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OnePropertyTest,
    testing::Values(OneProperty{L"BackColor", [](ControlState& state) { state.BackColor = 0x8000000E; }},
                    OneProperty{L"ForeColor", [](ControlState& state) { state.ForeColor = 0; }},
                    OneProperty{L"Enabled", [](ControlState& state) { state.Enabled = false; }},
                    OneProperty{L"YesText", [](ControlState& state) { state.YesText = L"y"; }},
                    OneProperty{L"NoText", [](ControlState& state) { state.NoText = L"NN"; }},
                    OneProperty{L"Value", [](ControlState& state) { state.Value = -1; }},
                    OneProperty{L"Font", [](ControlState& state) { state.Font.Size.int64 = 112500; }},
                    OneProperty{L"Font", [](ControlState& state) { state.Font.Weight = 700; }},
                    OneProperty{L"Font", [](ControlState& state) { state.Font.Charset = 238; }},
                    OneProperty{L"Font", [](ControlState& state) { state.Font.Italic = true; }},
                    OneProperty{L"Font", [](ControlState& state) { state.Font.Name = L"MS Sans Serif"; }},
                    OneProperty{L"Font", [](ControlState& state) { state.Font.Strikethrough = true; }},
                    OneProperty{L"Font", [](ControlState& state) { state.Font.Underline = true; }}));

TEST_F(BagPersistenceTest, WritesNoFontThatEqualsTheContainers)
{
    const SitedControl control;
    control.InitNew();
    // Another object with the same attributes.
    EXPECT_HRESULT_SUCCEEDED(control->putref_Font(MakeFont().Get()));
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(bag->NamesWritten(), Names());
}

// The names of fonts are compared letter for letter.
TEST_F(BagPersistenceTest, WritesAFontThatDiffersInTheCaseOfItsName)
{
    FontFacts facts;
    facts.Name = L"TAHOMA";
    const SitedControl control;
    control.Site().SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont(facts).Get())));
    control.InitNew();
    EXPECT_HRESULT_SUCCEEDED(control->putref_Font(MakeFont().Get()));
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(bag->NamesWritten(), Names{L"Font"});
}

TEST_F(BagPersistenceTest, FollowsTheContainersFontWhenLoadedWithoutOne)
{
    FontFacts facts;
    facts.Size.int64 = 180000;
    const SitedControl control;
    control.Site().SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont(facts).Get())));
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    ComPtr<IFontDisp> font;
    EXPECT_HRESULT_SUCCEEDED(control->get_Font(&font));
    EXPECT_EQ(FactsOf(font.Get()), facts);
}

// A change of the control's font is not one of the container's.
TEST_F(BagPersistenceTest, LeavesTheContainersFontAlone)
{
    const auto ambient = MakeFont();
    const SitedControl control;
    control.Site().SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(ambient.Get())));
    control.InitNew();
    ComPtr<IFontDisp> font;
    EXPECT_HRESULT_SUCCEEDED(control->get_Font(&font));
    ComPtr<IFont> own;
    ASSERT_HRESULT_SUCCEEDED(font.As(&own));
    EXPECT_HRESULT_SUCCEEDED(own->put_Size({{240000, 0}}));
    EXPECT_EQ(FactsOf(ambient.Get()), FontFacts());
}

TEST_F(BagPersistenceTest, WritesAgainWhatItRead)
{
    const SitedControl first;
    first.InitNew();
    Apply(Unusual(), first.Get());
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(first, bag.Get())), Hr(S_OK));
    const SitedControl second;
    EXPECT_EQ(Hr(Load(second, bag.Get())), Hr(S_OK));
    EXPECT_EQ(StateOf(second.Get()), Unusual());
    const auto again = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(second, again.Get())), Hr(S_OK));
    EXPECT_EQ(again->NamesWritten(), bag->NamesWritten());
    for (const auto& [name, value] : bag->Values())
        EXPECT_EQ(Show(again->Find(name)), Show(value)) << Narrow(name);
}

TEST_F(BagPersistenceTest, TellsWhenItCannotBeWritten)
{
    for (std::size_t i = 0; i < 7; ++i)
    {
        const SitedControl control;
        control.InitNew();
        Apply(Unusual(), control.Get());
        const auto bag = MakeCom<TestPropertyBag>();
        bag->FailWritesFrom(i);
        EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(STG_E_MEDIUMFULL)) << "write " << i;
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->IsDirty()), Hr(S_OK)) << "still to be saved";
        EXPECT_EQ(bag->NamesWritten().size(), i) << "nothing more after a failure";
    }
}

TEST_F(BagPersistenceTest, RefusesToWorkWithoutABag)
{
    const SitedControl control;
    EXPECT_EQ(Hr(Load(control, nullptr)), Hr(E_POINTER));
    control.InitNew();
    EXPECT_EQ(Hr(Save(control, nullptr)), Hr(E_POINTER));
}

TEST_F(BagPersistenceTest, NeedsNoSite)
{
    ComPtr<IPersistPropertyBag> persist;
    const ComPtr<_YesNo> control = CreateYesNo();
    ASSERT_HRESULT_SUCCEEDED(control.As(&persist));
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"Value", Variant(1L));
    EXPECT_EQ(Hr(persist->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(StateOf(control.Get()).Value, 1);
    const auto saved = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(persist->Save(saved.Get(), TRUE, FALSE)), Hr(S_OK));
    // The font is the system's own, as it would be again.
    EXPECT_EQ(saved->NamesWritten(), Names{L"Value"});
}

// --- Values of the wrong type ---

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
    if (isObject || FAILED(VariantChangeType(converted.Receive(), value.Borrow(), 0, type)))
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
