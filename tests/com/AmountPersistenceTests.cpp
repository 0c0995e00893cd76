// Currency and percent boxes in a form file, a stream and a storage.

#include "tests/com/AmountControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MemoryStorage.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestExtender.h"
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

constexpr LONGLONG Largest = 999'999'999'999'999'999;

Variant AnotherFont()
{
    FontFacts facts;
    facts.Weight = 700;
    return Variant(static_cast<IDispatch*>(MakeFont(facts).Get()));
}

void MakeUnusualLook(const AmountControl& control)
{
    control.Put(L"BackColor", Variant(0x00C0FFL));
    control.Put(L"ForeColor", Variant(0x123456L));
    control.Put(L"Enabled", Variant(false));
    control.Put(L"Font", AnotherFont());
}

// Everything other than by default; the digit counts first, which reset the bounds.
void MakeUnusualCurrency(const AmountControl& control)
{
    MakeUnusualLook(control);
    control.Put(L"AllowRounding", Variant(false));
    control.Put(L"NumDecDigits", Variant(short{4}));
    control.Put(L"NumIntDigits", Variant(short{13}));
    control.Put(L"MaxValue", Money(99'999'999'999'999'999));
    control.Put(L"MinValue", Money(-99'999'999'999'999'998));
}

void MakeUnusualPercent(const AmountControl& control)
{
    MakeUnusualLook(control);
    control.Put(L"Complement", Variant(true));
    control.Put(L"DisplayPercent", Variant(false));
    control.Put(L"MaxDigits", Variant(short{2}));
    control.Put(L"MaxDecimals", Variant(short{6}));
    control.Put(L"MaxValue", Variant(0.9F));
    control.Put(L"MinValue", Variant(0.1F));
}

struct Subject
{
    const char* Name;
    const CLSID* ClassId;
    void (*MakeUnusual)(const AmountControl& control);
    // All that is stored, in the order of reading, which is that of writing.
    Names Keys;
};

const Subject Subjects[] = {
    {"Currency",
     &CLSID_CurrencyBox,
     MakeUnusualCurrency,
     {L"BackColor", L"Enabled", L"ForeColor", L"Font", L"AllowRounding", L"NumDecDigits", L"NumIntDigits",
      L"MaxValue", L"MinValue"}},
    {"Percent",
     &CLSID_PercentBox,
     MakeUnusualPercent,
     {L"BackColor", L"Enabled", L"Font", L"ForeColor", L"Complement", L"DisplayPercent", L"MaxDigits",
      L"MaxDecimals", L"MaxValue", L"MinValue"}},
};

HRESULT Load(const AmountControl& control, TestPropertyBag* bag, IErrorLog* log = nullptr)
{
    return control.Query<IPersistPropertyBag>()->Load(bag, log);
}

HRESULT Save(const AmountControl& control, TestPropertyBag* bag)
{
    return control.Query<IPersistPropertyBag>()->Save(bag, TRUE, FALSE);
}

using AmountPersistenceTest = LibraryTest;

TEST_F(AmountPersistenceTest, ComesBackFromABagAsItWas)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const auto bag = MakeCom<TestPropertyBag>();
        AmountState before;
        {
            const AmountControl first(*subject.ClassId);
            first.InitNew();
            subject.MakeUnusual(first);
            first.Enter(L"5");
            EXPECT_EQ(Hr(Save(first, bag.Get())), Hr(S_OK));
            EXPECT_EQ(bag->NamesWritten(), subject.Keys);
            before = StateOf(first);
        }
        const AmountControl second(*subject.ClassId);
        EXPECT_EQ(Hr(Load(second, bag.Get())), Hr(S_OK));
        EXPECT_EQ(bag->NamesRead(), subject.Keys);
        EXPECT_EQ(StateOf(second), before);
        EXPECT_EQ(second.Entry(), L"") << "the amount is not kept";
        EXPECT_EQ(second.Shown(L"Text"), "VT 8 \"\"");

        const auto again = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(Save(second, again.Get())), Hr(S_OK));
        EXPECT_EQ(again->NamesWritten(), subject.Keys);
        for (const auto& [name, value] : bag->Values())
            EXPECT_EQ(Show(again->Find(name)), Show(value)) << Narrow(name);
    }
}

TEST_F(AmountPersistenceTest, ComesBackFromAStreamAsItWas)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const AmountControl first(*subject.ClassId);
        first.InitNew();
        subject.MakeUnusual(first);
        const auto stream = MakeCom<TestStream>();
        EXPECT_EQ(Hr(first.Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK));
        stream->Rewind();
        const AmountControl second(*subject.ClassId);
        EXPECT_EQ(Hr(second.Query<IPersistStreamInit>()->Load(stream.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(second), StateOf(first));
        const auto again = MakeCom<TestStream>();
        EXPECT_EQ(Hr(second.Query<IPersistStreamInit>()->Save(again.Get(), TRUE)), Hr(S_OK));
        EXPECT_EQ(again->Bytes(), stream->Bytes());
    }
}

TEST_F(AmountPersistenceTest, ComesBackFromAStorageAsItWas)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const AmountControl first(*subject.ClassId);
        first.InitNew();
        subject.MakeUnusual(first);
        const ComPtr<IStorage> storage = MakeMemoryStorage();
        const auto saving = first.Query<IPersistStorage>();
        EXPECT_EQ(Hr(saving->Save(storage.Get(), FALSE)), Hr(S_OK));
        EXPECT_EQ(Hr(saving->SaveCompleted(nullptr)), Hr(S_OK));
        const AmountControl second(*subject.ClassId);
        EXPECT_EQ(Hr(second.Query<IPersistStorage>()->Load(storage.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(second), StateOf(first));
    }
}

TEST_F(AmountPersistenceTest, IsNewAgainAfterALoadThatFails)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const AmountControl control(*subject.ClassId);
        control.InitNew();
        const AmountState fresh = StateOf(control);
        subject.MakeUnusual(control);
        const auto stream = MakeCom<TestStream>();
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK));
        for (std::size_t size = 0; size < stream->Bytes().size(); size += 7)
        {
            const auto& bytes = stream->Bytes();
            const auto cut = MakeCom<TestStream>(
                std::vector(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)));
            subject.MakeUnusual(control);
            control.Enter(L"5");
            EXPECT_NE(StateOf(control), fresh) << size;
            EXPECT_TRUE(FAILED(control.Query<IPersistStreamInit>()->Load(cut.Get()))) << size;
            EXPECT_EQ(StateOf(control), fresh) << size;
            EXPECT_EQ(control.Entry(), L"") << size;
        }
    }
}

TEST_F(AmountPersistenceTest, ANewOneHasTheDefaultsAndWritesNone)
{
    for (const Subject& subject : Subjects)
    {
        SCOPED_TRACE(subject.Name);
        const AmountControl control(*subject.ClassId);
        control.InitNew();
        EXPECT_EQ(control.Shown(L"BackColor"), "VT 3 -2147483643");
        EXPECT_EQ(control.Shown(L"ForeColor"), "VT 3 -2147483640");
        EXPECT_EQ(control.Shown(L"Enabled"), "VT 11 True");
        EXPECT_EQ(FactsOf(control.Property(L"Font").Object()), FontFacts()) << "the container's";
        const auto bag = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK));
        EXPECT_EQ(bag->NamesWritten(), Names());
        const AmountState fresh = StateOf(control);
        control.Enter(L"5");
        EXPECT_EQ(Hr(Load(control, MakeCom<TestPropertyBag>().Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(control), fresh) << "absent keys read as the same";
        EXPECT_EQ(control.Entry(), L"") << "the amount goes";
        EXPECT_EQ(control.Shown(L"Text"), "VT 8 \"\"");
    }
    const AmountControl currency(CLSID_CurrencyBox);
    currency.InitNew();
    EXPECT_EQ(currency.Shown(L"AllowRounding"), "VT 11 True");
    EXPECT_EQ(currency.Shown(L"NumDecDigits"), "VT 2 2");
    EXPECT_EQ(currency.Shown(L"NumIntDigits"), "VT 2 14");
    EXPECT_EQ(currency.Shown(L"MaxValue"), "VT 6 99999999999999");
    EXPECT_EQ(currency.Shown(L"MinValue"), "VT 6 -99999999999999");
    const AmountControl percent(CLSID_PercentBox);
    percent.InitNew();
    EXPECT_EQ(percent.Shown(L"Complement"), "VT 11 False");
    EXPECT_EQ(percent.Shown(L"DisplayPercent"), "VT 11 True");
    EXPECT_EQ(percent.Shown(L"MaxDigits"), "VT 2 3");
    EXPECT_EQ(percent.Shown(L"MaxDecimals"), "VT 2 4");
    EXPECT_EQ(percent.Shown(L"MaxValue"), "VT 4 100");
    EXPECT_EQ(percent.Shown(L"MinValue"), "VT 4 0");
}

// To the ten-thousandth, through a bag, a stream and a storage.
TEST_F(AmountPersistenceTest, KeepsCurrencyBoundsExactly)
{
    for (const LONGLONG bound : {Largest, Largest - 1, LONGLONG{1}, LONGLONG{123'456'789'012'345'678}})
    {
        SCOPED_TRACE(bound);
        const AmountControl first(CLSID_CurrencyBox);
        first.InitNew();
        first.Put(L"MaxValue", Money(bound));
        first.Put(L"MinValue", Money(-bound));
        const auto bag = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(Save(first, bag.Get())), Hr(S_OK));
        EXPECT_EQ(bag->Find(L"MaxValue").Type(), VT_CY);
        EXPECT_EQ(V_CY(&bag->Find(L"MaxValue").Get()).int64, bound);
        EXPECT_EQ(V_CY(&bag->Find(L"MinValue").Get()).int64, -bound);
        const auto stream = MakeCom<TestStream>();
        EXPECT_EQ(Hr(first.Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK));
        stream->Rewind();
        const ComPtr<IStorage> storage = MakeMemoryStorage();
        EXPECT_EQ(Hr(first.Query<IPersistStorage>()->Save(storage.Get(), FALSE)), Hr(S_OK));

        const AmountControl fromBag(CLSID_CurrencyBox);
        EXPECT_EQ(Hr(Load(fromBag, bag.Get())), Hr(S_OK));
        const AmountControl fromStream(CLSID_CurrencyBox);
        EXPECT_EQ(Hr(fromStream.Query<IPersistStreamInit>()->Load(stream.Get())), Hr(S_OK));
        const AmountControl fromStorage(CLSID_CurrencyBox);
        EXPECT_EQ(Hr(fromStorage.Query<IPersistStorage>()->Load(storage.Get())), Hr(S_OK));
        for (const AmountControl* control : {&fromBag, &fromStream, &fromStorage})
        {
            EXPECT_EQ(V_CY(&control->Property(L"MaxValue").Get()).int64, bound);
            EXPECT_EQ(V_CY(&control->Property(L"MinValue").Get()).int64, -bound);
        }
    }
}

// What no let would take is taken from a form, and the range is not reset.
TEST_F(AmountPersistenceTest, StoresAreReadWithoutChecks)
{
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"NumDecDigits", Variant(short{-3}));
    bag->Put(L"NumIntDigits", Variant(short{99}));
    bag->Put(L"MaxValue", Money(-5));
    bag->Put(L"MinValue", Money(Largest + 5));
    const AmountControl currency(CLSID_CurrencyBox);
    EXPECT_EQ(Hr(Load(currency, bag.Get())), Hr(S_OK));
    EXPECT_EQ(currency.Shown(L"NumDecDigits"), "VT 2 -3");
    EXPECT_EQ(currency.Shown(L"NumIntDigits"), "VT 2 99");
    EXPECT_EQ(V_CY(&currency.Property(L"MaxValue").Get()).int64, -5);
    EXPECT_EQ(V_CY(&currency.Property(L"MinValue").Get()).int64, Largest + 5);
    const auto rates = MakeCom<TestPropertyBag>();
    rates->Put(L"MaxDigits", Variant(short{-3}));
    rates->Put(L"MaxDecimals", Variant(short{99}));
    rates->Put(L"MaxValue", Variant(-5.5F));
    rates->Put(L"MinValue", Variant(1000.0F));
    const AmountControl percent(CLSID_PercentBox);
    EXPECT_EQ(Hr(Load(percent, rates.Get())), Hr(S_OK));
    EXPECT_EQ(percent.Shown(L"MaxDigits"), "VT 2 -3");
    EXPECT_EQ(percent.Shown(L"MaxDecimals"), "VT 2 99");
    EXPECT_EQ(percent.Shown(L"MaxValue"), "VT 4 -5.5");
    EXPECT_EQ(percent.Shown(L"MinValue"), "VT 4 1000");
}

struct StoredRow
{
    const CLSID* ClassId;
    const wchar_t* Name;
    Variant Value;
};

TEST_F(AmountPersistenceTest, WhatCannotBeUsedIsReported)
{
    const StoredRow rows[] = {
        {&CLSID_CurrencyBox, L"BackColor", Variant(L"red")},
        {&CLSID_CurrencyBox, L"Enabled", Variant(L"perhaps")},
        {&CLSID_CurrencyBox, L"ForeColor", Variant::Null()},
        {&CLSID_CurrencyBox, L"Font", Variant(L"Tahoma")},
        {&CLSID_CurrencyBox, L"AllowRounding", Variant(L"some")},
        {&CLSID_CurrencyBox, L"NumDecDigits", Variant(L"two")},
        {&CLSID_CurrencyBox, L"NumIntDigits", Variant(1e300)},
        {&CLSID_CurrencyBox, L"MaxValue", Variant(L"a lot")},
        {&CLSID_CurrencyBox, L"MaxValue", Variant(1e300)},
        {&CLSID_CurrencyBox, L"MinValue", Variant::Null()},
        {&CLSID_CurrencyBox, L"MinValue", AnotherFont()},
        {&CLSID_PercentBox, L"Font", Variant(5L)},
        {&CLSID_PercentBox, L"Complement", Variant(L"some")},
        {&CLSID_PercentBox, L"DisplayPercent", AnotherFont()},
        {&CLSID_PercentBox, L"MaxDigits", Variant(70000L)},
        {&CLSID_PercentBox, L"MaxDecimals", Variant(L"four")},
        {&CLSID_PercentBox, L"MaxValue", Variant(L"all")},
        {&CLSID_PercentBox, L"MaxValue", Variant(1e300)},
        {&CLSID_PercentBox, L"MinValue", Variant::Null()},
    };
    for (const StoredRow& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Name) + " " + Show(row.Value));
        const AmountControl control(*row.ClassId);
        control.InitNew();
        const AmountState fresh = StateOf(control);
        const auto bag = MakeCom<TestPropertyBag>();
        const auto log = MakeCom<TestErrorLog>();
        bag->Put(row.Name, row.Value);
        EXPECT_EQ(Hr(Load(control, bag.Get(), log.Get())), Hr(S_OK));
        EXPECT_EQ(StateOf(control), fresh);
        ASSERT_EQ(log->Entries().size(), 1U);
        EXPECT_EQ(log->Entries()[0].Property, row.Name);
        EXPECT_TRUE(FAILED(log->Entries()[0].Code));
    }
}

TEST_F(AmountPersistenceTest, WhatCanBeUsedIsCoerced)
{
    const auto bag = MakeCom<TestPropertyBag>();
    const auto log = MakeCom<TestErrorLog>();
    bag->Put(L"AllowRounding", Variant(0L));
    bag->Put(L"NumDecDigits", Variant(L"4"));
    bag->Put(L"MaxValue", Variant(L"99999999999999.9999"));
    bag->Put(L"MinValue", Variant(-2.5));
    const AmountControl currency(CLSID_CurrencyBox);
    EXPECT_EQ(Hr(Load(currency, bag.Get(), log.Get())), Hr(S_OK));
    EXPECT_EQ(currency.Shown(L"AllowRounding"), "VT 11 False");
    EXPECT_EQ(currency.Shown(L"NumDecDigits"), "VT 2 4");
    EXPECT_EQ(V_CY(&currency.Property(L"MaxValue").Get()).int64, Largest);
    EXPECT_EQ(V_CY(&currency.Property(L"MinValue").Get()).int64, -25000);
    const auto rates = MakeCom<TestPropertyBag>();
    rates->Put(L"MaxValue", Variant(50L));
    rates->Put(L"MinValue", Variant(L"12.5"));
    const AmountControl percent(CLSID_PercentBox);
    EXPECT_EQ(Hr(Load(percent, rates.Get(), log.Get())), Hr(S_OK));
    EXPECT_EQ(percent.Shown(L"MaxValue"), "VT 4 50");
    EXPECT_EQ(percent.Shown(L"MinValue"), "VT 4 12.5");
    EXPECT_EQ(log->Entries().size(), 0U);
}

// The container's help topic for the control becomes that of the window in which the user types.
TEST_F(AmountPersistenceTest, ALoadedCurrencyBoxTakesItsHelpTopicFromTheContainer)
{
    const struct
    {
        const wchar_t* Name;
        Variant Value;
        DWORD Topic;
    } rows[] = {{L"HelpContextID", Variant(4711L), 4711},
                {L"HelpContextID", Variant(L"no number"), 0},
                {L"WhatsThisHelpID", Variant(4711L), 0}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Narrow(row.Name) + " " + Show(row.Value));
        const auto extender = MakeCom<TestExtender>();
        extender->Put(row.Name, row.Value);
        const AmountControl control(CLSID_CurrencyBox);
        control.Site().Extend(extender);
        EXPECT_EQ(Hr(Load(control, MakeCom<TestPropertyBag>().Get())), Hr(S_OK));
        EXPECT_EQ(GetWindowContextHelpId(control.Box()), row.Topic);
    }
}

} // namespace

} // namespace kiv::test
