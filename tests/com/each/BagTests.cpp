// A control in a form file: what it reads from and writes to its container's property bag.

#include "tests/com/each/PersistedControls.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <olectl.h>

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

Variant FontOf(const FontFacts& facts)
{
    return Variant(static_cast<IDispatch*>(MakeFont(facts).Get()));
}

class EachBag : public EachPersisted
{
protected:
    // What a new control reads: all but what depends on values that a new one has not.
    static Names KeysOfANewOne()
    {
        std::vector<PersistedKey> keys = Keys();
        std::erase_if(keys, [](const PersistedKey& key) { return key.Depends; });
        return NamesOf(keys);
    }
    // One that is asked for in a type that a bag may not have is asked for again without a type, and counts
    // once.
    static Names NamesAsked(const TestPropertyBag& bag)
    {
        Names read = bag.NamesRead();
        read.erase(std::unique(read.begin(), read.end()), read.end());
        return read;
    }
    static Names Sorted(Names names)
    {
        std::ranges::sort(names);
        return names;
    }
};

TEST_P(EachBag, IsAskedForTheKeysInTheirOrder)
{
    const auto nothing = MakeCom<TestPropertyBag>();
    const EasyControl fresh(ClassId());
    EXPECT_EQ(Hr(Load(fresh.Get(), nothing.Get())), Hr(S_OK));
    EXPECT_EQ(NamesAsked(*nothing.Get()), KeysOfANewOne());
    EXPECT_EQ(nothing->NamesWritten(), Names());
    const auto everything = UnusualBag();
    const EasyControl unusual(ClassId());
    EXPECT_EQ(Hr(Load(unusual.Get(), everything.Get())), Hr(S_OK));
    EXPECT_EQ(NamesAsked(*everything.Get()), NamesOf(Keys()));
}

// A bag over a text file knows no types but those that it is asked for.
TEST_P(EachBag, IsToldWhichTypesAreWanted)
{
    const EasyControl control(ClassId());
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Load(control.Get(), bag.Get())), Hr(S_OK));
    for (const auto& [name, type] : bag->Reads())
    {
        const auto key = std::ranges::find(Keys(), name, &PersistedKey::Name);
        ASSERT_NE(key, Keys().end()) << Narrow(name);
        const VARTYPE own = PropertyOf(control.Get(), name).Type;
        const VARTYPE wanted = key->TakesAnyType    ? VARTYPE{VT_EMPTY}
                               : own == VT_DISPATCH ? VARTYPE{VT_UNKNOWN}
                                                    : own;
        EXPECT_EQ(type, wanted) << Narrow(name);
    }
}

// Made new through any interface, or loaded from a bag that has nothing or gives nothing.
TEST_P(EachBag, LeavesTheDefaultsWithoutAKey)
{
    for (int way = 0; way < 4; ++way)
    {
        SCOPED_TRACE(way);
        const EasyControl control(ClassId());
        MakeUnusual(control);
        const auto bag = MakeCom<TestPropertyBag>();
        if (way == 2)
            bag->FailAllReads();
        EXPECT_EQ(Hr(way == 0   ? control.Query<IPersistPropertyBag>()->InitNew()
                     : way == 1 ? control.Query<IPersistStreamInit>()->InitNew()
                                : Load(control.Get(), bag.Get())),
                  Hr(S_OK));
        for (const PersistedKey& key : Keys())
            EXPECT_EQ(ShowExactly(control.Property(key.Name)), key.Default) << Narrow(key.Name);
        EXPECT_EQ(StateOf(control.Get()), NewState());
    }
}

TEST_P(EachBag, IsGivenNothingThatIsDefault)
{
    const EasyControl control(ClassId());
    control.InitNew();
    for (const BOOL allProperties : {FALSE, TRUE})
    {
        const auto bag = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(control.Query<IPersistPropertyBag>()->Save(bag.Get(), TRUE, allProperties)), Hr(S_OK));
        EXPECT_EQ(bag->NamesWritten(), Names());
    }
}

// Under its key, in its type, and nothing else beside it.
TEST_P(EachBag, GivesBackEachKeyAlone)
{
    for (const PersistedKey& key : Keys())
    {
        if (key.Depends || key.IsMomentary)
            continue;
        SCOPED_TRACE(Narrow(key.Name));
        const Variant& value = OtherValue(key);
        const auto bag = MakeCom<TestPropertyBag>();
        bag->Put(key.Name, value);
        const EasyControl first(ClassId());
        EXPECT_EQ(Hr(Load(first.Get(), bag.Get())), Hr(S_OK));
        EXPECT_EQ(ShowExactly(first.Property(key.Name)), ShowExactly(value));
        EXPECT_NE(ShowExactly(value), key.Default);
        const auto saved = SavedBag(first);
        EXPECT_EQ(ShowExactly(saved->Find(key.Name)), ShowExactly(value));
        Names written = saved->NamesWritten();
        std::erase_if(written, [&](const std::wstring& name) {
            return std::ranges::find(key.Brings, name) != key.Brings.end();
        });
        EXPECT_EQ(written, Names{key.Name});
        const EasyControl second(ClassId());
        EXPECT_EQ(Hr(Load(second.Get(), saved.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(second.Get()), StateOf(first.Get()));
    }
}

// A property that is put by program is to be saved, under its key.
TEST_P(EachBag, IsGivenEachPropertyThatWasSet)
{
    for (const PersistedKey& key : Keys())
    {
        if (key.Depends || key.IsMomentary)
            continue;
        SCOPED_TRACE(Narrow(key.Name));
        const EasyControl first(ClassId());
        EXPECT_EQ(Hr(Load(first.Get(), MakeCom<TestPropertyBag>().Get())), Hr(S_OK));
        EXPECT_FALSE(IsDirty(first.Get()));
        first.Put(key.Name, OtherValue(key));
        EXPECT_EQ(IsDirty(first.Get()), !key.IsQuiet);
        Names expected = key.Brings;
        expected.emplace_back(key.Name);
        const auto bag = SavedBag(first);
        EXPECT_EQ(Sorted(bag->NamesWritten()), Sorted(expected));
        const EasyControl second(ClassId());
        EXPECT_EQ(Hr(Load(second.Get(), bag.Get())), Hr(S_OK));
        EXPECT_EQ(KeptBy(second), KeptBy(first));
    }
}

TEST_P(EachBag, GivesBackEverything)
{
    const EasyControl first(ClassId());
    MakeUnusual(first);
    const auto bag = SavedBag(first);
    EXPECT_EQ(bag->NamesWritten(), KeysAsWritten());
    for (const PersistedKey& key : Keys())
    {
        SCOPED_TRACE(Narrow(key.Name));
        const std::string shown = ShowExactly(first.Property(key.Name));
        EXPECT_EQ(shown, key.IsMomentary ? key.Default : ShowExactly(OtherValue(key)));
        if (!key.IsMomentary)
        {
            EXPECT_EQ(ShowExactly(bag->Find(key.Name)), shown);
        }
    }
    const EasyControl second(ClassId());
    EXPECT_EQ(Hr(Load(second.Get(), bag.Get())), Hr(S_OK));
    EXPECT_FALSE(IsDirty(second.Get()));
    EXPECT_EQ(StateOf(second.Get()), StateOf(first.Get()));
    const auto again = SavedBag(second);
    EXPECT_EQ(again->NamesWritten(), bag->NamesWritten());
    for (const auto& [name, value] : bag->Values())
        EXPECT_EQ(ShowExactly(again->Find(name)), ShowExactly(value)) << Narrow(name);
}

TEST_P(EachBag, FailsTheSaveThatItRefuses)
{
    for (std::size_t i = 0; i < KeysAsWritten().size(); ++i)
    {
        const EasyControl control(ClassId());
        MakeUnusual(control);
        Change(control.Get());
        const auto bag = MakeCom<TestPropertyBag>();
        bag->FailWritesFrom(i);
        EXPECT_EQ(Hr(Save(control.Get(), bag.Get())), Hr(STG_E_MEDIUMFULL)) << "write " << i;
        EXPECT_TRUE(IsDirty(control.Get())) << "still to be saved";
        EXPECT_EQ(bag->NamesWritten().size(), i) << "nothing more after a failure";
    }
}

TEST_P(EachBag, HasToBeThere)
{
    const EasyControl control(ClassId());
    TestPropertyBag* const none = nullptr;
    EXPECT_EQ(Hr(Load(control.Get(), none)), Hr(E_POINTER));
    control.InitNew();
    EXPECT_EQ(Hr(Save(control.Get(), none)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control.Query<IPersistPropertyBag>()->GetClassID(nullptr)), Hr(E_POINTER));
}

TEST_P(EachBag, NeedsNoSite)
{
    const ComPtr<IUnknown> control = TheLibrary().Create(ClassId());
    const auto bag = UnusualBag();
    Names expected = KeysAsWritten();
    // Without one, the font is the system's own, as it would be again.
    const auto fontless = MakeCom<TestPropertyBag>();
    for (const auto& [name, value] : bag->Values())
    {
        if (name != L"Font")
            fontless->Put(name, value);
    }
    std::erase(expected, L"Font");
    EXPECT_EQ(Hr(Load(control.Get(), fontless.Get())), Hr(S_OK));
    const auto saved = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(control.Get(), saved.Get())), Hr(S_OK));
    EXPECT_EQ(saved->NamesWritten(), expected);
    for (const auto& [name, value] : saved->Values())
        EXPECT_EQ(ShowExactly(value), ShowExactly(bag->Find(name))) << Narrow(name);
}

// --- The font, which is the container's unless there is one of its own ---

TEST_P(EachBag, IsGivenAFontThatDiffersInAnything)
{
    if (!Has(L"Font"))
        return;
    void (*const changes[])(FontFacts&) = {[](FontFacts& font) { font.Size.int64 = 112500; },
                                           [](FontFacts& font) { font.Weight = 700; },
                                           [](FontFacts& font) { font.Charset = 238; },
                                           [](FontFacts& font) { font.Italic = true; },
                                           [](FontFacts& font) { font.Underline = true; },
                                           [](FontFacts& font) { font.Strikethrough = true; },
                                           [](FontFacts& font) { font.Name = L"MS Sans Serif"; }};
    for (const auto& change : changes)
    {
        FontFacts facts;
        change(facts);
        const EasyControl first(ClassId());
        first.InitNew();
        first.Put(L"Font", FontOf(facts));
        const auto bag = SavedBag(first);
        EXPECT_EQ(bag->NamesWritten(), Names{L"Font"}) << facts;
        const EasyControl second(ClassId());
        EXPECT_EQ(Hr(Load(second.Get(), bag.Get())), Hr(S_OK));
        EXPECT_EQ(FactsOf(second.Property(L"Font").Object()), facts);
    }
}

TEST_P(EachBag, IsGivenNoFontThatEqualsTheContainers)
{
    if (!Has(L"Font"))
        return;
    const EasyControl control(ClassId());
    control.InitNew();
    control.Put(L"Font", FontOf({})); // another object
    EXPECT_EQ(SavedBag(control)->NamesWritten(), Names());

    // The names of fonts are compared letter for letter.
    FontFacts facts;
    facts.Name = L"TAHOMA";
    const EasyControl other(ClassId());
    other.Site().SetAmbient(DISPID_AMBIENT_FONT, FontOf(facts));
    other.InitNew();
    other.Put(L"Font", FontOf({}));
    EXPECT_EQ(SavedBag(other)->NamesWritten(), Names{L"Font"});
}

TEST_P(EachBag, LeavesTheContainersFontWithoutOne)
{
    if (!Has(L"Font"))
        return;
    FontFacts facts;
    facts.Size.int64 = 180000;
    const Variant ambient = FontOf(facts);
    const EasyControl control(ClassId());
    control.Site().SetAmbient(DISPID_AMBIENT_FONT, ambient);
    EXPECT_EQ(Hr(Load(control.Get(), MakeCom<TestPropertyBag>().Get())), Hr(S_OK));
    const Variant font = control.Property(L"Font");
    EXPECT_EQ(FactsOf(font.Object()), facts);
    // A change of the control's font is not one of the container's.
    ComPtr<IFont> own;
    ASSERT_HRESULT_SUCCEEDED(font.Object()->QueryInterface(IID_PPV_ARGS(&own)));
    EXPECT_HRESULT_SUCCEEDED(own->put_Size({{240000, 0}}));
    EXPECT_EQ(FactsOf(ambient.Object()), facts);
}

INSTANTIATE_TEST_SUITE_P(Controls, EachBag, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
