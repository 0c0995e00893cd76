// A control in a form file: what it reads from and writes to its container's property bag.

#include "tests/com/BagPersistenceTest.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

#include <algorithm>
#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using Names = std::vector<std::wstring>;

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

} // namespace

} // namespace kiv::test
