// What currency and percent boxes keep, and what they do not.

#include "tests/com/AmountControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MemoryStorage.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestExtender.h"
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

constexpr LONGLONG Largest = 999'999'999'999'999'999;

HRESULT Load(const AmountControl& control, TestPropertyBag* bag, IErrorLog* log = nullptr)
{
    return control.Query<IPersistPropertyBag>()->Load(bag, log);
}

HRESULT Save(const AmountControl& control, TestPropertyBag* bag)
{
    return control.Query<IPersistPropertyBag>()->Save(bag, TRUE, FALSE);
}

using AmountPersistenceTest = LibraryTest;

TEST_F(AmountPersistenceTest, TheAmountIsNotKept)
{
    for (const CLSID* classId : {&CLSID_CurrencyBox, &CLSID_PercentBox})
    {
        const AmountControl control(*classId);
        control.InitNew();
        const auto bag = MakeCom<TestPropertyBag>();
        const auto stream = MakeCom<TestStream>();
        control.Enter(L"5");
        EXPECT_EQ(Hr(Save(control, bag.Get())), Hr(S_OK));
        EXPECT_EQ(Hr(control.Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK));
        EXPECT_EQ(bag->NamesWritten(), std::vector<std::wstring>());
        for (int way = 0; way < 3; ++way)
        {
            SCOPED_TRACE(way);
            control.Enter(L"5");
            EXPECT_NE(control.Shown(L"Text"), "VT 8 \"\"");
            if (way == 2)
                stream->FailReadsPast(5);
            stream->Rewind();
            EXPECT_EQ(SUCCEEDED(way == 0 ? Load(control, bag.Get())
                                         : control.Query<IPersistStreamInit>()->Load(stream.Get())),
                      way != 2);
            EXPECT_EQ(control.Entry(), L"");
            EXPECT_EQ(control.Shown(L"Text"), "VT 8 \"\"");
        }
    }
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
