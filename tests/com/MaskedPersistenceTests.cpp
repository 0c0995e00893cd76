// What number and date boxes keep in a form file, and what they do not.

#include "tests/com/MaskedControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestFont.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <olectl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using Names = std::vector<std::wstring>;

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

// The entry is not kept: there is the blank of the style.
TEST_F(MaskedPersistenceTest, ALoadedBoxIsBlank)
{
    for (const CLSID* classId : {&CLSID_NumberBox, &CLSID_DateBox})
    {
        const bool isDate = *classId == CLSID_DateBox;
        for (long style = 0; style < (isDate ? 8 : 4); ++style)
        {
            SCOPED_TRACE(style);
            const MaskedControl first(*classId);
            first.InitNew();
            EXPECT_EQ(first.BoxText(), isDate ? L"__/__/__" : L"___-__-____");
            first.Put(L"Style", Variant(style));
            first.Put(L"Value", Variant::Null());
            const auto bag = MakeCom<TestPropertyBag>();
            EXPECT_EQ(Hr(Save(first, bag.Get())), Hr(S_OK));
            const MaskedControl second(*classId);
            EXPECT_EQ(Hr(Load(second, bag.Get())), Hr(S_OK));
            if (isDate)
            {
                EXPECT_EQ(Hr(CallByName(first.Get(), L"InitStyle").Result), Hr(S_OK));
            }
            EXPECT_EQ(second.BoxText(), first.BoxText());
        }
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

TEST_F(MaskedPersistenceTest, ALengthThatIsNoneLeavesTheOneThatTheBoxHas)
{
    const auto bag = MakeCom<TestPropertyBag>();
    const auto log = MakeCom<TestErrorLog>();
    bag->Put(L"Style", Variant(3L));
    bag->Put(L"MaxLength", Variant(L"long"));
    const MaskedControl control(CLSID_NumberBox);
    EXPECT_EQ(Hr(Load(control, bag.Get(), log.Get())), Hr(S_OK));
    EXPECT_EQ(control.Shown(L"MaxLength"), "VT 2 11");
    ASSERT_EQ(log->Entries().size(), 1U);
    EXPECT_EQ(log->Entries()[0].Property, L"MaxLength");
    EXPECT_TRUE(FAILED(log->Entries()[0].Code));
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
