// A list of codes as its host sees it: properties, what they notify, and what the database is asked.

#include "tests/com/EnumListTest.h"
#include "tests/support/AutomationCalls.h"
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

using Calls = std::vector<std::wstring>;

TEST_F(EnumListTest, BeginsEmptyAndShowingCodes)
{
    const MaskedControl fresh(CLSID_EnumList);
    fresh.InitNew();
    for (const wchar_t* name : {L"StateCode", L"TableName", L"EnumListTitle", L"EnumCode", L"EnumText"})
        EXPECT_EQ(fresh.Shown(name), Show(Variant(L""))) << Narrow(name);
    EXPECT_EQ(fresh.Shown(L"DisplayStyle"), Show(Variant(0L)));
    EXPECT_EQ(fresh.Shown(L"SortListBy"), Show(Variant(0L)));
    EXPECT_EQ(fresh.Shown(L"BoundEnumCode"), Show(Variant::Null()));
    EXPECT_EQ(fresh.Shown(L"Enabled"), Show(Variant(true)));
    EXPECT_EQ(fresh.Property(L"BackColor").Long(), static_cast<long>(0x80000005));
    EXPECT_EQ(fresh.Property(L"ForeColor").Long(), static_cast<long>(0x80000012));
}

TEST_F(EnumListTest, ACodeIsShownWithoutAskingTheDatabase)
{
    ExpectNoMessage([&] {
        Put(L"EnumCode", Variant(L"7"));
        Put(L"Database", Variant(static_cast<IDispatch*>(nullptr)));
        Put(L"EnumCode", Variant(L"8"));
    });
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"8")));
    EXPECT_EQ(Database().TakeCalls(), Calls());
}

TEST_F(EnumListTest, ADescriptionIsLookedUp)
{
    Put(L"DisplayStyle", Variant(1L));
    EXPECT_EQ(Database().TakeCalls(), Calls()) << "nothing to look up yet";
    Put(L"EnumCode", Variant(L"7"));
    EXPECT_EQ(
        Database().Queries(),
        (Calls{L"SELECT * FROM [Enum Tables]  WHERE [State Code] = 'MA' AND [Table Name] = 'Single' AND "
               L"[Enum Code] = '7'"}));
    EXPECT_EQ(Database().Types(), std::vector<long>{8});
    EXPECT_EQ(Database().TakeCalls(),
              (Calls{L"OpenRecordset", L"EOF", L"Fields Enum Text", L"Value", L"Close"}));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"Pears")));
    EXPECT_EQ(Database().StillOpen(), 0);
}

TEST_F(EnumListTest, TheTextFollowsCodeAndStyleOnly)
{
    Put(L"DisplayStyle", Variant(1L));
    Put(L"EnumCode", Variant(L"7"));
    Put(L"StateCode", Variant(L"CT"));
    Put(L"TableName", Variant(L"Lines"));
    Put(L"Database", Variant(static_cast<IDispatch*>(nullptr)));
    Put(L"SortListBy", Variant(0L));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"Pears")));
    Put(L"Database", Variant(Database().Get()));
    Put(L"TableName", Variant(L"Single"));
    Put(L"EnumCode", Variant(L"1"));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"Elsewhere")));
    Put(L"DisplayStyle", Variant(0L));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"1")));
}

TEST_F(EnumListTest, WhatIsNotFoundOrNotNamedShowsNothing)
{
    Put(L"DisplayStyle", Variant(1L));
    ExpectNoMessage([&] {
        Put(L"EnumCode", Variant(L"none of them"));
        EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"")));
        EXPECT_EQ(Database().TakeCalls(), (Calls{L"OpenRecordset", L"EOF", L"Close"}));
        for (const wchar_t* name : {L"StateCode", L"TableName"})
        {
            const Variant former = Control().Property(name);
            Put(name, Variant(L""));
            Put(L"EnumCode", Variant(L"7"));
            EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"")));
            Put(name, former);
        }
        Put(L"EnumCode", Variant(L""));
        EXPECT_EQ(Database().TakeCalls(), Calls());
    });
}

TEST_F(EnumListTest, CodesGoToTheDatabaseAsTheyAre)
{
    Database().Rows({{L"MA", L"Single", Variant(L" x Y "), Variant(L"Blanks")}});
    Put(L"DisplayStyle", Variant(1L));
    Put(L"EnumCode", Variant(L" x Y "));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"Blanks")));
    EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L" x Y ")));
}

TEST_F(EnumListTest, TellsOfACodeTwiceWhenItIsBound)
{
    ListenToChanges();
    Put(L"EnumCode", Variant(L"7"));
    EXPECT_EQ(TakeChanges(), (Names{L"EnumCode", L"BoundEnumCode"}));
    Put(L"BoundEnumCode", Variant(L"10"));
    EXPECT_EQ(TakeChanges(), (Names{L"EnumCode", L"BoundEnumCode", L"EnumCode", L"BoundEnumCode"}));
    Put(L"EnumCode", Variant(L"10"));
    EXPECT_EQ(TakeChanges(), (Names{L"EnumCode", L"BoundEnumCode"})) << "the same code is told as well";
}

TEST_F(EnumListTest, TellsOfItsOtherProperties)
{
    ListenToChanges();
    Put(L"DisplayStyle", Variant(1L));
    EXPECT_EQ(TakeChanges(), (Names{L"SortListBy", L"DisplayStyle"}));
    EXPECT_EQ(Shown(L"SortListBy"), Show(Variant(1L)));
    Put(L"SortListBy", Variant(0L));
    EXPECT_EQ(TakeChanges(), (Names{L"SortListBy"}));
    for (const wchar_t* name : {L"StateCode", L"TableName", L"EnumListTitle"})
        Put(name, Variant(L"x"));
    Put(L"Database", Variant(Database().Get()));
    Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont().Get())));
    EXPECT_EQ(TakeChanges(), Names()) << "not told";
    Put(L"BackColor", Variant(0x00C0FFL));
    Put(L"ForeColor", Variant(0x123456L));
    Put(L"Enabled", Variant(false));
    EXPECT_EQ(TakeChanges(), (Names{L"BackColor", L"ForeColor", L"Enabled"}));
}

TEST_F(EnumListTest, ABoundValueMayBeNullOrWhatReadsAsText)
{
    const struct
    {
        Variant Value;
        const wchar_t* Code;
    } rows[] = {
        {Variant(L"7"), L"7"}, {Variant(10L), L"10"}, {Variant::Null(), L""}, {Variant(short{-3}), L"-3"},
        {Variant(), L""},      {Variant(L"7"), L"7"}, {Variant(L""), L""},
    };
    for (const auto& row : rows)
    {
        Put(L"BoundEnumCode", row.Value);
        EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(row.Code)));
        EXPECT_EQ(Shown(L"BoundEnumCode"), Show(*row.Code ? Variant(row.Code) : Variant::Null()));
    }
    Put(L"EnumCode", Variant(L"7"));
    const CallOutcome outcome = PutByName(Control().Get(), L"BoundEnumCode", Missing());
    EXPECT_EQ(Hr(outcome.Result == DISP_E_EXCEPTION ? outcome.ErrorCode : outcome.Result),
              Hr(DISP_E_TYPEMISMATCH));
    EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L"7")));
}

TEST_F(EnumListTest, NullAndOtherValuesOfAFieldReadAsText)
{
    Put(L"DisplayStyle", Variant(1L));
    const struct
    {
        Variant Value;
        const wchar_t* Text;
    } rows[] = {{Variant::Null(), L""},           {Variant(), L""},           {Variant(42L), L"42"},
                {Variant(true), L"True"},         {Variant(false), L"False"}, {Missing(), L""},
                {Variant(L"&a\r\nb"), L"&a\r\nb"}};
    for (const auto& row : rows)
    {
        Database().Rows({{L"MA", L"Single", Variant(L"7"), row.Value}});
        Put(L"EnumCode", Variant(L"7"));
        EXPECT_EQ(Shown(L"EnumText"), Show(Variant(row.Text)));
    }
    const std::wstring huge(1 << 20, L'x');
    Database().Rows({{L"MA", L"Single", Variant(L"7"), Variant(huge)}});
    Put(L"EnumCode", Variant(L"7"));
    EXPECT_EQ(Control().Property(L"EnumText").Text().size(), huge.size());
}

// Each shape for a database object is one that late binding finds its way in.
TEST_F(EnumListTest, TakesMethodsPropertiesAndCollections)
{
    Put(L"DisplayStyle", Variant(1L));
    for (const auto shape :
         {EnumDatabase::Shape::Methods, EnumDatabase::Shape::Properties, EnumDatabase::Shape::Collections})
    {
        const EnumDatabase database(SampleEnumRows(), shape);
        Put(L"Database", Variant(database.Get()));
        Put(L"EnumCode", Variant(L""));
        Put(L"EnumCode", Variant(L"100"));
        EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"Apples")));
        EXPECT_EQ(database.StillOpen(), 0);
        Put(L"Database", Variant(static_cast<IDispatch*>(nullptr)));
    }
}

TEST_F(EnumListTest, ShowsTheHourglassWhileItAsks)
{
    Put(L"DisplayStyle", Variant(1L));
    const HCURSOR before = GetCursor();
    std::vector<HCURSOR> seen;
    Database().OnCall([&](const std::wstring&) { seen.push_back(GetCursor()); });
    Put(L"EnumCode", Variant(L"7"));
    ASSERT_GE(seen.size(), 2U);
    EXPECT_EQ(seen[0], LoadCursorA(nullptr, IDC_WAIT));
    EXPECT_EQ(seen[1], before) << "only while the query is opened";
    EXPECT_EQ(GetCursor(), before);
}

// The database asks its host, which sets another code: that one's text stays.
TEST_F(EnumListTest, TheLastCodeWinsWhenTheDatabaseCausesAnother)
{
    Put(L"DisplayStyle", Variant(1L));
    bool done = false;
    Database().OnCall([&](const std::wstring& call) {
        if (call == L"EOF" && !std::exchange(done, true))
            Put(L"EnumCode", Variant(L"100"));
    });
    Put(L"EnumCode", Variant(L"7"));
    EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L"100")));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"Apples")));
}

TEST_F(EnumListTest, TheDatabaseIsSetOnlyAndLetGoOf)
{
    const auto object = MakeCom<ScriptedObject>();
    EXPECT_NE(Hr(GetByName(Control().Get(), L"Database").Result), Hr(S_OK));
    EXPECT_NE(Hr(PutByName(Control().Get(), L"Database", Variant(L"text")).Result), Hr(S_OK));
    Put(L"Database", Variant(static_cast<IDispatch*>(object.Get())));
    EXPECT_EQ(References(static_cast<IDispatch*>(object.Get())), 2U);
    Put(L"Database", Variant(static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ(References(static_cast<IDispatch*>(object.Get())), 1U);
}

// --- In a form's file ---

TEST_F(EnumListTest, SortsByWhatItShowsUnlessAnotherOrderIsKept)
{
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"DisplayStyle", Variant(1L));
    EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(Shown(L"SortListBy"), Show(Variant(1L)));
    const auto followed = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Save(followed.Get(), TRUE, TRUE)), Hr(S_OK));
    EXPECT_EQ(followed->NamesWritten(), Names{L"DisplayStyle"});
    Put(L"SortListBy", Variant(0L));
    const auto full = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Save(full.Get(), TRUE, TRUE)), Hr(S_OK));
    EXPECT_EQ(full->NamesWritten(), (Names{L"DisplayStyle", L"SortListBy"}));
}

TEST_F(EnumListTest, TheCodeIsNotKept)
{
    Put(L"EnumCode", Variant(L"7"));
    const auto stream = MakeCom<TestStream>();
    ASSERT_EQ(Hr(Control().Query<IPersistStreamInit>()->Save(stream.Get(), TRUE)), Hr(S_OK));
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Save(bag.Get(), TRUE, TRUE)), Hr(S_OK));
    EXPECT_EQ(bag->NamesWritten(), (Names{L"TableName", L"StateCode"}));
    stream->Rewind();
    const MaskedControl loaded(CLSID_EnumList);
    ASSERT_EQ(Hr(loaded.Query<IPersistStreamInit>()->Load(stream.Get())), Hr(S_OK));
    EXPECT_EQ(loaded.Shown(L"EnumCode"), Show(Variant(L"")));
}

TEST_F(EnumListTest, NothingIsToldOrAskedWhileLoading)
{
    Put(L"DisplayStyle", Variant(1L));
    Put(L"EnumCode", Variant(L"7"));
    Database().TakeCalls();
    ListenToChanges();
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"DisplayStyle", Variant(1L));
    EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(TakeChanges(), Names());
    EXPECT_EQ(Database().TakeCalls(), Calls());
    EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L"")));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"")));
}

// --- The picker ---

// Leaves the picker as soon as it is shown.
void CALLBACK LeavePicker(HWND, UINT, UINT_PTR, DWORD)
{
    const HWND picker = FindWindowW(L"KivControls.Form", nullptr);
    if (picker && IsWindowVisible(picker))
        SendMessageW(picker, WM_CLOSE, 0, 0);
}

TEST_F(EnumListTest, TellsTheContainerWhileItsPickerIsShown)
{
    RecordingSite& site = Control().Site();
    site.Log().AllowAll();
    const RECT place = site.Position();
    ASSERT_EQ(Hr(Control().Query<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0,
                                                       site.Window().Handle(), &place)),
              Hr(S_OK));
    HWND window = nullptr;
    Check(Control().Query<IOleInPlaceObject>()->GetWindow(&window));
    std::vector<bool> enabled;
    std::vector<std::string> modeless;
    site.Log().OnCall([&](const std::string& call) {
        if (!call.ends_with("EnableModeless"))
            return;
        modeless.push_back(call);
        enabled.push_back(IsWindowEnabled(site.Window().Handle()) != FALSE);
    });
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LeavePicker);
    SendMessageW(FindWindowExW(window, nullptr, L"Button", nullptr), BM_CLICK, 0, 0);
    KillTimer(nullptr, timer);
    site.Log().OnCall({});
    EXPECT_EQ(modeless.size(), 2U);
    EXPECT_EQ(enabled, (std::vector<bool>{true, false})) << "before the picker comes, and before it goes";
    EXPECT_TRUE(IsWindowEnabled(site.Window().Handle()));
    EXPECT_EQ(Database().Queries().size(), 1U);
}

// --- Size ---

long HeightOf(const MaskedControl& control)
{
    SIZEL size = {};
    Check(control.Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size));
    return size.cy;
}

TEST_F(EnumListTest, GrowsForAFontAndNeverShrinksForOne)
{
    const long before = HeightOf(Control());
    FontFacts large;
    large.Size.int64 = 240000;
    Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont(large).Get())));
    const long grown = HeightOf(Control());
    EXPECT_GT(grown, before);
    Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont().Get())));
    EXPECT_EQ(HeightOf(Control()), grown);
}

TEST_F(EnumListTest, IsNoSmallerThanItsButtonAndItsLine)
{
    SIZEL tiny = {26, 26};
    Check(Control().Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &tiny));
    SIZEL size = {};
    Check(Control().Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size));
    // A button of 17 pixels and a line of 16, with a border of two on every side.
    EXPECT_EQ(MulDiv(size.cx, 96, 2540), 17 + 4);
    EXPECT_EQ(MulDiv(size.cy, 96, 2540), 16 + 4);
    SIZEL tall = {2540, 2540};
    Check(Control().Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &tall));
    Check(Control().Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size));
    EXPECT_EQ(size.cy, 2540) << "a taller one keeps its height";
}

} // namespace

} // namespace kiv::test
