// Every row of the amounts' key tables, typed into a control on a form.

#include "tests/gui/amount/AmountTest.h"
#include "tests/native/amount/CurrencyKeyRows.h"
#include "tests/native/amount/PercentKeyRows.h"

#include "host/container/PropertyBag.h"
#include "runtime/com/Errors.h"
#include "runtime/com/MakeCom.h"
#include "tests/support/Text.h"

#include <utility>

namespace kiv::test
{

namespace
{

class AmountKeyTest : public AmountTest
{
protected:
    void ExpectTyped(HostedBox& box, const auto& row, const NumberLocale& locale)
    {
        box.Show(LookOf(Localized(row.Before, locale)));
        Type(row.Keys);
        EXPECT_EQ(box.Look(), LookOf(Localized(row.After, locale)));
        EXPECT_EQ(box.TakeChanges().size(), static_cast<std::size_t>(row.Changes));
    }
};

TEST_F(AmountKeyTest, DoToACurrencyBoxWhatTheRowsSay)
{
    HostedBox box = ShownCurrencyBox();
    ExpectRows(CurrencyKeyRows, [&](const CurrencyKeyRow& row, const NumberLocale& locale) {
        // Such a count comes from a form file only.
        if (row.NumDecDigits < 0)
            return;
        SetDigits(box, row.NumIntDigits, row.NumDecDigits);
        ExpectTyped(box, row, locale);
    });
}

// What a form file says is not checked.
TEST_F(AmountKeyTest, DoToACurrencyBoxWithLoadedCountsWhatTheRowsSay)
{
    AddElsewhere();
    ShowForm();
    int loaded = 0;
    ExpectRows(CurrencyKeyRows, [&](const CurrencyKeyRow& row, const NumberLocale& locale) {
        if (row.NumDecDigits >= 0)
            return;
        ++loaded;
        const auto bag = MakeCom<host::PropertyBag>();
        bag->Set(L"NumIntDigits", Variant(row.NumIntDigits));
        bag->Set(L"NumDecDigits", Variant(row.NumDecDigits));
        host::SiteOptions options = Placed();
        options.load = bag.Get();
        HostedBox box = AddCurrencyBox(options);
        box.Site().Focus();
        ExpectTyped(box, row, locale);
        TheForm().Remove(box.Site());
    });
    EXPECT_EQ(loaded, 4);
}

TEST_F(AmountKeyTest, DoToAPercentBoxWhatTheRowsSay)
{
    HostedBox box = ShownPercentBox();
    ExpectRows(PercentKeyRows, [&](const PercentKeyRow& row, const NumberLocale& locale) {
        box.Site().Put(L"MaxDecimals", Variant(row.MaxDecimals));
        ExpectTyped(box, row, locale);
    });
}

// The key of the locale's own point means the point as well as "." does.
TEST_F(AmountKeyTest, TheLocalesOwnPointIsThePoint)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Focus();
        box->Show({});
        Type(L"1,5");
        EXPECT_EQ(box->Text(), L"15");
        const UserLocale german(NumberLocales[1]);
        box->Show({});
        Type(L"1,5");
        EXPECT_EQ(box->Text(), L"1,5");
        Type(L".");
        EXPECT_EQ(box->Text(), L"1,5") << "one is enough";
    }
}

TEST_F(AmountKeyTest, AreToldToTheHostInTheirOrder)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Focus();
        box->TakeEvents();
        RecordOf(box->Site()).ClearNotifications();
        Type(L"1x");
        EXPECT_EQ(box->TakeEvents(), (Texts{L"KeyDown 49", L"KeyPress 49", L"Change 1", L"KeyUp 49",
                                            L"KeyDown 88", L"KeyPress 120", L"KeyUp 88"}));
        EXPECT_EQ(RecordOf(box->Site()).Notifications(), Texts{L"Value"});
        Type(L"\b");
        EXPECT_EQ(box->TakeEvents(), (Texts{L"KeyDown 8", L"KeyPress 8", L"Change ", L"KeyUp 8"}));
        Key(VK_LEFT);
        EXPECT_EQ(box->TakeEvents(), (Texts{L"KeyDown 37", L"KeyUp 37"}));
    }
    // The selection goes first, and then the character comes.
    percent.Show({L"12", 0, 2});
    Type(L"3");
    EXPECT_EQ(percent.TakeEvents(),
              (Texts{L"KeyDown 51", L"KeyPress 51", L"Change ", L"Change 3", L"KeyUp 51"}));
}

// The host hears of Value after it has heard Change.
TEST_F(AmountKeyTest, TellOfChangeBeforeTheValue)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Focus();
        std::size_t toldBefore = 1;
        RecordOf(box->Site()).ClearNotifications();
        box->On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
            toldBefore = RecordOf(box->Site()).Notifications().size();
        });
        Type(L"1");
        EXPECT_EQ(toldBefore, 0U);
        EXPECT_EQ(RecordOf(box->Site()).Notifications(), Texts{L"Value"});
        box->On(L"Change", nullptr);
    }
}

HostedBox::Handler Return(const wchar_t* argument, short key)
{
    return [=](const host::EventRecord& event, DISPPARAMS& raised) {
        EXPECT_TRUE(host::Return(event, raised, argument, Variant(key)));
    };
}

TEST_F(AmountKeyTest, AreCancelledByTheHost)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Focus();
        box->Show({L"12", 1, 0});
        box->On(L"KeyPress", Return(L"KeyAscii", 0));
        Type(L"9\b.");
        EXPECT_EQ(box->Look(), (BoxLook{L"12", 1, 0}));
        Type(L"\x7F");
        EXPECT_EQ(box->Look(), (BoxLook{L"1", 1, 0})) << "Delete is no character";
        box->On(L"KeyPress", nullptr);
        box->On(L"KeyDown", Return(L"KeyCode", 0));
        box->Select(0, 0);
        Type(L"\x7F");
        Key(VK_END);
        EXPECT_EQ(box->Look(), (BoxLook{L"1", 0, 0}));
        box->On(L"KeyDown", nullptr);
    }
}

// The filter looks at what the host has made of the character.
TEST_F(AmountKeyTest, AreChangedByTheHost)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Focus();
        box->Show({});
        box->On(L"KeyPress", Return(L"KeyAscii", L'7'));
        Type(L"x1");
        EXPECT_EQ(box->Text(), L"77");
        box->On(L"KeyPress", Return(L"KeyAscii", L'x'));
        Type(L"1");
        EXPECT_EQ(box->Text(), L"77");
        box->On(L"KeyPress", nullptr);
        box->On(L"KeyDown", Return(L"KeyCode", VK_DELETE));
        box->Select(0, 0);
        Key(VK_END);
        EXPECT_EQ(box->Look(), (BoxLook{L"7", 0, 0}));
        box->On(L"KeyDown", nullptr);
    }
}

// A selection that gives way to a character tells of it; the host's answer to that is what the character
// meets.
TEST_F(AmountKeyTest, LeaveTheTextThatTheHostAnswersAChangeWith)
{
    HostedBox currency = ShownCurrencyBox();
    currency.Site().Put(L"NumIntDigits", Variant(short{3}));
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&currency, &percent})
    {
        const std::wstring answer = box == &currency ? L"5" : L"500.";
        box->Site().Focus();
        box->Show({L"123", 0, 3});
        bool answered = false;
        box->On(L"Change", [&](const host::EventRecord&, DISPPARAMS&) {
            if (std::exchange(answered, true))
                return;
            EXPECT_EQ(Hr(box->Assign(Variant(short{5}))), Hr(S_OK));
        });
        Type(L"\x7F");
        EXPECT_TRUE(answered);
        EXPECT_EQ(box->Text(), answer);
        box->On(L"Change", nullptr);
    }
}

TEST_F(AmountKeyTest, ThatNoKeyboardHasAreSwallowed)
{
    HostedBox currency = ShownCurrencyBox();
    HostedBox percent = AddPercentBox(Placed({20, 60, 140, 80}));
    for (HostedBox* box : {&currency, &percent})
    {
        box->Site().Focus();
        box->Show({L"1", 1, 0});
        for (const wchar_t character : {L'\u00E9', L'\u65E5', L'\u0661', L'\u20AC'})
            Character(character);
        Key('Z', {VK_CONTROL});
        EXPECT_EQ(box->Look(), (BoxLook{L"1", 1, 0}));
        EXPECT_EQ(box->TakeChanges(), Texts());
    }
}

} // namespace

} // namespace kiv::test
