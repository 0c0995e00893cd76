// Number and date boxes in a form file, a stream and a storage.

#include "tests/com/MaskedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MemoryStorage.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestFont.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using Names = std::vector<std::wstring>;

constexpr double DefaultMaxDate = 38352; // 12/31/2004
constexpr double DefaultMinDate = 1828;  // 01/01/1905

Variant AnotherFont()
{
    FontFacts facts;
    facts.Weight = 700;
    return Variant(static_cast<IDispatch*>(MakeFont(facts).Get()));
}

// Everything other than by default; the style first, which the rest depends on.
void MakeUnusualNumber(const MaskedControl& control, long style)
{
    control.Put(L"Style", Variant(style));
    control.Put(L"MaxLength", Variant(short{5}));
    control.Put(L"BackColor", Variant(0x00C0FFL));
    control.Put(L"ForeColor", Variant(0x123456L));
    control.Put(L"Enabled", Variant(false));
    control.Put(L"Font", AnotherFont());
}

void MakeUnusualDate(const MaskedControl& control)
{
    control.Put(L"Style", Variant(2L));
    control.Put(L"MinDate", Variant::Date(-36522));
    control.Put(L"MaxDate", Variant::Date(73050));
    control.Put(L"AllowVarious", Variant(true));
    control.Put(L"BackColor", Variant(0x00C0FFL));
    control.Put(L"ForeColor", Variant(0x123456L));
    control.Put(L"Enabled", Variant(false));
    control.Put(L"Font", AnotherFont());
}

// A box of one of the classes, unusual in all its properties.
struct Subject
{
    const char* Name;
    const CLSID* ClassId;
    void (*MakeUnusual)(const MaskedControl& control);
};

const Subject Subjects[] = {
    {"SSN", &CLSID_NumberBox, [](const MaskedControl& control) { MakeUnusualNumber(control, 0); }},
    {"FederalId", &CLSID_NumberBox, [](const MaskedControl& control) { MakeUnusualNumber(control, 1); }},
    {"Routing", &CLSID_NumberBox, [](const MaskedControl& control) { MakeUnusualNumber(control, 2); }},
    {"Custom", &CLSID_NumberBox, [](const MaskedControl& control) { MakeUnusualNumber(control, 3); }},
    {"Date", &CLSID_DateBox, MakeUnusualDate},
};

HRESULT Load(const MaskedControl& control, TestPropertyBag* bag, IErrorLog* log = nullptr)
{
    return control.Query<IPersistPropertyBag>()->Load(bag, log);
}

HRESULT Save(const MaskedControl& control, TestPropertyBag* bag)
{
    return control.Query<IPersistPropertyBag>()->Save(bag, TRUE, FALSE);
}

Names Saved(const MaskedControl& control)
{
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK));
    return bag->NamesWritten();
}

using MaskedPersistenceTest = LibraryTest;

TEST_F(MaskedPersistenceTest, ComesBackFromABagAsItWas)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const MaskedControl first(*subject.ClassId);
        first.InitNew();
        subject.MakeUnusual(first);
        const auto bag = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(Save(first, bag.Get())), Hr(S_OK));

        const MaskedControl second(*subject.ClassId);
        EXPECT_EQ(Hr(Load(second, bag.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(second), StateOf(first));
        // The entry is not kept: there is the blank of the style.
        first.Put(L"Value", Variant::Null());
        EXPECT_EQ(second.BoxText(), first.BoxText());

        const auto again = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(Save(second, again.Get())), Hr(S_OK));
        EXPECT_EQ(again->NamesWritten(), bag->NamesWritten());
        for (const auto& [name, value] : bag->Values())
            EXPECT_EQ(Show(again->Find(name)), Show(value)) << Narrow(name);
    }
}

TEST_F(MaskedPersistenceTest, ComesBackFromAStreamAsItWas)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const MaskedControl first(*subject.ClassId);
        first.InitNew();
        subject.MakeUnusual(first);
        const auto stream = MakeCom<TestStream>();
        EXPECT_EQ(Hr(first.Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK));
        EXPECT_FALSE(stream->Bytes().empty());
        stream->Rewind();

        const MaskedControl second(*subject.ClassId);
        EXPECT_EQ(Hr(second.Query<IPersistStreamInit>()->Load(stream.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(second), StateOf(first));
        const auto again = MakeCom<TestStream>();
        EXPECT_EQ(Hr(second.Query<IPersistStreamInit>()->Save(again.Get(), TRUE)), Hr(S_OK));
        EXPECT_EQ(again->Bytes(), stream->Bytes());
    }
}

TEST_F(MaskedPersistenceTest, ComesBackFromAStorageAsItWas)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const MaskedControl first(*subject.ClassId);
        first.InitNew();
        subject.MakeUnusual(first);
        const ComPtr<IStorage> storage = MakeMemoryStorage();
        const auto saving = first.Query<IPersistStorage>();
        EXPECT_EQ(Hr(saving->Save(storage.Get(), FALSE)), Hr(S_OK));
        EXPECT_EQ(Hr(saving->SaveCompleted(nullptr)), Hr(S_OK));

        const MaskedControl second(*subject.ClassId);
        const auto persist = second.Query<IPersistStorage>();
        EXPECT_EQ(Hr(persist->Load(storage.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(second), StateOf(first));
        const ComPtr<IStorage> again = MakeMemoryStorage();
        EXPECT_EQ(Hr(persist->Save(again.Get(), FALSE)), Hr(S_OK));
        EXPECT_EQ(Hr(persist->SaveCompleted(nullptr)), Hr(S_OK));
        EXPECT_FALSE(ContentOf(storage.Get()).empty());
        EXPECT_EQ(ContentOf(again.Get()), ContentOf(storage.Get()));
    }
}

// A damaged stream is refused, and leaves the box as a new one.
TEST_F(MaskedPersistenceTest, RefusesAStreamThatIsCutOff)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const MaskedControl first(*subject.ClassId);
        first.InitNew();
        const MaskedState fresh = StateOf(first);
        subject.MakeUnusual(first);
        const auto stream = MakeCom<TestStream>();
        EXPECT_EQ(Hr(first.Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK));
        for (std::size_t size = 0; size < stream->Bytes().size(); size += 7)
        {
            const auto& bytes = stream->Bytes();
            const auto cut = MakeCom<TestStream>(
                std::vector(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)));
            const MaskedControl second(*subject.ClassId);
            EXPECT_TRUE(FAILED(second.Query<IPersistStreamInit>()->Load(cut.Get()))) << size;
            EXPECT_EQ(StateOf(second), fresh) << size;
        }
    }
}

TEST_F(MaskedPersistenceTest, ABoxIsNewAgainAfterALoadThatFails)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const MaskedControl control(*subject.ClassId);
        control.InitNew();
        const MaskedState fresh = StateOf(control);
        subject.MakeUnusual(control);
        EXPECT_NE(StateOf(control), fresh);
        const auto empty = MakeCom<TestStream>();
        EXPECT_TRUE(FAILED(control.Query<IPersistStreamInit>()->Load(empty.Get())));
        EXPECT_EQ(StateOf(control), fresh);
    }
}

TEST_F(MaskedPersistenceTest, NumbersAreReadAndWrittenInOrder)
{
    const Names readAlways = {L"BackColor", L"ForeColor", L"Enabled", L"Font", L"Style"};
    for (long style = 0; style <= 3; ++style)
    {
        SCOPED_TRACE(style);
        const auto bag = MakeCom<TestPropertyBag>();
        bag->Put(L"Style", Variant(style));
        bag->Put(L"MaxLength", Variant(short{7}));
        const MaskedControl control(CLSID_NumberBox);
        EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
        Names read = readAlways;
        if (style == 3)
            read.push_back(L"MaxLength");
        EXPECT_EQ(bag->NamesRead(), read);
        MakeUnusualNumber(control, style);
        Names written = {L"BackColor", L"Enabled", L"ForeColor"};
        if (style != 0)
            written.push_back(L"Style");
        if (style == 3)
            written.push_back(L"MaxLength");
        written.push_back(L"Font");
        EXPECT_EQ(Saved(control), written);
    }
}

TEST_F(MaskedPersistenceTest, DatesAreReadAndWrittenInOrder)
{
    const auto bag = MakeCom<TestPropertyBag>();
    const MaskedControl control(CLSID_DateBox);
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(bag->NamesRead(), (Names{L"AllowVarious", L"BackColor", L"Enabled", L"Font", L"ForeColor",
                                       L"Style", L"MaxDate", L"MinDate"}));
    MakeUnusualDate(control);
    EXPECT_EQ(Saved(control), (Names{L"AllowVarious", L"BackColor", L"Enabled", L"ForeColor", L"Style",
                                     L"MaxDate", L"MinDate", L"Font"}));
}

TEST_F(MaskedPersistenceTest, NothingThatIsDefaultIsWritten)
{
    for (const CLSID* classId : {&CLSID_NumberBox, &CLSID_DateBox})
    {
        const MaskedControl control(*classId);
        control.InitNew();
        EXPECT_EQ(Saved(control), Names());
    }
    // The length of free digits has no default of its own.
    const MaskedControl custom(CLSID_NumberBox);
    custom.InitNew();
    custom.Put(L"Style", Variant(3L));
    EXPECT_EQ(Saved(custom), (Names{L"Style", L"MaxLength"}));
}

TEST_F(MaskedPersistenceTest, NewBoxesHaveTheDefaults)
{
    const MaskedControl number(CLSID_NumberBox);
    number.InitNew();
    EXPECT_EQ(number.BoxText(), L"___-__-____");
    EXPECT_EQ(number.Shown(L"Style"), "VT 3 0");
    EXPECT_EQ(number.Shown(L"MaxLength"), "VT 2 11");
    EXPECT_EQ(number.Shown(L"Enabled"), "VT 11 True");
    EXPECT_EQ(number.Shown(L"BackColor"), "VT 3 -2147483643");
    EXPECT_EQ(number.Shown(L"ForeColor"), "VT 3 -2147483640");
    EXPECT_EQ(FactsOf(number.Property(L"Font").Object()), FontFacts()) << "the container's";
    const MaskedControl date(CLSID_DateBox);
    date.InitNew();
    EXPECT_EQ(date.BoxText(), L"__/__/__");
    EXPECT_EQ(date.Shown(L"Style"), "VT 3 1");
    EXPECT_EQ(date.Shown(L"AllowVarious"), "VT 11 False");
    EXPECT_EQ(V_DATE(&date.Property(L"MaxDate").Get()), DefaultMaxDate);
    EXPECT_EQ(V_DATE(&date.Property(L"MinDate").Get()), DefaultMinDate);
}

TEST_F(MaskedPersistenceTest, ADatesTextHasTheContainersColour)
{
    const MaskedControl control(CLSID_DateBox);
    control.Site().SetAmbient(DISPID_AMBIENT_FORECOLOR, Variant(0x0000FFL));
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(control.Property(L"ForeColor").Long(), 0x0000FFL);
    EXPECT_EQ(Saved(control), Names());
    control.Put(L"ForeColor", Variant(0x00FF00L));
    EXPECT_EQ(Saved(control), Names{L"ForeColor"});
}

// Read back they are as they were set, without the layout cutting them down again.
TEST_F(MaskedPersistenceTest, BoundsDoNotShrinkWithTheStyle)
{
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"Style", Variant(4L));
    bag->Put(L"MaxDate", Variant::Date(36700.5));
    bag->Put(L"MinDate", Variant::Date(-400.25));
    const MaskedControl control(CLSID_DateBox);
    EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
    EXPECT_EQ(V_DATE(&control.Property(L"MaxDate").Get()), 36700.5);
    EXPECT_EQ(V_DATE(&control.Property(L"MinDate").Get()), -400.25);
}

struct BadRow
{
    const wchar_t* Name;
    const CLSID* ClassId;
    Variant Value;
};

// In its place stands the default, and the container is told.
TEST_F(MaskedPersistenceTest, WhatCannotBeUsedIsReported)
{
    const BadRow rows[] = {
        {L"Style", &CLSID_NumberBox, Variant(L"nonsense")},
        {L"Style", &CLSID_NumberBox, AnotherFont()},
        {L"Style", &CLSID_NumberBox, Variant(1e300)},
        {L"BackColor", &CLSID_NumberBox, Variant(L"red")},
        {L"ForeColor", &CLSID_NumberBox, Variant::Null()},
        {L"Enabled", &CLSID_NumberBox, Variant(L"perhaps")},
        {L"Font", &CLSID_NumberBox, Variant(L"Tahoma")},
        {L"AllowVarious", &CLSID_DateBox, Variant(L"some")},
        {L"BackColor", &CLSID_DateBox, Variant(L"red")},
        {L"ForeColor", &CLSID_DateBox, Variant(L"red")},
        {L"Style", &CLSID_DateBox, Variant(L"nonsense")},
        {L"MaxDate", &CLSID_DateBox, Variant(L"the day after")},
        {L"MinDate", &CLSID_DateBox, Variant(L"")},
        {L"MaxDate", &CLSID_DateBox, AnotherFont()},
        {L"MinDate", &CLSID_DateBox, Variant(1e300)},
        {L"MaxDate", &CLSID_DateBox, Variant(-1e9)},
    };
    for (const BadRow& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Name) + " " + Show(row.Value));
        const MaskedControl fresh(*row.ClassId);
        EXPECT_EQ(Hr(Load(fresh, MakeCom<TestPropertyBag>().Get())), Hr(S_OK));
        const auto bag = MakeCom<TestPropertyBag>();
        const auto log = MakeCom<TestErrorLog>();
        bag->Put(row.Name, row.Value);
        const MaskedControl control(*row.ClassId);
        EXPECT_EQ(Hr(Load(control, bag.Get(), log.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(control), StateOf(fresh));
        ASSERT_EQ(log->Entries().size(), 1U);
        EXPECT_EQ(log->Entries()[0].Property, row.Name);
        EXPECT_TRUE(FAILED(log->Entries()[0].Code));
    }
    // A length that is none leaves the one that the text box has.
    const auto bag = MakeCom<TestPropertyBag>();
    const auto log = MakeCom<TestErrorLog>();
    bag->Put(L"Style", Variant(3L));
    bag->Put(L"MaxLength", Variant(L"long"));
    const MaskedControl control(CLSID_NumberBox);
    EXPECT_EQ(Hr(Load(control, bag.Get(), log.Get())), Hr(S_OK));
    EXPECT_EQ(control.Shown(L"MaxLength"), "VT 2 11");
    ASSERT_EQ(log->Entries().size(), 1U);
    EXPECT_EQ(log->Entries()[0].Property, L"MaxLength");
}

// What a form file holds as text, or as another kind of number, is taken as what it means.
TEST_F(MaskedPersistenceTest, WhatCanBeUsedIsCoerced)
{
    const auto bag = MakeCom<TestPropertyBag>();
    const auto log = MakeCom<TestErrorLog>();
    bag->Put(L"Style", Variant(L"3"));
    bag->Put(L"MaxLength", Variant(5.0));
    bag->Put(L"Enabled", Variant(0L));
    const MaskedControl number(CLSID_NumberBox);
    EXPECT_EQ(Hr(Load(number, bag.Get(), log.Get())), Hr(S_OK));
    EXPECT_EQ(number.Shown(L"Style"), "VT 3 3");
    EXPECT_EQ(number.Shown(L"MaxLength"), "VT 2 5");
    EXPECT_EQ(number.Shown(L"Enabled"), "VT 11 False");
    const auto dates = MakeCom<TestPropertyBag>();
    dates->Put(L"MaxDate", Variant(36700L));
    const MaskedControl date(CLSID_DateBox);
    EXPECT_EQ(Hr(Load(date, dates.Get(), log.Get())), Hr(S_OK));
    EXPECT_EQ(V_DATE(&date.Property(L"MaxDate").Get()), 36700.0);
    EXPECT_EQ(log->Entries().size(), 0U);
}

// A number that is no style is one all the same: it is kept, as when the host sets it.
TEST_F(MaskedPersistenceTest, AnUnknownStyleIsKept)
{
    for (const CLSID* classId : {&CLSID_NumberBox, &CLSID_DateBox})
    {
        const auto bag = MakeCom<TestPropertyBag>();
        bag->Put(L"Style", Variant(99L));
        const MaskedControl control(*classId);
        EXPECT_EQ(Hr(Load(control, bag.Get())), Hr(S_OK));
        EXPECT_EQ(control.Shown(L"Style"), "VT 3 99");
        EXPECT_EQ(Saved(control), Names{L"Style"});
    }
}

} // namespace

} // namespace kiv::test
